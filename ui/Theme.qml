pragma Singleton

import QtQuick

/// Every colour, size and duration of the window, as named roles. Follows the system's light or dark
/// appearance.
QtObject {
    id: root

    readonly property SystemPalette palette: SystemPalette {}
    readonly property bool isDark: root.palette.window.hslLightness < 0.5

    readonly property color accent: root.isDark ? "#0A84FF" : "#007AFF"
    readonly property color blue: root.isDark ? "#0A84FF" : "#007AFF"
    readonly property color green: root.isDark ? "#30D158" : "#34C759"
    readonly property color red: root.isDark ? "#FF453A" : "#FF3B30"
    readonly property color primary: root.isDark ? Qt.rgba(1, 1, 1, 0.85) : Qt.rgba(0, 0, 0, 0.85)
    readonly property color secondary: root.isDark ? Qt.rgba(1, 1, 1, 0.55) : Qt.rgba(0, 0, 0, 0.5)
    readonly property color tertiary: root.isDark ? Qt.rgba(1, 1, 1, 0.25) : Qt.rgba(0, 0, 0, 0.26)
    readonly property color quaternary: root.isDark ? Qt.rgba(1, 1, 1, 0.1) : Qt.rgba(0, 0, 0, 0.1)
    readonly property color separator: root.isDark ? Qt.rgba(1, 1, 1, 0.1) : Qt.rgba(0, 0, 0, 0.1)
    readonly property color window: root.isDark ? "#1E1E1E" : "#ECECEC"
    readonly property color content: root.isDark ? "#282828" : "#FFFFFF"
    readonly property color sidebar: root.isDark ? "#232325" : "#F2F2F4"
    readonly property color control: root.isDark ? Qt.rgba(1, 1, 1, 0.14) : "#FFFFFF"
    readonly property color accentText: "#FFFFFF"
    readonly property color dimming: root.isDark ? Qt.rgba(0, 0, 0, 0.45) : Qt.rgba(0, 0, 0, 0.2)

    readonly property string fontFamily: "Inter"
    readonly property int titleSize: 22
    readonly property int bodySize: 13
    readonly property int calloutSize: 12
    readonly property int subheadlineSize: 11
    readonly property int captionSize: 10

    readonly property int headerHeight: 52
    readonly property int sidebarWidth: 220
    readonly property int rowHeight: 52
    readonly property int contentInset: 32
    readonly property int sectionSpacing: 28
    readonly property int cardRadius: 12
    readonly property int buttonRadius: 6

    readonly property int hoverDuration: 120
    readonly property int changeDuration: 200
    readonly property int toolTipDelay: 600

    /// A colour with its opacity replaced.
    function faded(base: color, opacity: real): color {
        return Qt.rgba(base.r, base.g, base.b, opacity);
    }
}
