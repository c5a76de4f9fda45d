import QtQuick.Controls.Basic

ApplicationWindow {
    title: "Minimal"
    width: 1060
    height: 800
    visible: true

    Button {
        anchors.centerIn: parent
        text: "A button"
    }
}
