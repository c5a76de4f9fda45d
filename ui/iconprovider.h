#pragma once

#include "ui/dropshadow.h"
#include "ui/icongrid.h"
#include "ui/pictureloader.h"

#include <QQuickAsyncImageProvider>

class QQmlEngine;
class Workspace;

/// "image://icon/" and the percent-encoded text of a file URL: the icon of a bundle, folder or
/// file. And the way to icons for items of the window's own, which show what is remembered at once:
/// they ask for requests here and give them to the loader.
class IconProvider final : public QQuickAsyncImageProvider {
    Q_OBJECT

public:
    static QString name() { return QStringLiteral("icon"); }
    /// The one of an engine; null when it has none.
    [[nodiscard]] static IconProvider *of(QQmlEngine *engine);

    explicit IconProvider(const Workspace &workspace);

    QQuickImageResponse *requestImageResponse(const QString &id,
                                              const QSize &requestedSize) override;

    [[nodiscard]] PictureLoader &loader() { return m_loader; }
    /// The icon of the file with that URL, `side` device pixels wide.
    [[nodiscard]] PictureRequest iconRequest(const QString &url, int side) const;
    /// The same with a shadow around it, in a larger picture.
    [[nodiscard]] PictureRequest shadowedIconRequest(const QString &url, int side,
                                                     const DropShadow &shadow);
    /// A mini grid of icons as one picture.
    [[nodiscard]] PictureRequest gridRequest(const IconGrid &grid);

private:
    [[nodiscard]] QImage icon(const QString &url, int side) const;
    [[nodiscard]] QImage gridPicture(const IconGrid &grid);

    const Workspace &m_workspace;
    PictureLoader m_loader; ///< last: its threads use the rest
};
