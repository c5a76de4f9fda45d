import QtQuick
import Nestlet.Companion

/// Shows the program's error until it is dismissed; another one that comes meanwhile takes its place. It
/// keeps its text while it fades away, as the error is gone by then.
AlertPanel {
    id: root

    required property CompanionViewModel model
    readonly property string error: root.model.errorMessage

    function show() {
        if (root.error === "") {
            root.close();
            return;
        }
        root.message = root.error.trim(); // what a tool said ends its line
        root.open();
    }

    objectName: "errorAlert"
    title: qsTr("Companion Error")
    dismissText: qsTr("OK")
    onErrorChanged: root.show()
    onAboutToHide: root.model.clearError()
    Component.onCompleted: root.show()
}
