import QtQuick
import QtQuick.Controls.Basic

/// Makes the menu of a button when it is wanted first, and shows it under the button.
Loader {
    id: root

    required property Item button
    readonly property bool isShown: root.menu !== null && root.menu.visible
    readonly property Menu menu: root.item as Menu

    function open() {
        root.active = true;
        root.menu.popup(root.button, root.button.width - root.menu.width, root.button.height + 4);
    }

    active: false
}
