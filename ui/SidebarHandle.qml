import QtQuick

/// The edge between two columns, by which the first one is made wider and narrower.
Item {
    id: root

    required property Item sidebar
    readonly property int leastWidth: 180
    readonly property int mostWidth: 400
    property real widthAtStart

    width: 7

    HoverHandler {
        cursorShape: Qt.SplitHCursor
    }

    DragHandler {
        target: null
        yAxis.enabled: false
        dragThreshold: 0
        onActiveChanged: root.widthAtStart = root.sidebar.width
        onTranslationChanged: {
            const distance = root.LayoutMirroring.enabled ? -translation.x : translation.x;
            root.sidebar.width = Math.max(root.leastWidth, Math.min(root.mostWidth, root.widthAtStart + distance));
        }
    }
}
