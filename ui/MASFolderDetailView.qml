import QtQuick
import Nestlet.Companion

/// The right column for the folder that Nestlet manages itself: read-only.
DetailPane {
    id: root

    Accessible.name: qsTr("Nestlet")

    DetailHeader {
        id: header
        anchors.left: parent.left
        anchors.right: parent.right
        title: qsTr("Nestlet")
    }

    ScrollArea {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        contentHeight: content.height + Theme.contentInset + Theme.contentBottomInset

        Column {
            id: content
            x: Theme.contentInset
            y: Theme.contentInset
            width: parent.width - 2 * Theme.contentInset
            spacing: Theme.sectionSpacing

            Row {
                anchors.left: parent.left
                spacing: 16

                FileIcon {
                    id: icon
                    url: root.model.nestletURL
                    size: 72
                }

                Column {
                    anchors.verticalCenter: parent.verticalCenter
                    spacing: 4
                    Accessible.role: Accessible.StaticText
                    Accessible.name: qsTr("Dock Name")
                    Accessible.description: qsTr("Nestlet")

                    CompanionText {
                        anchors.left: parent.left
                        text: qsTr("Dock Name")
                        font: Theme.subheadline
                        color: Theme.secondary
                    }

                    CompanionText {
                        anchors.left: parent.left
                        text: qsTr("Nestlet")
                    }
                }
            }

            PushButton {
                anchors.left: parent.left
                text: qsTr("Open Nestlet")
                symbol: "arrow.up.right.square"
                isDefault: true
                isLarge: true
                onClicked: root.model.openNestlet()
            }

            LockedFolderBanner {
                width: parent.width
            }
        }
    }
}
