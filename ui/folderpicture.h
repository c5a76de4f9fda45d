#pragma once

#include "ui/loadedpicture.h"

/// The picture that a folder was given, filling the item. Unlike an Image, it shows what is
/// remembered at once, and says nothing about damaged pictures but `isBroken`.
class FolderPicture : public LoadedPicture {
    Q_OBJECT
    QML_ELEMENT
    /// As a PictureStore gives it; empty: none.
    Q_PROPERTY(QString source MEMBER m_source NOTIFY sourceChanged)
    /// Of the corners, in window units.
    Q_PROPERTY(qreal radius MEMBER m_radius NOTIFY radiusChanged)

public:
    explicit FolderPicture(QQuickItem *parent = nullptr);

Q_SIGNALS:
    void sourceChanged();
    void radiusChanged();

protected:
    [[nodiscard]] PictureRequest request(IconProvider &icons, const QSize &area) const override;
    [[nodiscard]] QImage placeholder(const QImage &previous, const QSize &area) const override;

private:
    QString m_source;
    qreal m_radius = 0;
};
