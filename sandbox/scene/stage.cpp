#include "sandbox/scene/stage.h"

#include <QGuiApplication>
#include <QQuickWindow>

Stage::Stage()
    : m_icons(*new IconProvider)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); // quick to start, and light
    QGuiApplication::setQuitOnLastWindowClosed(false);
    m_engine.addImportPath(QStringLiteral(":/qt/qml"));
    m_engine.addImageProvider(QStringLiteral("icons"), &m_icons);
}

bool Stage::load(const QString &file, QVariantMap properties)
{
    properties.insert(QStringLiteral("appearance"), QVariant::fromValue(&m_appearance));
    m_engine.setInitialProperties(properties);
    m_engine.load(QUrl(u"qrc:/qt/qml/" + file));
    return !m_engine.rootObjects().isEmpty();
}

int Stage::run()
{
    const int status = QGuiApplication::exec();
    for (QObject *root : m_engine.rootObjects()) // before what it shows goes
        delete root;
    // Their textures wait for an event loop to delete them.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return status;
}
