import QtQuick
import Nestlet.Companion

/// All hues, from red round to red. It is not mirrored: it is a picture.
Item {
    id: root

    required property ColorComponents components

    function pick(x: real) {
        root.components.hue = x / root.width * 360;
    }

    implicitHeight: 14

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop { position: 0; color: "#FF0000" }
            GradientStop { position: 1 / 6; color: "#FFFF00" }
            GradientStop { position: 2 / 6; color: "#00FF00" }
            GradientStop { position: 3 / 6; color: "#00FFFF" }
            GradientStop { position: 4 / 6; color: "#0000FF" }
            GradientStop { position: 5 / 6; color: "#FF00FF" }
            GradientStop { position: 1; color: "#FF0000" }
        }
    }

    ColorSlider {
        id: slider
        anchors.fill: parent
        name: qsTr("Hue")
        shown: root.components.hue
        maximumValue: 360
        activeFocusOnTab: true
        onWanted: value => root.components.hue = value
        onStepped: (right, up) => root.components.hue += right + up
    }

    ColorKnob {
        x: root.components.hue / 360 * root.width - width / 2
        anchors.verticalCenter: parent.verticalCenter
        color: root.components.hueColor
        hasFocus: slider.visualFocus
    }

    MouseArea {
        anchors.fill: parent
        preventStealing: true
        onPressed: mouse => {
            slider.forceActiveFocus(Qt.MouseFocusReason);
            root.pick(mouse.x);
        }
        onPositionChanged: mouse => root.pick(mouse.x)
    }
}
