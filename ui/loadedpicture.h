#pragma once

#include "ui/pictureloader.h"

#include <QImage>
#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

class IconProvider;

/// An item that shows one picture of a PictureLoader, pixel for pixel on the screen it is on: at
/// once when it is remembered, else when it has come. Nothing is asked for while it is hidden.
class LoadedPicture : public QQuickItem, private PictureReceiver {
    Q_OBJECT
    QML_ANONYMOUS
    /// Whether the wanted picture is shown. False also when there is none.
    Q_PROPERTY(bool isLoaded READ isLoaded NOTIFY isLoadedChanged)
    /// Whether the wanted picture turned out to be none.
    Q_PROPERTY(bool isBroken READ isBroken NOTIFY isBrokenChanged)

public:
    explicit LoadedPicture(QQuickItem *parent = nullptr);
    ~LoadedPicture() override;

    [[nodiscard]] bool isLoaded() const { return m_isLoaded; }
    [[nodiscard]] bool isBroken() const { return m_isBroken; }

Q_SIGNALS:
    void isLoadedChanged();
    void isBrokenChanged();

protected:
    /// What is wanted, for an area of so many device pixels. Asked once per frame at most.
    [[nodiscard]] virtual PictureRequest request(IconProvider &icons, const QSize &area) const = 0;
    /// What is shown until it has come, instead of it when it cannot be made, and without a
    /// provider. `previous`: what was shown before.
    [[nodiscard]] virtual QImage placeholder(const QImage &previous, const QSize &area) const = 0;
    /// The wanted picture is shown from now on, after `previous`, which had been wanted before it
    /// or held its place.
    virtual void loaded(const QImage & /*previous*/, const QImage & /*picture*/) { }
    /// To be called when either of them is another now.
    void changed() { polish(); }
    [[nodiscard]] qreal pixelRatio() const;

    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void componentComplete() override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    void receivePicture(const QImage &picture) override;
    void take(const QImage &picture);
    void show(const QImage &picture, bool isLoaded);
    void setBroken(bool isBroken);
    void stopWaiting();

    QPointer<IconProvider> m_icons;
    QString m_key; ///< of what is shown or waited for
    bool m_isWaiting = false;
    bool m_isLoaded = false;
    bool m_isBroken = false;
    bool m_isTextureOld = false;
    QImage m_picture;
};
