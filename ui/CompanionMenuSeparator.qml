import QtQuick
import QtQuick.Templates as T

/// The line between two groups of a menu's entries.
T.MenuSeparator {
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    topPadding: 5
    bottomPadding: 5
    leftPadding: 10
    rightPadding: 10

    contentItem: Divider {}
}
