#pragma once

#include <QList>

#include <algorithm>
#include <set>

/// Takes the elements at `sources` out, in their order, and puts them before the element that stood
/// at `destination` in the list as it was; the list's size means its end. Offsets outside are
/// ignored, a destination outside is clamped.
template <typename T>
[[nodiscard]] QList<T> movedByOffsets(const QList<T> &list, const std::set<qsizetype> &sources,
                                      qsizetype destination)
{
    destination = std::clamp<qsizetype>(destination, 0, list.size());
    QList<T> before;
    QList<T> moved;
    QList<T> after;
    for (qsizetype i = 0; i < list.size(); ++i) {
        QList<T> &part = sources.contains(i) ? moved : (i < destination ? before : after);
        part.append(list.at(i));
    }
    return before + moved + after;
}
