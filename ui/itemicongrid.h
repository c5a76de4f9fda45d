#pragma once

#include "ui/loadedpicture.h"

#include <QStringList>

struct IconGrid;

/// A mini grid of the icons of a folder's items, drawn as one picture that fills the item. Cell
/// (row, column) holds the icon of the item at row * columns + column; cells past the last item,
/// and all of them until the icons have come, hold faint white squares.
class ItemIconGrid : public LoadedPicture {
    Q_OBJECT
    QML_ELEMENT
    /// Texts of the items' URLs.
    Q_PROPERTY(QStringList urls MEMBER m_urls NOTIFY contentChanged)
    Q_PROPERTY(int rows MEMBER m_rows NOTIFY contentChanged)
    Q_PROPERTY(int columns MEMBER m_columns NOTIFY contentChanged)
    /// Between the cells, in window units.
    Q_PROPERTY(qreal spacing MEMBER m_spacing NOTIFY contentChanged)
    /// Whose items they are. While the grid of the same folder changes, the former one stays in
    /// view; that of another folder does not.
    Q_PROPERTY(QString folderID MEMBER m_folderID NOTIFY contentChanged)

public:
    explicit ItemIconGrid(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void contentChanged();
    /// The grid of the same folder is another one from now on.
    void replaced();

protected:
    [[nodiscard]] PictureRequest request(IconProvider &icons, const QSize &area) const override;
    [[nodiscard]] QImage placeholder(const QImage &previous, const QSize &area) const override;
    void loaded(const QImage &previous, const QImage &picture) override;

private:
    [[nodiscard]] IconGrid grid(const QSize &area) const;

    QStringList m_urls;
    int m_rows = 3;
    int m_columns = 3;
    qreal m_spacing = 2;
    QString m_folderID;
    mutable QString m_shownFolderID; ///< whose grid is in view
    QString m_loadedFolderID; ///< whose grid was last in view with its icons
};
