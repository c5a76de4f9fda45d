import QtQuick

/// How sheets and alerts come.
Transition {
    NumberAnimation {
        property: "opacity"
        from: 0
        to: 1
        duration: Theme.sheetDuration
        easing.type: Easing.OutCubic
    }
    NumberAnimation {
        property: "scale"
        from: Theme.reducesMotion ? 1 : 0.96
        to: 1
        duration: Theme.sheetDuration
        easing.type: Easing.OutCubic
    }
}
