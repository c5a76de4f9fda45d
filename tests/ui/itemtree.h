#pragma once

#include <QAccessible>
#include <QQuickItem>

/// The first item from `root` down of which `matches` holds, hidden ones included; null when there
/// is none.
template <typename Predicate>
[[nodiscard]] QQuickItem *descendant(QQuickItem *root, const Predicate &matches)
{
    if (matches(root))
        return root;
    for (QQuickItem *child : root->childItems()) {
        if (QQuickItem *found = descendant(child, matches))
            return found;
    }
    return nullptr;
}

/// All of them.
template <typename Predicate>
[[nodiscard]] QList<QQuickItem *> descendants(QQuickItem *root, const Predicate &matches)
{
    QList<QQuickItem *> found;
    if (matches(root))
        found.append(root);
    for (QQuickItem *child : root->childItems())
        found.append(descendants(child, matches));
    return found;
}

[[nodiscard]] inline QQuickItem *childNamed(QQuickItem *root, const char *objectName)
{
    return descendant(root, [objectName](const QQuickItem *item) {
        return item->objectName() == QLatin1StringView(objectName);
    });
}

[[nodiscard]] inline QQuickItem *shownText(QQuickItem *root, const QString &text)
{
    return descendant(root, [&](const QQuickItem *item) {
        return item->isVisible() && item->inherits("QQuickText")
            && item->property("text").toString() == text;
    });
}

[[nodiscard]] inline QQuickItem *shownSymbol(QQuickItem *root, const QString &name)
{
    return descendant(root, [&](const QQuickItem *item) {
        return item->isVisible() && item->inherits("SymbolItem")
            && item->property("name").toString() == name;
    });
}

/// The first control with that role and name among those that are in view, as an assistive program
/// finds it.
[[nodiscard]] inline QAccessibleInterface *
accessibleChild(QAccessibleInterface *root, QAccessible::Role role, const QString &name)
{
    const auto *const item = root ? qobject_cast<QQuickItem *>(root->object()) : nullptr;
    if (!root || (item && !item->isVisible()))
        return nullptr;
    if (root->role() == role && root->text(QAccessible::Name) == name)
        return root;
    for (int index = 0; index < root->childCount(); ++index) {
        if (QAccessibleInterface *found = accessibleChild(root->child(index), role, name))
            return found;
    }
    return nullptr;
}
