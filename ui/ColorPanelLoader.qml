import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// Makes the window's own colour panel when it is first asked for; its files are read no sooner.
Loader {
    id: root

    required property string hex
    required property Item swatch
    readonly property T.Popup panel: root.item as T.Popup // no ColorPanel: naming it would read it
    signal changed(hex: string)

    function show() {
        if (!root.active)
            root.setSource("ColorPanel.qml", {
                "parent": root.swatch
            });
        root.swatch.forceActiveFocus(Qt.OtherFocusReason); // to which the focus comes back
        root.active = true;
        root.panel.open();
    }
    function close() {
        if (root.panel)
            root.panel.close();
    }

    active: false

    Binding {
        target: root.panel
        property: "hex"
        value: root.hex
        when: root.panel !== null
    }
    Connections {
        target: root.panel
        ignoreUnknownSignals: true
        function onChanged(hex: string) {
            root.changed(hex);
        }
    }
}
