#pragma once

#include "ui/loadedpicture.h"

#include <QColor>

/// The drawing of FileIcon: see there.
class FileIconPicture : public LoadedPicture {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString url READ url WRITE setURL NOTIFY urlChanged)
    /// Around the icon, outside the item: black at 15 %, blurred by 4, 2 further down.
    Q_PROPERTY(bool isShadowed MEMBER m_isShadowed NOTIFY isShadowedChanged)
    Q_PROPERTY(QColor placeholderColor MEMBER m_placeholderColor NOTIFY placeholderColorChanged)

public:
    explicit FileIconPicture(QQuickItem *parent = nullptr);

    [[nodiscard]] QString url() const { return m_url; }
    void setURL(const QString &url);

Q_SIGNALS:
    void urlChanged();
    void placeholderColorChanged();
    void isShadowedChanged();

protected:
    [[nodiscard]] PictureRequest request(IconProvider &icons, const QSize &area) const override;
    [[nodiscard]] QImage placeholder(const QImage &previous, const QSize &area) const override;

private:
    QString m_url;
    QColor m_placeholderColor;
    bool m_isShadowed = false;
};
