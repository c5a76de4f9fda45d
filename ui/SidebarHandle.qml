import QtQuick
import Nestlet.Companion

/// The edge between two columns, by which the first one is made wider and narrower, by the pointer and
/// by the arrow keys. To assistive programs it is a slider: the role of a splitter has no value.
Item {
    id: root

    required property Item sidebar
    readonly property int leastWidth: 180
    readonly property int mostWidth: 400
    readonly property int step: 10
    property real widthAtStart
    /// What assistive programs ask a slider for, and write.
    property real value: root.sidebar.width
    readonly property real minimumValue: root.leastWidth
    readonly property real maximumValue: root.mostWidth
    readonly property real stepSize: root.step

    function setWidth(width: real) {
        root.sidebar.width = Math.max(root.leastWidth, Math.min(root.mostWidth, width));
    }
    function moveBy(distance: real) {
        root.setWidth(root.sidebar.width + (root.LayoutMirroring.enabled ? -distance : distance));
    }

    width: 7
    activeFocusOnTab: true
    Accessible.role: Accessible.Slider
    Accessible.name: qsTr("Sidebar Width")
    Accessible.focusable: true
    Accessible.focused: root.activeFocus
    Accessible.onIncreaseAction: root.setWidth(root.sidebar.width + root.step)
    Accessible.onDecreaseAction: root.setWidth(root.sidebar.width - root.step)
    onValueChanged: {
        if (root.value === root.sidebar.width)
            return;
        root.setWidth(root.value);
        root.value = Qt.binding(() => root.sidebar.width);
    }
    Keys.onLeftPressed: root.moveBy(-root.step)
    Keys.onRightPressed: root.moveBy(root.step)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            root.setWidth(event.key === Qt.Key_Home ? root.leastWidth : root.mostWidth);
    }

    Rectangle {
        anchors.centerIn: parent
        width: 3
        height: parent.height
        visible: root.activeFocus && InputModality.isKeyboard
        color: Theme.faded(Theme.accent, 0.5)
    }

    HoverHandler {
        cursorShape: Qt.SplitHCursor
    }

    DragHandler {
        target: null
        yAxis.enabled: false
        dragThreshold: 0
        onActiveChanged: root.widthAtStart = root.sidebar.width
        onTranslationChanged: {
            if (active)
                root.setWidth(root.widthAtStart + (root.LayoutMirroring.enabled ? -translation.x : translation.x));
        }
    }
}
