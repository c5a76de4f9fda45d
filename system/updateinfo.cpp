#include "system/updateinfo.h"

#include "platform/fileurl.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <charconv>

namespace {

constexpr const char *feedAddress
    = "https://updates.nestlet.example/nestlet-companion-appcast.json";

std::optional<qint64> integerFrom(const QJsonValue &value)
{
    // The default comes back for anything but a whole number in range, so two defaults tell it
    // apart.
    const qint64 number = value.toInteger(0);
    return number == value.toInteger(1) ? std::optional(number) : std::nullopt;
}

std::optional<QString> stringFrom(const QJsonValue &value)
{
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QUrl> urlFrom(const QJsonValue &value)
{
    const QString text = value.toString();
    if (!isURLText(text.toUtf8()))
        return std::nullopt;
    const QUrl url(text, QUrl::StrictMode);
    return url.isValid() ? std::optional(url) : std::nullopt;
}

QUrl makeUpdateFeedURL()
{
    QUrl url(QString::fromLatin1(feedAddress), QUrl::StrictMode);
    if (!url.isValid() || url.scheme() != u"https")
        qFatal("The update feed's address is malformed: %s", feedAddress);
    return url;
}

} // namespace

std::optional<UpdateInfo> decodeUpdateInfo(QByteArrayView feed)
{
    const QJsonDocument document = QJsonDocument::fromJson(feed.toByteArray());
    const auto build = integerFrom(document[u"build"]);
    const auto version = stringFrom(document[u"version"]);
    const auto downloadURL = urlFrom(document[u"url"]);
    if (!build || !version || !downloadURL)
        return std::nullopt;
    return UpdateInfo{.build = *build, .version = *version, .downloadURL = *downloadURL};
}

qint64 buildNumberFromVersion(const QString &version)
{
    QByteArray digits = version.toUtf8();
    if (digits.startsWith('+') && !digits.startsWith("+-"))
        digits.remove(0, 1); // from_chars knows only the minus
    qint64 number = 0;
    const auto [end, error] = std::from_chars(digits.cbegin(), digits.cend(), number);
    return error == std::errc() && end == digits.cend() ? number : 0;
}

const QUrl &updateFeedURL()
{
    static const QUrl url = makeUpdateFeedURL();
    return url;
}

bool isOpenableDownload(const QUrl &url)
{
    return url.scheme() == u"https" || url.scheme() == u"http";
}
