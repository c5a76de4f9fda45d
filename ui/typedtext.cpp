#include "ui/typedtext.h"

#include <QList>

#include <algorithm>

bool TypedText::isTyped(const QString &text, int modifiers)
{
    constexpr int commanding = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !text.isEmpty() && (modifiers & commanding) == 0
        && std::ranges::all_of(text.toUcs4(),
                               [](uint character) { return QChar::isPrint(character); });
}
