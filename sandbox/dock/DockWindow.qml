pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Sandbox.Dock
import Sandbox.Scene

/// The Dock: a rounded bar along the bottom of the screen.
Window {
    id: root

    required property Dock dock
    required property Appearance appearance

    readonly property color ink: root.appearance.isDark ? "#e6ffffff" : "#d9000000"
    readonly property color ground: root.appearance.isDark ? "#3a3a40" : "#e9eaef"
    readonly property int bottomGap: 6

    title: "Dock"
    flags: Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.WindowDoesNotAcceptFocus | Qt.X11BypassWindowManagerHint
    color: root.appearance.canBlend ? "transparent" : root.ground
    width: Math.max(80, bar.contentWidth + 16)
    height: 78
    x: Screen.virtualX + Math.round((Screen.width - root.width) / 2)
    y: Screen.virtualY + Screen.height - root.height - root.bottomGap
    visible: true
    onWidthChanged: root.appearance.roundCorners(root, sheet.radius)
    Component.onCompleted: root.appearance.roundCorners(root, sheet.radius)

    Rectangle {
        id: sheet

        anchors.fill: parent
        radius: 20
        color: Qt.rgba(root.ground.r, root.ground.g, root.ground.b, root.appearance.canBlend ? 0.72 : 1)
        border.color: root.appearance.isDark ? "#33ffffff" : "#33000000"
        Accessible.role: Accessible.ToolBar
        Accessible.name: "Dock"

        ListView {
            id: bar

            anchors.fill: parent
            anchors.leftMargin: 8
            anchors.rightMargin: 8
            orientation: ListView.Horizontal
            interactive: false
            model: root.dock.tiles
            delegate: DockTile {
                height: bar.height
                ink: root.ink
                onActivated: (path, anchor) => root.dock.open(path, anchor)
                onMenuRequested: (tile, anchor) => menu.showFor(tile, anchor, root.y)
                onHoveredChanged: (tile, anchor) => tip.showFor(tile, anchor, root.y)
            }
        }
    }

    DockTip {
        id: tip

        appearance: root.appearance
    }

    DockMenu {
        id: menu

        appearance: root.appearance
        onOpenChosen: path => root.dock.open(path, menu.anchor)
        onPinChosen: (path, isPinned) => root.dock.setPinned(path, isPinned)
        onQuitChosen: path => root.dock.quit(path)
    }
}
