import QtQuick

/// The name of a folder, to be edited in place. While it is not edited, what has no room is cut off at
/// its end, as it is everywhere else.
CompanionTextField {
    id: root

    readonly property bool isCutOff: !root.activeFocus && root.contentWidth > root.width - root.leftPadding - root.rightPadding
    signal editingEnded
    signal editingCancelled

    // A click is to meet the letter that is seen.
    function showBeginning() {
        if (root.isCutOff)
            root.cursorPosition = 0;
    }

    width: 180
    height: implicitHeight
    placeholderText: qsTr("Folder name")
    font: Theme.titleSemibold
    color: root.isCutOff ? "transparent" : Theme.primary
    placeholderTextColor: Theme.tertiary
    leftPadding: 10
    rightPadding: 10
    topPadding: 5
    bottomPadding: 5
    Accessible.name: qsTr("Folder name")
    onIsCutOffChanged: root.showBeginning()
    onTextChanged: root.showBeginning()
    onActiveFocusChanged: {
        if (!root.activeFocus)
            root.editingEnded();
    }
    Keys.onEscapePressed: root.editingCancelled()

    ElidedText {
        anchors.fill: parent
        anchors.leftMargin: root.leftPadding
        anchors.rightMargin: root.rightPadding
        visible: root.isCutOff
        text: root.text
        font: root.font
        verticalAlignment: Text.AlignVCenter
    }
}
