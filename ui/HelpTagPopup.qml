import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// The help tag of whatever item it is given as its parent.
T.ToolTip {
    id: root

    readonly property int mostWidth: 320

    x: root.parent ? Math.round((root.parent.width - root.width) / 2) : 0
    y: root.parent ? root.parent.height + 3 : 0
    implicitWidth: Math.min(contentWidth, root.mostWidth) + root.leftPadding + root.rightPadding
    implicitHeight: contentHeight + root.topPadding + root.bottomPadding
    delay: Theme.toolTipDelay
    margins: 6
    padding: 6
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
                 | T.Popup.CloseOnReleaseOutsideParent

    contentItem: CompanionText {
        text: root.text
        font: Theme.subheadline
        wrapMode: Text.Wrap
        maximumLineCount: 8
    }

    background: Rectangle {
        radius: 4
        color: Theme.menu
        border.width: 1
        border.color: Theme.menuBorder
    }
}
