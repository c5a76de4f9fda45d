import QtQuick
import QtQuick.Window
import Sandbox.Scene

/// The name of the tile under the pointer, in a window of its own above the Dock.
Window {
    id: root

    required property Appearance appearance

    function showFor(tile: var, anchor: int, top: int) {
        if (!tile) {
            root.visible = false;
            return;
        }
        label.text = tile.name;
        root.x = anchor - root.width / 2;
        root.y = top - root.height - 6;
        root.visible = true;
    }

    flags: Qt.ToolTip | Qt.FramelessWindowHint | Qt.WindowTransparentForInput | Qt.X11BypassWindowManagerHint
    color: root.appearance.canBlend ? "transparent" : sheet.color
    width: Math.min(360, Math.ceil(label.implicitWidth)) + 24
    height: 28
    visible: false
    onWidthChanged: root.appearance.roundCorners(root, sheet.radius)

    Rectangle {
        id: sheet

        anchors.fill: parent
        radius: 8
        color: root.appearance.isDark ? "#48484e" : "#fbfbfd"

        Text {
            id: label

            anchors.fill: parent
            anchors.leftMargin: 12
            anchors.rightMargin: 12
            verticalAlignment: Text.AlignVCenter
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideMiddle
            textFormat: Text.PlainText
            color: root.appearance.isDark ? "#e6ffffff" : "#d9000000"
            font.family: root.appearance.fontFamily
            font.pixelSize: 13
        }
    }
}
