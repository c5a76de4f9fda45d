import QtQuick

/// One item of the panel: its icon over its name.
Item {
    id: root

    required property string name
    required property string path
    required property string icon
    required property color ink
    required property string fontFamily

    signal activated(string path)

    Accessible.role: Accessible.ListItem
    Accessible.name: root.name
    Accessible.onPressAction: root.activated(root.path)

    Rectangle {
        anchors.fill: parent
        anchors.margins: 3
        radius: 10
        color: root.ink
        opacity: tap.pressed ? 0.16 : hover.hovered ? 0.09 : 0
    }

    Image {
        id: picture

        anchors.horizontalCenter: parent.horizontalCenter
        y: 10
        width: 60
        height: 60
        source: root.icon
        sourceSize.width: picture.width
        sourceSize.height: picture.height
        asynchronous: true
        Accessible.ignored: true
    }

    Text {
        anchors.top: picture.bottom
        anchors.topMargin: 5
        x: 6
        width: parent.width - 12
        horizontalAlignment: Text.AlignHCenter
        text: root.name
        textFormat: Text.PlainText
        elide: Text.ElideRight
        wrapMode: Text.Wrap
        maximumLineCount: 2
        lineHeight: 0.95
        color: root.ink
        font.family: root.fontFamily
        font.pixelSize: 12
        Accessible.ignored: true
    }

    HoverHandler {
        id: hover
    }

    TapHandler {
        id: tap

        onTapped: root.activated(root.path)
    }
}
