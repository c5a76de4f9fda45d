pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// The directories and pictures of an open panel's directory.
Item {
    id: root

    required property ImageBrowserModel browser
    property string selectedURL
    readonly property string selectedName: list.currentItem ? (list.currentItem as OpenPanelRow).text : ""
    property bool isPictureSelected: false
    signal opened(url: string)

    function select(row: int) {
        list.currentIndex = row;
        root.selectedURL = root.browser.urlAt(row);
        root.isPictureSelected = root.browser.isPictureAt(row);
    }
    /// So many rows on, as far as there are any.
    function selectFrom(step: int) {
        root.select(Math.min(Math.max(list.currentIndex + step, 0), list.count - 1));
    }
    function selectFirst() {
        root.select(list.count > 0 ? 0 : -1);
    }

    onActiveFocusChanged: {
        if (root.activeFocus)
            list.forceActiveFocus(Qt.OtherFocusReason);
    }

    TypeAhead {
        id: typeAhead
        onSearched: (text, row) => {
            const found = root.browser.rowStartingWith(text, row);
            if (found >= 0)
                root.select(found);
        }
    }

    CompanionText {
        anchors.centerIn: parent
        text: qsTr("No pictures here")
        font: Theme.callout
        color: Theme.secondary
        visible: list.count === 0 && !root.browser.isLoading
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: !visible
    }

    ListView {
        id: list

        readonly property int rowsPerPage: Math.max(1, Math.floor(list.height / 24) - 1)

        objectName: "fileList"
        anchors.fill: parent
        anchors.margins: Theme.rowInset
        clip: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.browser
        T.ScrollBar.vertical: CompanionScrollBar {}
        Accessible.role: Accessible.List
        Accessible.name: qsTr("Files")
        Keys.onUpPressed: root.selectFrom(-1)
        Keys.onDownPressed: root.selectFrom(1)
        Keys.onReturnPressed: root.opened(root.selectedURL)
        Keys.onEnterPressed: root.opened(root.selectedURL)
        Keys.onPressed: event => {
            event.accepted = true;
            if (event.key === Qt.Key_Home)
                root.selectFirst();
            else if (event.key === Qt.Key_End)
                root.select(list.count - 1);
            else if (event.key === Qt.Key_PageUp)
                root.selectFrom(-list.rowsPerPage);
            else if (event.key === Qt.Key_PageDown)
                root.selectFrom(list.rowsPerPage);
            else
                event.accepted = typeAhead.take(event, list.currentIndex);
        }

        WheelScrolling {
            target: list
        }

        delegate: OpenPanelRow {
            required property int index
            required property string url
            required property string name
            required property bool isDirectory

            width: ListView.view.width
            iconURL: url
            text: name
            isSelected: ListView.isCurrentItem
            isEmphasized: list.activeFocus
            Accessible.description: isDirectory ? qsTr("Folder") : qsTr("Picture")
            onPressed: {
                list.forceActiveFocus(Qt.MouseFocusReason);
                root.select(index);
            }
            onActivated: root.opened(url)
        }
    }
}
