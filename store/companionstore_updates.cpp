// A newer build of the companion: looked for at most once an hour, offered until dismissed.

#include "store/companionstore.h"

#include "platform/clock.h"
#include "platform/mainbundle.h"
#include "platform/mainthread.h"
#include "platform/urlfetcher.h"
#include "platform/userdefaults.h"
#include "platform/workspace.h"

#include <QPointer>

using namespace std::chrono_literals;

namespace {

constexpr auto updateCheckInterval = 1h;

QString dismissedBuildKey()
{
    return QStringLiteral("NLC_dismissedUpdateBuild");
}

} // namespace

const std::optional<UpdateInfo> &CompanionStore::availableUpdate() const
{
    requireMainThread();
    return m_availableUpdate;
}

void CompanionStore::checkForUpdatesIfNeeded()
{
    requireMainThread();
    const auto now = m_.platform.clock->now();
    if (now - m_lastUpdateCheckDate <= updateCheckInterval)
        return;
    m_lastUpdateCheckDate = now; // before the fetch: a failed one counts too
    fetchUpdateInfo();
}

QCoro::Task<> CompanionStore::fetchUpdateInfo()
{
    const QPointer<CompanionStore> self(this);
    const QUrl feed = m_.platform.updateFeed.value_or(updateFeedURL());
    const std::optional<QByteArray> body = co_await m_.platform.network->fetch(feed);
    if (!self || !body)
        co_return;
    const std::optional<UpdateInfo> offered = decodeUpdateInfo(*body);
    if (!offered)
        co_return;
    const QString version = m_.platform.mainBundle->version().value_or(QStringLiteral("0"));
    if (buildNumberFromVersion(version) >= offered->build
        || m_.platform.standardDefaults->integer(dismissedBuildKey()) == offered->build
        || m_availableUpdate == offered)
        co_return;
    m_availableUpdate = offered;
    Q_EMIT availableUpdateChanged();
}

void CompanionStore::dismissUpdate()
{
    requireMainThread();
    if (!m_availableUpdate)
        return;
    m_.platform.standardDefaults->setInteger(dismissedBuildKey(), m_availableUpdate->build);
    m_availableUpdate.reset();
    Q_EMIT availableUpdateChanged();
}

// NOLINTNEXTLINE(readability-make-member-function-const): it acts, if not on the store
void CompanionStore::openUpdateDownload(const UpdateInfo &update)
{
    requireMainThread();
    if (isOpenableDownload(update.downloadURL))
        m_.platform.workspace->openURL(update.downloadURL);
}
