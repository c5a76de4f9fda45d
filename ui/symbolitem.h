#pragma once

#include "platform/symbolimages.h"

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

/// One of the system's symbols by its name, in the middle of the item. A name that the system does
/// not know shows a question mark in a square, an empty one nothing.
class SymbolItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(qreal size READ pointSize WRITE setPointSize NOTIFY pointSizeChanged)
    Q_PROPERTY(int weight READ weight WRITE setWeight NOTIFY weightChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(QColor secondaryColor READ secondaryColor WRITE setSecondaryColor NOTIFY
                   secondaryColorChanged)

public:
    explicit SymbolItem(QQuickItem *parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString &name);
    [[nodiscard]] qreal pointSize() const { return m_look.pointSize; }
    void setPointSize(qreal pointSize);
    [[nodiscard]] int weight() const { return m_look.weight; }
    void setWeight(int weight);
    [[nodiscard]] QColor color() const { return m_look.color; }
    void setColor(const QColor &color);
    [[nodiscard]] QColor secondaryColor() const { return m_look.secondaryColor; }
    void setSecondaryColor(const QColor &color);

Q_SIGNALS:
    void nameChanged();
    void pointSizeChanged();
    void weightChanged();
    void colorChanged();
    void secondaryColorChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;

private:
    [[nodiscard]] QSize imageSize() const;

    QString m_name;
    SymbolLook m_look;
    QImage m_image;
    bool m_isImageNew = false;
};
