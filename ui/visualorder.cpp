#include "ui/visualorder.h"

#include <QMetaMethod>

#include <algorithm>
#include <vector>

namespace {

struct Delegate {
    int index{};
    QQuickItem *item{};
};

std::vector<Delegate> delegatesOf(const QQuickItem &container)
{
    std::vector<Delegate> delegates;
    for (QQuickItem *child : container.childItems()) {
        if (const QVariant index = child->property("index"); index.isValid())
            delegates.push_back({.index = index.toInt(), .item = child});
    }
    return delegates;
}

} // namespace

VisualOrder::VisualOrder(QQuickItem *parent)
    : QQuickItem(parent)
{
    QAccessible::installActivationObserver(this);
}

VisualOrder::~VisualOrder()
{
    QAccessible::removeActivationObserver(this);
}

void VisualOrder::setContainer(QQuickItem *container)
{
    if (m_container == container)
        return;
    if (m_container)
        accessibilityActiveChanged(false);
    m_container = container;
    accessibilityActiveChanged(QAccessible::isActive());
    Q_EMIT containerChanged();
}

void VisualOrder::accessibilityActiveChanged(bool isActive)
{
    if (!m_container)
        return;
    if (isActive) {
        connect(m_container, &QQuickItem::childrenChanged, this, &VisualOrder::observeDelegates,
                Qt::UniqueConnection);
        observeDelegates();
        return;
    }
    disconnect(m_container, nullptr, this, nullptr);
    for (const QQuickItem *child : m_container->childItems())
        disconnect(child, nullptr, this, nullptr);
}

void VisualOrder::observeDelegates()
{
    static const QMetaMethod orderLater
        = metaObject()->method(metaObject()->indexOfSlot("orderLater()"));
    for (const QQuickItem *child : m_container->childItems()) {
        const int signal = child->metaObject()->indexOfSignal("indexChanged()");
        if (signal >= 0)
            connect(child, child->metaObject()->method(signal), this, orderLater,
                    Qt::UniqueConnection);
    }
    polish();
}

void VisualOrder::updatePolish()
{
    if (!m_container)
        return;
    std::vector<Delegate> delegates = delegatesOf(*m_container);
    if (std::ranges::is_sorted(delegates, {}, &Delegate::index))
        return;
    std::ranges::stable_sort(delegates, {}, &Delegate::index);
    for (size_t place = 1; place < delegates.size(); ++place)
        delegates[place].item->stackAfter(delegates[place - 1].item);
}
