#include "bench/ui/companionwindow.h"

#include "bench/require.h"
#include "bench/ui/settle.h"
#include "platform/appearance.h"
#include "tests/ui/itemtree.h"
#include "ui/systemappearance.h"
#include "ui/windowengine.h"

#include <QGuiApplication>

CompanionWindow::CompanionWindow()
    : m_platform(makePlatform())
    , m_companion(m_platform, EventTurns::Start::OnRelease)
    , m_model((m_companion.store.start(), m_companion.store), m_pictures,
              [] { return QList<FileURL>(); })
{
    addPictureProviders(m_engine, *m_platform.workspace, m_pictures);
    setAppearance(m_engine, *m_platform.appearance);
    m_engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&m_model)}});
    addWindowTypes(m_engine);
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Nestlet/Companion/CompanionView.qml")));
    require(!m_engine.rootObjects().isEmpty(), "there is no window");
    m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
    settle(1000);
}

QQuickItem *CompanionWindow::item(const char *objectName) const
{
    QQuickItem *found = childNamed(m_window->contentItem(), objectName);
    require(found, objectName);
    return found;
}
