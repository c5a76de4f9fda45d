import QtQuick

/// How sheets and alerts go.
Transition {
    NumberAnimation {
        property: "opacity"
        to: 0
        duration: Theme.changeDuration
        easing.type: Easing.OutCubic
    }
}
