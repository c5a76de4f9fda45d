import QtQuick
import QtQuick.Templates as T
import Nestlet.Companion

/// A button that shows only a symbol; `text` is its tooltip and its name.
PlainButton {
    id: root

    property string symbol
    property real symbolSize: 16
    property int symbolWeight: Font.Normal
    property bool isMenuShown: false

    implicitWidth: 28
    implicitHeight: 28
    padding: 0
    display: T.AbstractButton.IconOnly
    hoverEnabled: true
    HelpTag.text: root.text
    HelpTag.isShown: (root.hovered || root.visualFocus) && !root.down && !root.isMenuShown

    contentItem: Item { // qmllint disable deferred-property-id
        opacity: root.enabled ? 1 : 0.4

        Symbol {
            anchors.centerIn: parent
            name: root.symbol
            size: root.symbolSize
            weight: root.symbolWeight
            color: Theme.secondary
        }
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: root.down || root.isMenuShown ? Theme.faded(Theme.primary, 0.12)
                                             : root.hovered ? Theme.faded(Theme.primary, 0.06) : "transparent"

        FocusRing {
            visible: root.showsFocus
        }
    }
}
