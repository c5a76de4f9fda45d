pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Sandbox.Scene

/// What can be done with a tile: open it, keep it in the Dock or not, quit its application.
Window {
    id: root

    required property Appearance appearance
    property string path: ""
    property bool isPinned: false
    property bool isRunning: false
    property int anchor: 0
    readonly property var entries: {
        const pin = root.isPinned ? "Remove from Dock" : "Keep in Dock";
        return root.isRunning ? ["Show", pin, "Quit"] : ["Open", pin];
    }

    signal openChosen(string path)
    signal pinChosen(string path, bool isPinned)
    signal quitChosen(string path)

    function showFor(tile: var, where: int, top: int) {
        root.path = tile.path;
        root.isPinned = tile.isPinned;
        root.isRunning = tile.isRunning;
        root.anchor = where;
        root.x = where - root.width / 2;
        root.y = top - root.height - 6;
        root.visible = true;
        root.appearance.roundCorners(root, sheet.radius);
    }

    function choose(index: int) {
        root.visible = false;
        if (index === 0)
            root.openChosen(root.path);
        else if (index === 1)
            root.pinChosen(root.path, !root.isPinned);
        else
            root.quitChosen(root.path);
    }

    flags: Qt.Popup | Qt.FramelessWindowHint
    color: root.appearance.canBlend ? "transparent" : sheet.color
    width: 170
    height: root.entries.length * 26 + 10
    visible: false

    Rectangle {
        id: sheet

        anchors.fill: parent
        radius: 8
        color: root.appearance.isDark ? "#3f3f45" : "#fbfbfd"
        border.color: root.appearance.isDark ? "#33ffffff" : "#22000000"

        Column {
            anchors.fill: parent
            anchors.margins: 5

            Repeater {
                model: root.entries
                delegate: DockMenuEntry {
                    width: 160
                    dark: root.appearance.isDark
                    fontFamily: root.appearance.fontFamily
                    onChosen: index => root.choose(index)
                }
            }
        }
    }
}
