#pragma once

#include <QAccessible>
#include <QPointer>
#include <QQuickItem>

/// Keeps the delegates of a view in the order of their `index` among its children, while a screen
/// reader or the like is there. It reads children one after the other, and a view leaves them in
/// the order in which it made them, whatever was moved or scrolled since. What has an index of its
/// own lies beside the others, not over them, so that the order is not seen.
class VisualOrder : public QQuickItem, private QAccessible::ActivationObserver {
    Q_OBJECT
    QML_ELEMENT
    /// The parent of the delegates.
    Q_PROPERTY(QQuickItem *container READ container WRITE setContainer NOTIFY containerChanged)

public:
    explicit VisualOrder(QQuickItem *parent = nullptr);
    ~VisualOrder() override;

    [[nodiscard]] QQuickItem *container() const { return m_container; }
    void setContainer(QQuickItem *container);

Q_SIGNALS:
    void containerChanged();

protected:
    void updatePolish() override;

private Q_SLOTS:
    void orderLater() { polish(); } ///< once per frame, and only in one that has changes

private:
    void accessibilityActiveChanged(bool isActive) override;
    void observeDelegates();

    QPointer<QQuickItem> m_container;
};
