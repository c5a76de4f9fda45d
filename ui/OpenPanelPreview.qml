import QtQuick

/// The picture that is selected in an open panel, loaded behind the scenes.
Item {
    id: root

    property string url
    property string name

    Divider {
        anchors.left: parent.left
        height: parent.height
    }

    Image {
        id: picture
        anchors.top: parent.top
        anchors.topMargin: Theme.cardInset
        anchors.horizontalCenter: parent.horizontalCenter
        width: parent.width - 2 * Theme.cardInset
        height: width
        source: root.url
        sourceSize.width: 2 * width
        sourceSize.height: 2 * height
        fillMode: Image.PreserveAspectFit
        asynchronous: true
        cache: false
        Accessible.ignored: true
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
