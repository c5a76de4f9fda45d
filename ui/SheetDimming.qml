import QtQuick

/// What lies between the window and a sheet or an alert.
Rectangle {
    color: Theme.dimming

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.sheetDuration
            easing.type: Easing.OutCubic
        }
    }
}
