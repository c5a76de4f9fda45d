#include "tests/i18n/textfaults.h"

#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

namespace {

constexpr qreal tolerance = 1.0; // texts are placed on whole pixels, and are not as wide

struct ShownText {
    const QQuickItem *item = nullptr;
    QString words{};
    QRectF ink{}; ///< in the window
    const QQuickItem *layer = nullptr; ///< the popup it is in, or the window's own content
};

bool isSeen(const QQuickItem *item)
{
    for (; item; item = item->parentItem()) {
        if (!item->isVisible() || qFuzzyIsNull(item->opacity()))
            return false;
    }
    return true;
}

// Popups lie side by side in the overlay.
const QQuickItem *layerOf(const QQuickItem *item)
{
    while (item->parentItem() && !item->parentItem()->inherits("QQuickOverlay"))
        item = item->parentItem();
    return item;
}

qreal leftOfInk(const QQuickItem *text, qreal inkWidth)
{
    const qreal spare = text->width() - inkWidth;
    switch (text->property("effectiveHorizontalAlignment").toInt()) {
    case Qt::AlignHCenter:
        return spare / 2;
    case Qt::AlignRight:
        return spare;
    default:
        return 0;
    }
}

// Not a text's bounding rectangle, which is its ink's.
QRectF placeOf(const QQuickItem *item)
{
    return item->mapRectToScene({0, 0, item->width(), item->height()});
}

QRectF inkOf(const QQuickItem *text)
{
    const qreal width = text->property("contentWidth").toReal();
    const qreal height = text->property("contentHeight").toReal();
    return text->mapRectToScene({leftOfInk(text, width), 0, width, height});
}

void collect(const QQuickItem *item, QList<ShownText> &texts)
{
    if (item->inherits("QQuickText") && isSeen(item)) {
        const QString words = item->property("text").toString();
        if (!words.isEmpty())
            texts.append({item, words, inkOf(item), layerOf(item)});
    }
    for (const QQuickItem *child : item->childItems())
        collect(child, texts);
}

// What is out of a scrolled view's sight, or partly so, is as it should be.
bool isScrolledAway(const ShownText &text)
{
    for (const QQuickItem *item = text.item->parentItem(); item; item = item->parentItem()) {
        if (item->inherits("QQuickFlickable") && !placeOf(item).contains(text.ink))
            return true;
    }
    return false;
}

bool hasWords(const QString &text)
{
    return std::ranges::any_of(text, [](QChar character) { return character.isLetter(); });
}

QString faultOf(const ShownText &text, const QRectF &bounds, bool isName)
{
    const auto isWithin = [&](const QRectF &place) {
        return place.adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(text.ink);
    };
    if (isName)
        return isWithin(bounds) ? QString() : QStringLiteral("is out of the window");
    if (hasWords(text.words) && !text.words.startsWith(u'['))
        return QStringLiteral("is in no catalogue");
    if (text.item->property("truncated").toBool())
        return QStringLiteral("is cut off");
    if (!isWithin(placeOf(text.item)))
        return QStringLiteral("is larger than its place");
    if (!isWithin(bounds))
        return QStringLiteral("is out of the window");
    for (const QQuickItem *item = text.item->parentItem(); item; item = item->parentItem()) {
        if ((item->inherits("QQuickControl") || item->clip()) && !isWithin(placeOf(item)))
            return QStringLiteral("is wider or higher than what it is in");
    }
    return {};
}

bool areOverOneAnother(const ShownText &text, const ShownText &other)
{
    return text.layer == other.layer
        && text.ink.adjusted(tolerance, tolerance, -tolerance, -tolerance).intersects(other.ink);
}

} // namespace

QStringList textFaults(const QQuickWindow &window, const QStringList &names)
{
    const QRectF bounds(0, 0, window.width(), window.height());
    QList<ShownText> texts;
    collect(window.contentItem(), texts);
    texts.removeIf(isScrolledAway);
    QStringList faults;
    if (texts.isEmpty())
        faults.append(QStringLiteral("there are no texts"));
    for (qsizetype i = 0; i < texts.size(); ++i) {
        const ShownText &text = texts.at(i);
        if (const QString fault = faultOf(text, bounds, names.contains(text.words));
            !fault.isEmpty())
            faults.append(QStringLiteral("“%1” %2").arg(text.words, fault));
        for (qsizetype j = i + 1; j < texts.size(); ++j) {
            if (areOverOneAnother(text, texts.at(j)))
                faults.append(
                    QStringLiteral("“%1” is over “%2”").arg(text.words, texts.at(j).words));
        }
    }
    return faults;
}
