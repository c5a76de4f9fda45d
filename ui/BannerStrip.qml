import QtQuick
import Nestlet.Companion

/// A strip over the whole width of the window: a symbol, a title over a text, and controls behind them.
Item {
    id: root

    required property string symbol
    required property color tint
    required property real tintOpacity
    required property string title
    required property string text
    default property alias controls: controls.data

    implicitHeight: texts.height + 20
    Accessible.role: Accessible.Grouping
    Accessible.name: root.title
    Accessible.description: root.text

    Rectangle {
        anchors.fill: parent
        color: Theme.content
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.faded(root.tint, root.tintOpacity)
    }

    Symbol {
        id: sign
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        name: root.symbol
        size: 18
        weight: Font.Medium
        color: root.tint
    }

    Column {
        id: texts
        anchors.left: sign.right
        anchors.leftMargin: 12
        anchors.right: controls.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2
        // Whatever does not fit is told in full.
        HelpTag.text: titleText.truncated ? root.title : root.text
        HelpTag.isShown: hover.hovered && (titleText.truncated || explanation.truncated)

        HoverHandler {
            id: hover
        }

        CompanionText {
            id: titleText
            width: parent.width
            text: root.title
            font: Theme.subheadlineSemibold
        }

        CompanionText {
            id: explanation
            width: parent.width
            text: root.text
            font: Theme.caption
            color: Theme.secondary
        }
    }

    Row {
        id: controls
        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        spacing: 12
    }

    Divider {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
    }
}
