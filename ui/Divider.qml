import QtQuick

/// A line between two parts: one pixel of the screen wide, whatever its resolution.
Rectangle {
    implicitWidth: 1 / Screen.devicePixelRatio
    implicitHeight: 1 / Screen.devicePixelRatio
    color: Theme.separator
}
