import QtQuick
import QtQuick.Controls.Basic

/// A menu in the look of the window.
Menu {
    id: root

    padding: 5

    background: Item { // qmllint disable deferred-property-id
        implicitWidth: 210

        SheetShadow {}

        Rectangle {
            anchors.fill: parent
            radius: Theme.menuRadius
            color: Theme.menu
            border.width: 1
            border.color: Theme.menuBorder
        }
    }
    // All of a menu fits: it needs nothing that tells where one is in it.
    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        interactive: false
        currentIndex: root.currentIndex
    }
    delegate: CompanionMenuItem {}
}
