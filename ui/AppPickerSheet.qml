import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// The sheet in which installed applications are searched and chosen. It opens when it is made, and
/// whoever made it drops it when it is closed: the next one starts anew.
T.Dialog {
    id: root

    /// Where the applications come from.
    required property ApplicationScan scan
    /// Texts of the URLs that are in the folder already.
    property list<string> existingURLs
    readonly property real spareHeight: root.parent ? root.parent.height - Theme.headerHeight : 0
    readonly property string status: pickerModel.isLoading ? qsTr("Loading apps…")
                                                      : pickerModel.hasNoMatches ? root.noResults
                                                                            : qsTr("%Ln app(s)", "", pickerModel.count)
    readonly property string noResults: qsTr("No Results for “%1”").arg(pickerModel.searchText)
    /// Texts of the chosen URLs, in the order in which the sheet lists them.
    signal addRequested(urls: var)

    function confirm() {
        if (pickerModel.selectedCount === 0 || !root.opened) // a second Return, while it closes
            return;
        const chosen = pickerModel.chosenURLs();
        root.close();
        root.addRequested(chosen);
    }
    function cancel() {
        if (search.activeFocus && pickerModel.searchText !== "")
            search.clear();
        else
            root.close();
    }

    parent: T.Overlay.overlay
    objectName: "appPickerSheet"
    title: qsTr("Choose Apps")
    x: root.parent ? Math.round((root.parent.width - root.width) / 2) : 0
    y: Theme.headerHeight + Math.max(0, Math.round((root.spareHeight - root.height) / 2))
    width: 640
    height: Math.max(420, Math.min(600, root.spareHeight - 2 * Theme.contentInset))
    padding: 0
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose // Escape clears the search first
    Component.onCompleted: root.open()

    AppPickerModel {
        id: pickerModel
        scan: root.scan
        existingURLs: root.existingURLs
        searchText: search.text
    }

    enter: SheetEnter {}
    exit: SheetExit {}

    T.Overlay.modal: SheetDimming {}

    background: Rectangle {
        radius: Theme.sheetRadius
        color: Theme.sheet

        SheetShadow {
            z: -1
        }
    }

    contentItem: FocusScope { // qmllint disable deferred-property-id
        focus: true
        LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft // qmllint disable type
        LayoutMirroring.childrenInherit: true
        Keys.onPressed: event => {
            if (event.matches(StandardKey.Cancel))
                root.cancel();
            else if (event.matches(StandardKey.Find))
                search.begin();
            else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                root.confirm();
            else
                return;
            event.accepted = true;
        }

        CompanionText {
            anchors.left: parent.left
            anchors.right: cancelButton.left
            anchors.leftMargin: 20
            anchors.rightMargin: 12
            anchors.verticalCenter: cancelButton.verticalCenter
            text: root.title
            font: Theme.headline
            Accessible.ignored: false
            Accessible.role: Accessible.Heading
            Accessible.name: root.title
        }

        PushButton {
            id: cancelButton
            anchors.right: addButton.left
            anchors.rightMargin: 8
            anchors.verticalCenter: addButton.verticalCenter
            text: qsTr("Cancel")
            onClicked: root.close()
        }

        PushButton {
            id: addButton
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.rightMargin: 20
            anchors.topMargin: 14
            width: Math.max(implicitWidth, 72)
            text: pickerModel.selectedCount === 0 ? qsTr("Add")
                                             : qsTr("Add %1").arg(pickerModel.selectedCount.toLocaleString(Qt.locale(), "f", 0))
            isDefault: true
            enabled: pickerModel.selectedCount > 0
            onClicked: root.confirm()
        }

        AppPickerSearchField {
            id: search
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: addButton.bottom
            anchors.leftMargin: 20
            anchors.rightMargin: 20
            anchors.topMargin: 12
            focus: true
            status: root.status
            onExited: {
                if (pickerModel.count > 0)
                    grid.forceActiveFocus(Qt.TabFocusReason);
            }
        }

        Divider {
            id: divider
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: search.bottom
            anchors.topMargin: 14
        }

        Item {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: divider.bottom
            anchors.bottom: parent.bottom

            AppPickerGrid {
                id: grid
                anchors.fill: parent
                picker: pickerModel
                onTyped: text => search.append(text)
                onExited: search.begin()
            }

            AppPickerLoading {
                anchors.centerIn: parent
                visible: pickerModel.isLoading
                text: root.status
            }

            CompanionPlaceholder {
                anchors.fill: parent
                visible: pickerModel.hasNoMatches
                symbol: "magnifyingglass"
                title: root.noResults
                description: qsTr("Check the spelling or try a new search.")
            }
        }
    }
}
