import QtQuick
import QtQuick.Templates as T

/// A scroll bar over the content: there while it is used, and never in the way of the layout.
T.ScrollBar {
    id: root

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    minimumSize: 0.06
    padding: 3
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: root.hovered || root.pressed ? 9 : 7
        radius: width / 2
        color: Theme.scrollBar
        opacity: root.size < 1 && (root.active || root.hovered) ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.changeDuration
                easing.type: Easing.OutQuad
            }
        }
    }
}
