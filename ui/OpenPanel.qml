import QtQuick
import Nestlet.Companion

/// A panel for choosing one picture, for where the system has none. A window of its own, beside which
/// the others stay usable.
Window {
    id: root

    required property SystemPanels panels
    required property string folderID
    readonly property ImageBrowserModel browser: ImageBrowserModel {
        panels: root.panels
        onOpened: {
            problem.text = "";
            list.selectFirst();
        }
        onPictureFound: url => root.choose(url)
        onRefused: why => problem.text = why
    }
    signal chosen(url: string, folderID: string)

    function choose(url: string) {
        root.browser.rememberDirectory();
        root.chosen(url, root.folderID);
        root.close();
    }

    title: qsTr("Choose Icon Image")
    flags: Qt.Dialog
    width: 720
    height: 460
    minimumWidth: 560
    minimumHeight: 320
    color: Theme.content
    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft // qmllint disable unqualified
    LayoutMirroring.childrenInherit: true
    Component.onCompleted: list.forceActiveFocus(Qt.PopupFocusReason)

    Shortcut {
        sequence: "Escape"
        onActivated: root.close()
    }
    Shortcut {
        sequences: ["Ctrl+Shift+G"]
        onActivated: pathField.forceActiveFocus(Qt.ShortcutFocusReason)
    }
    Shortcut {
        sequences: ["Ctrl+Up"]
        onActivated: root.browser.openParent()
    }

    OpenPanelPlaces {
        id: places
        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        width: 160
        browser: root.browser
        onOpened: url => root.browser.open(url)
    }

    Item {
        id: toolbar
        anchors.left: places.right
        anchors.right: parent.right
        anchors.top: parent.top
        height: 44

        SymbolButton {
            id: parentButton
            anchors.left: parent.left
            anchors.leftMargin: Theme.rowInset
            anchors.verticalCenter: parent.verticalCenter
            symbol: "chevron.up"
            symbolSize: 14
            text: qsTr("Enclosing Folder")
            enabled: root.browser.hasParent
            onClicked: root.browser.openParent()
        }

        OpenPanelPathField {
            id: pathField
            anchors.left: parentButton.right
            anchors.leftMargin: Theme.rowInset
            anchors.right: parent.right
            anchors.rightMargin: Theme.cardInset
            anchors.verticalCenter: parent.verticalCenter
            path: root.browser.directoryPath
            onEntered: path => root.browser.openPath(path)
        }
    }

    Divider {
        anchors.left: places.right
        anchors.right: parent.right
        anchors.top: toolbar.bottom
    }

    OpenPanelList {
        id: list
        anchors.left: places.right
        anchors.right: preview.left
        anchors.top: toolbar.bottom
        anchors.topMargin: 1
        anchors.bottom: footer.top
        browser: root.browser
        onOpened: url => root.browser.open(url)
    }

    OpenPanelPreview {
        id: preview
        anchors.right: parent.right
        anchors.top: toolbar.bottom
        anchors.topMargin: 1
        anchors.bottom: footer.top
        width: visible ? 180 : 0
        visible: list.isPictureSelected
        url: list.isPictureSelected ? list.selectedURL : ""
        name: list.selectedName
    }

    Item {
        id: footer
        anchors.left: places.right
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 52

        Divider {
            anchors.left: parent.left
            anchors.right: parent.right
        }

        CompanionText {
            id: problem
            anchors.left: parent.left
            anchors.leftMargin: Theme.cardInset
            anchors.right: spinner.left
            anchors.rightMargin: Theme.rowInset
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.redInk
            font: Theme.subheadline
            Accessible.role: Accessible.AlertMessage
            Accessible.name: problem.text
            Accessible.ignored: problem.text === ""
        }

        ProgressSpinner {
            id: spinner
            anchors.right: buttons.left
            anchors.rightMargin: Theme.rowInset
            anchors.verticalCenter: parent.verticalCenter
            visible: root.browser.isLoading && !patience.running
        }

        Timer {
            id: patience // most folders are read before anyone waits
            interval: 300
            running: root.browser.isLoading
        }

        Row {
            id: buttons
            anchors.right: parent.right
            anchors.rightMargin: Theme.cardInset
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.rowInset

            PushButton {
                text: qsTr("Cancel")
                width: Math.max(76, implicitWidth)
                onClicked: root.close()
            }
            PushButton {
                text: qsTr("Open")
                width: Math.max(76, implicitWidth)
                isDefault: true
                enabled: list.selectedURL !== ""
                onClicked: root.browser.open(list.selectedURL)
            }
        }
    }
}
