import QtQuick
import Nestlet.Companion

/// One line of an open panel's lists: an icon or a symbol, and a name.
Item {
    id: root

    required property string text
    property string symbol
    property color symbolColor: Theme.secondary
    property string iconURL
    property bool isSelected: false
    property bool isEmphasized: false
    property bool hasRing: false
    readonly property color ink: root.isSelected && root.isEmphasized ? Theme.accentText : Theme.primary
    signal pressed
    signal activated

    height: 24
    Accessible.role: Accessible.ListItem
    Accessible.name: root.text
    Accessible.selectable: true
    Accessible.selected: root.isSelected
    Accessible.onPressAction: root.activated()
    HelpTag.text: root.text
    HelpTag.isShown: mouse.containsMouse && label.truncated

    Rectangle {
        anchors.fill: parent
        radius: Theme.buttonRadius
        visible: root.isSelected
        color: root.isEmphasized ? Theme.accentFill : Theme.faded(Theme.primary, 0.1)

        FocusRing {
            visible: root.hasRing
        }
    }

    FocusRing {
        visible: root.hasRing && !root.isSelected
    }

    Symbol {
        anchors.left: parent.left
        anchors.leftMargin: Theme.rowInset
        width: 16
        height: parent.height
        name: root.symbol
        size: 13
        color: root.symbolColor
    }

    FileIcon {
        anchors.left: parent.left
        anchors.leftMargin: Theme.rowInset
        anchors.verticalCenter: parent.verticalCenter
        size: 16
        visible: root.iconURL !== ""
        url: root.iconURL
    }

    CompanionText {
        id: label
        anchors.left: parent.left
        anchors.leftMargin: Theme.rowInset + 16 + 6
        anchors.right: parent.right
        anchors.rightMargin: Theme.rowInset
        height: parent.height
        text: root.text
        color: root.ink
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideMiddle
    }

    MouseArea {
        id: mouse
        anchors.fill: parent
        hoverEnabled: true
        onPressed: root.pressed()
        onDoubleClicked: root.activated()
    }
}
