pragma ComponentBehavior: Bound

import QtQuick
import Nestlet.Companion

/// The user's own directories, as the sidebar of an open panel.
Rectangle {
    id: root

    required property ImageBrowserModel browser
    signal opened(url: string)

    color: Theme.sidebar

    CompanionText {
        id: title
        x: Theme.cardInset
        y: 14
        width: parent.width - 2 * x
        text: qsTr("Favorites")
        font: Theme.subheadlineSemibold
        color: Theme.tertiaryText
    }

    ListView {
        id: list
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: title.bottom
        anchors.topMargin: 6
        anchors.bottom: parent.bottom
        anchors.leftMargin: Theme.selectionInset
        anchors.rightMargin: Theme.selectionInset
        activeFocusOnTab: true
        keyNavigationEnabled: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.browser.placeCount
        Accessible.role: Accessible.List
        Accessible.name: title.text
        Keys.onReturnPressed: root.opened(root.browser.placeURL(list.currentIndex))
        Keys.onEnterPressed: root.opened(root.browser.placeURL(list.currentIndex))
        Keys.onSpacePressed: root.opened(root.browser.placeURL(list.currentIndex))

        WheelScrolling {
            target: list
        }

        delegate: OpenPanelRow {
            required property int index

            width: ListView.view.width
            height: 28
            symbol: root.browser.placeSymbol(index)
            symbolColor: Theme.accent
            text: root.browser.placeName(index)
            isSelected: root.browser.directoryURL === root.browser.placeURL(index)
            isEmphasized: false
            hasRing: ListView.isCurrentItem && list.activeFocus && InputModality.isKeyboard
            onPressed: {
                list.currentIndex = index;
                root.opened(root.browser.placeURL(index));
            }
            onActivated: root.opened(root.browser.placeURL(index))
        }
    }

    Divider {
        anchors.right: parent.right
        height: parent.height
    }
}
