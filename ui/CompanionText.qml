import QtQuick

/// A line of text as the window shows it, or lines where it wraps. It is part of a control that has a
/// name: one that stands for itself sets its role and `Accessible.ignored: false`.
Text {
    textFormat: Text.PlainText
    font: Theme.body
    color: Theme.primary
    elide: Text.ElideRight
    maximumLineCount: wrapMode === Text.NoWrap ? 1 : 2147483647 // names can have line breaks
    horizontalAlignment: Text.AlignLeft // the window's leading edge, whatever the text's script
    Accessible.ignored: true
}
