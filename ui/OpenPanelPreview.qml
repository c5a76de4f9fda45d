import QtQuick

/// The picture that is selected in an open panel.
Item {
    id: root

    property string url
    property string name

    Divider {
        anchors.left: parent.left
        height: parent.height
    }

    FileIcon {
        id: picture
        anchors.top: parent.top
        anchors.topMargin: Theme.cardInset
        anchors.horizontalCenter: parent.horizontalCenter
        size: parent.width - 2 * Theme.cardInset
        visible: root.url !== ""
        url: root.url
    }

    CompanionText {
        anchors.top: picture.bottom
        anchors.topMargin: Theme.rowInset
        x: Theme.rowInset
        width: parent.width - 2 * x
        text: root.name
        font: Theme.subheadlineMedium
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignHCenter
    }
}
