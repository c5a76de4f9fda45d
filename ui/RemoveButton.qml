import QtQuick
import Nestlet.Companion

/// The small button in a cell's corner. It is shown to the pointer only while it is wanted there, and
/// always to assistive programs.
Item {
    id: root

    required property bool isShown
    required property string text
    readonly property bool isHovered: root.isShown && hover.hovered
    signal clicked

    width: 24
    height: 24
    Accessible.role: Accessible.Button
    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()

    HelpTag.text: root.text
    HelpTag.isShown: root.isHovered && !tap.pressed

    HoverHandler {
        id: hover
    }

    Loader {
        anchors.centerIn: parent
        active: root.isShown

        sourceComponent: Item {
            Repeater { // the shadow, which gets fainter outwards
                model: 3

                Rectangle {
                    required property int index

                    anchors.centerIn: parent
                    anchors.verticalCenterOffset: 1
                    width: 16 + 2 * index
                    height: width
                    radius: width / 2
                    color: Theme.faded(Theme.shadow, Theme.shadow.a / 3)
                }
            }

            Symbol {
                anchors.centerIn: parent
                name: "xmark.circle.fill"
                size: 16
                weight: Font.Medium
                color: Theme.onIcon
                secondaryColor: Theme.badge
                opacity: tap.pressed ? 0.7 : 1
            }
        }
    }

    TapHandler {
        id: tap
        enabled: root.isShown
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.clicked()
    }
}
