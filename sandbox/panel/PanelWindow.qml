pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Sandbox.Panel
import Sandbox.Scene

/// The panel of one folder: a rounded sheet above the Dock with the folder's items in a grid.
Window {
    id: root

    required property Panel panel
    required property Appearance appearance

    readonly property int margin: 20
    readonly property int cellWidth: 104
    readonly property int cellHeight: 112
    readonly property int headerHeight: 44
    readonly property int dockHeight: 96
    readonly property int rows: Math.max(1, Math.ceil(root.panel.items.count / root.panel.columns))
    readonly property int visibleRows: Math.min(root.rows, 5)
    readonly property color ink: root.appearance.isDark ? "#d9ffffff" : "#d9000000"
    readonly property color ground: root.appearance.isDark ? "#2a2a2e" : "#f4f4f7"

    title: root.panel.name
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    color: root.appearance.canBlend ? "transparent" : root.ground
    width: Math.max(2, root.panel.columns) * root.cellWidth + 2 * root.margin
    height: root.headerHeight + root.visibleRows * root.cellHeight + root.margin + 10
    x: {
        const wanted = root.panel.anchor > 0 ? root.panel.anchor - root.width / 2 : (Screen.width - root.width) / 2;
        return Screen.virtualX + Math.round(Math.max(8, Math.min(wanted, Screen.width - root.width - 8)));
    }
    y: Screen.virtualY + Screen.height - root.dockHeight - root.height - 12
    visible: root.panel.visible
    onWidthChanged: root.appearance.roundCorners(root, sheet.radius)
    onHeightChanged: root.appearance.roundCorners(root, sheet.radius)
    onVisibleChanged: {
        if (root.visible) {
            root.appearance.roundCorners(root, sheet.radius);
            root.raise();
            root.requestActivate();
        }
    }

    Rectangle {
        id: sheet

        anchors.fill: parent
        radius: 16
        color: Qt.rgba(root.ground.r, root.ground.g, root.ground.b, root.appearance.canBlend ? 0.86 : 1)
        border.color: root.appearance.isDark ? "#30ffffff" : "#26000000"
        focus: true
        Keys.onEscapePressed: root.panel.visible = false
        Accessible.role: Accessible.Pane
        Accessible.name: root.panel.name

        Rectangle {
            id: tint

            anchors.fill: parent
            anchors.margins: 1
            radius: sheet.radius - 1
            gradient: Gradient {
                GradientStop {
                    position: 0
                    color: Qt.rgba(root.panel.accent.r, root.panel.accent.g, root.panel.accent.b, root.appearance.isDark ? 0.34 : 0.22)
                }
                GradientStop {
                    position: 0.7
                    color: Qt.rgba(root.panel.accent.r, root.panel.accent.g, root.panel.accent.b, 0.04)
                }
            }
        }

        Rectangle {
            id: mark

            x: root.margin
            anchors.verticalCenter: title.verticalCenter
            width: 12
            height: 12
            radius: 4
            color: root.panel.accent
        }

        Text {
            id: title

            anchors.left: mark.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            anchors.rightMargin: root.margin
            y: 16
            text: root.panel.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: root.ink
            font.family: root.appearance.fontFamily
            font.pixelSize: 15
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
            Accessible.name: title.text
        }

        Text {
            anchors.centerIn: grid
            width: grid.width - 2 * root.margin
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            visible: root.panel.hint !== ""
            text: root.panel.hint
            color: root.ink
            opacity: 0.6
            font.family: root.appearance.fontFamily
            font.pixelSize: 13
        }

        GridView {
            id: grid

            anchors.fill: parent
            anchors.topMargin: root.headerHeight
            anchors.leftMargin: root.margin
            anchors.rightMargin: root.margin
            anchors.bottomMargin: root.margin
            clip: root.rows > root.visibleRows
            interactive: root.rows > root.visibleRows
            cellWidth: Math.floor(grid.width / root.panel.columns)
            cellHeight: root.cellHeight
            model: root.panel.items
            Accessible.role: Accessible.List
            Accessible.name: root.panel.name
            delegate: PanelItem {
                width: grid.cellWidth
                height: grid.cellHeight
                ink: root.ink
                fontFamily: root.appearance.fontFamily
                onActivated: path => root.panel.open(path)
            }
        }
    }
}
