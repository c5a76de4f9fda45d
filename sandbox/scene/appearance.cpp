#include "sandbox/scene/appearance.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QWindow>

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace {

template <typename Reply> using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

bool hasCompositingManager(xcb_connection_t *connection)
{
    const QByteArray name = QByteArrayLiteral("_NET_WM_CM_S0");
    const Owned<xcb_intern_atom_reply_t> atom(
        xcb_intern_atom_reply(
            connection,
            xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData()),
            nullptr),
        std::free);
    if (!atom)
        return false;
    const Owned<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom),
                                      nullptr),
        std::free);
    return owner && owner->owner != XCB_NONE;
}

} // namespace

bool Appearance::isDark() const
{
    const QString wanted = qEnvironmentVariable("NESTLET_STANDIN_APPEARANCE");
    if (!wanted.isEmpty())
        return wanted == u"dark";
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

bool Appearance::canBlend() const
{
    if (QGuiApplication::platformName() != u"xcb")
        return true;
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 && hasCompositingManager(x11->connection());
}

QString Appearance::fontFamily() const
{
    const QString wanted = QStringLiteral("Inter");
    return QFontDatabase::hasFamily(wanted) ? wanted : QGuiApplication::font().family();
}

void Appearance::roundCorners(QWindow *window, int radius) const
{
    if (canBlend() || !window)
        return;
    QPainterPath shape;
    shape.addRoundedRect(QRectF(QPointF(0, 0), QSizeF(window->size())), radius, radius);
    window->setMask(QRegion(shape.toFillPolygon().toPolygon()));
}
