import QtQuick
import QtQuick.Templates as T

/// A menu in the look of the window, as wide as its widest entry.
T.Menu {
    id: root

    readonly property real widestEntry: {
        let width = 0;
        for (let i = 0; i < root.count; ++i)
            width = Math.max(width, root.itemAt(i).implicitWidth);
        return width;
    }

    // With Up, a menu that has just been opened begins at its end. The template's own keys do not.
    function highlightLast() {
        for (let i = root.count - 1; i >= 0; --i) {
            const item = root.itemAt(i);
            if (item.enabled && item instanceof T.MenuItem) {
                root.currentIndex = i;
                return;
            }
        }
    }

    implicitWidth: implicitBackgroundWidth
    implicitHeight: contentHeight + topPadding + bottomPadding
    overlap: 1
    padding: 5
    margins: Theme.rowInset // from the window's edges

    background: Item { // qmllint disable deferred-property-id
        implicitWidth: Math.max(210, Math.ceil(root.widestEntry) + 2 * root.padding)

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

    Shortcut {
        sequence: "Up"
        enabled: root.opened && root.currentIndex < 0
        onActivated: root.highlightLast()
    }
}
