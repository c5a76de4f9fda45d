import QtQuick
import QtQuick.Controls.Basic

/// A menu in the look of the window.
Menu {
    id: root

    padding: 5

    background: Rectangle {
        implicitWidth: 200
        radius: 8
        color: Theme.isDark ? "#323234" : "#FAFAFA"
        border.width: 1
        border.color: Theme.separator
    }
    delegate: CompanionMenuItem {}
}
