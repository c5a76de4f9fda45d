import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// Makes the window's own colour panel when it is first asked for.
FileLoader {
    id: root

    required property string hex
    required property Item swatch
    readonly property T.Popup panel: root.item as T.Popup // no ColorPanel: naming it would read it
    signal changed(hex: string)

    function show() {
        root.swatch.forceActiveFocus(Qt.OtherFocusReason); // to which the focus comes back
        root.file = "ColorPanel.qml";
        root.panel.open();
    }
    function close() {
        if (root.panel)
            root.panel.close();
    }
    /// It would point at nothing.
    function closeUnlessIn(viewport: Item) {
        if (!root.panel || !root.panel.visible) // nearly always, while something scrolls
            return;
        const top = root.swatch.mapToItem(viewport, 0, 0).y;
        if (top < 0 || top + root.swatch.height > viewport.height)
            root.close();
    }

    file: ""
    properties: ({
            "parent": root.swatch,
            "hex": root.hex
        })
    onMade: panel => panel.changed.connect(root.changed)
}
