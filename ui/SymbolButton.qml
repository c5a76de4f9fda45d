import QtQuick
import QtQuick.Controls.Basic

/// A button that shows only a symbol; `text` is its tooltip and its name.
ToolButton {
    id: root

    property string symbol
    property bool isMenuShown: false

    implicitWidth: 28
    implicitHeight: 28
    padding: 0
    display: AbstractButton.IconOnly
    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    ToolTip.text: root.text
    ToolTip.visible: root.hovered && !root.down && !root.isMenuShown
    ToolTip.delay: Theme.toolTipDelay
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    contentItem: Text {
        text: root.symbol
        font.family: Theme.fontFamily
        font.pixelSize: 17
        color: Theme.secondary
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.primary
        opacity: root.down || root.isMenuShown ? 0.12 : root.hovered ? 0.06 : 0

        FocusRing {
            visible: root.visualFocus
        }
    }
}
