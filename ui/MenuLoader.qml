import QtQuick
import QtQuick.Templates as T

/// Makes the menu of a button when it is wanted first, and shows it under the button.
FileLoader {
    id: root

    required property Item button
    /// The menu's.
    required property string menuFile
    readonly property T.Menu menu: root.item as T.Menu
    readonly property bool isShown: root.menu !== null && root.menu.visible

    // Where the button and the menu both end.
    function open() {
        root.file = root.menuFile;
        const isMirrored = root.button.LayoutMirroring.enabled;
        root.menu.popup(root.button, isMirrored ? 0 : root.button.width - root.menu.width, root.button.height + 4);
    }

    file: ""
}
