#pragma once

#include "ui/dropshadow.h"
#include "ui/icongrid.h"
#include "ui/pictureloader.h"

class Workspace;

/// The icons of bundles, folders and files, for the items that show them: they ask for requests
/// here and give them to the loader.
class IconProvider final : public QObject {
    Q_OBJECT

public:
    explicit IconProvider(const Workspace &workspace, QObject *parent = nullptr);

    [[nodiscard]] PictureLoader &loader() { return m_loader; }
    /// The icon of the file with that URL, `side` device pixels wide.
    [[nodiscard]] PictureRequest iconRequest(const QString &url, int side) const;
    /// The same with a shadow around it, in a larger picture.
    [[nodiscard]] PictureRequest shadowedIconRequest(const QString &url, int side,
                                                     const DropShadow &shadow);
    /// A mini grid of icons as one picture.
    [[nodiscard]] PictureRequest gridRequest(const IconGrid &grid);

    /// Forgets all pictures: the files may have other icons now. What is in view is made anew and
    /// stays until that is done.
    void refresh();

Q_SIGNALS:
    void refreshed();

private:
    [[nodiscard]] QImage icon(const QString &url, int side) const;
    [[nodiscard]] QImage gridPicture(const IconGrid &grid);

    const Workspace &m_workspace;
    PictureLoader m_loader; ///< last: its threads use the rest
};
