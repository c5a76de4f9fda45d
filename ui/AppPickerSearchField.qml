import QtQuick
import Nestlet.Companion

/// The search field of the picker. It tells assistive programs, which follow the focus, what is found.
FocusScope {
    id: root

    property alias text: field.text
    property string status
    signal exited

    function clear() {
        field.clear();
    }
    function begin() {
        field.forceActiveFocus(Qt.ShortcutFocusReason);
        field.selectAll();
    }
    /// Goes on with what was typed elsewhere.
    function append(text: string) {
        field.forceActiveFocus(Qt.OtherFocusReason);
        field.cursorPosition = field.length;
        field.insert(field.length, text);
    }

    implicitHeight: 32

    Rectangle {
        anchors.fill: parent
        radius: Theme.containerRadius
        color: Theme.faded(Theme.quaternary, 0.55)

        FocusRing {
            controlRadius: Theme.containerRadius
            visible: field.activeFocus
        }
    }

    Symbol {
        id: glass
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        name: "magnifyingglass"
        size: 13
        color: Theme.secondary
    }

    CompanionTextField {
        id: field
        objectName: "appSearchField"
        anchors.left: glass.right
        anchors.right: clearButton.left
        anchors.leftMargin: 8
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        focus: true
        height: implicitHeight
        leftPadding: 0
        rightPadding: 0
        placeholderText: qsTr("Search")
        background: null
        Accessible.name: qsTr("Search")
        Accessible.description: root.status
        Accessible.searchEdit: true
        Keys.onDownPressed: root.exited()
    }

    SymbolButton {
        id: clearButton
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 24
        implicitHeight: 24
        visible: field.text !== ""
        symbol: "xmark.circle.fill"
        symbolSize: 14
        text: qsTr("Clear Search")
        onClicked: {
            field.clear();
            field.forceActiveFocus(Qt.OtherFocusReason);
        }
    }
}
