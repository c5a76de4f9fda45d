import QtQuick
import Nestlet.Companion

/// Saturation from left to right and brightness from bottom to top, in one field and one stop of the
/// Tab key. It is not mirrored: it is a picture.
Item {
    id: root

    required property ColorComponents components
    property bool isBrightnessCurrent: false

    function focusCurrent(reason: int) {
        (root.isBrightnessCurrent ? brightness : saturation).forceActiveFocus(reason);
    }
    function step(right: real, up: real) {
        (right === 0 ? brightness : saturation).forceActiveFocus(Qt.TabFocusReason);
        root.isBrightnessCurrent = right === 0;
        root.components.setSaturationAndBrightness(root.components.saturation + right, root.components.brightness + up);
    }
    function pick(x: real, y: real) {
        root.components.setSaturationAndBrightness(x / root.width * 100, (1 - y / root.height) * 100);
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.buttonRadius
        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop {
                position: 0
                color: "#FFFFFF"
            }
            GradientStop {
                position: 1
                color: root.components.hueColor
            }
        }
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.buttonRadius
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Qt.rgba(0, 0, 0, 0)
            }
            GradientStop {
                position: 1
                color: Qt.rgba(0, 0, 0, 1)
            }
        }
    }

    ColorSlider {
        id: saturation
        focus: true
        anchors.fill: parent
        name: qsTr("Saturation")
        shown: root.components.saturation
        activeFocusOnTab: !root.isBrightnessCurrent
        onWanted: value => root.components.saturation = value
        onStepped: (right, up) => root.step(right, up)
    }

    ColorSlider {
        id: brightness
        anchors.fill: parent
        name: qsTr("Brightness")
        shown: root.components.brightness
        activeFocusOnTab: root.isBrightnessCurrent
        onWanted: value => root.components.brightness = value
        onStepped: (right, up) => root.step(right, up)
    }

    ColorKnob {
        x: root.components.saturation / 100 * root.width - width / 2
        y: (1 - root.components.brightness / 100) * root.height - height / 2
        color: root.components.hex
        hasFocus: saturation.visualFocus || brightness.visualFocus
    }

    MouseArea {
        objectName: "saturationField"
        anchors.fill: parent
        preventStealing: true
        onPressed: mouse => {
            root.focusCurrent(Qt.MouseFocusReason);
            root.pick(mouse.x, mouse.y);
        }
        onPositionChanged: mouse => root.pick(mouse.x, mouse.y)
    }
}
