import QtQuick
import QtQuick.Controls.Basic
import Nestlet.Companion

/// A line of text that says all of it in a tooltip where it has not enough room.
CompanionText {
    id: root

    ToolTip.text: root.text
    ToolTip.visible: hover.hovered && root.truncated
    ToolTip.delay: Theme.toolTipDelay

    HoverHandler {
        id: hover
    }
}
