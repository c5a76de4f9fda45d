import QtQuick
import QtQuick.Controls.Basic

/// The line between two groups of a menu's entries.
MenuSeparator {
    topPadding: 5
    bottomPadding: 5
    leftPadding: 10
    rightPadding: 10

    contentItem: Divider {}
}
