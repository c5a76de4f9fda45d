pragma Singleton

import QtQuick
import Nestlet.Companion

/// Every colour, font, size and duration of the window, as named roles. Follows the system's light or
/// dark appearance.
QtObject {
    id: root

    readonly property bool isDark: SystemAppearance.isDark
    readonly property bool reducesMotion: SystemAppearance.reducesMotion

    // Colours

    readonly property color accent: SystemAppearance.accent
    readonly property color blue: root.isDark ? "#0A84FF" : "#007AFF"
    readonly property color green: root.isDark ? "#30D158" : "#34C759"
    readonly property color orange: root.isDark ? "#FF9F0A" : "#FF9500"
    readonly property color red: root.isDark ? "#FF453A" : "#FF3B30"

    readonly property color primary: root.isDark ? Qt.rgba(1, 1, 1, 0.85) : Qt.rgba(0, 0, 0, 0.85)
    readonly property color secondary: root.isDark ? Qt.rgba(1, 1, 1, 0.55) : Qt.rgba(0, 0, 0, 0.56)
    /// For symbols and placeholders: too faint for a text that tells something.
    readonly property color tertiary: root.isDark ? Qt.rgba(1, 1, 1, 0.25) : Qt.rgba(0, 0, 0, 0.26)
    /// The faintest that a text can be and still be read by everybody.
    readonly property color tertiaryText: root.isDark ? Qt.rgba(1, 1, 1, 0.5) : Qt.rgba(0, 0, 0, 0.55)
    readonly property color quaternary: root.isDark ? Qt.rgba(1, 1, 1, 0.1) : Qt.rgba(0, 0, 0, 0.1)
    readonly property color separator: root.isDark ? Qt.rgba(1, 1, 1, 0.1) : Qt.rgba(0, 0, 0, 0.1)

    readonly property color content: root.isDark ? "#282828" : "#FFFFFF"
    readonly property color sidebar: root.isDark ? "#232325" : "#F2F2F4"
    readonly property color sheet: root.isDark ? "#2E2E30" : "#F6F6F6"
    readonly property color menu: root.isDark ? "#333336" : "#FAFAFA"
    readonly property color menuBorder: root.isDark ? Qt.rgba(1, 1, 1, 0.16) : Qt.rgba(0, 0, 0, 0.14)
    readonly property color control: root.isDark ? Qt.rgba(1, 1, 1, 0.14) : "#FFFFFF"
    readonly property color controlBorder: root.isDark ? Qt.rgba(1, 1, 1, 0.06) : Qt.rgba(0, 0, 0, 0.16)
    readonly property color field: root.faded(root.secondary, 0.1)
    readonly property color dimming: root.isDark ? Qt.rgba(0, 0, 0, 0.45) : Qt.rgba(0, 0, 0, 0.2)
    readonly property color scrollBar: root.isDark ? Qt.rgba(1, 1, 1, 0.35) : Qt.rgba(0, 0, 0, 0.35)
    readonly property color shadow: Qt.rgba(0, 0, 0, 0.25)

    /// The ground of a selected row whose list has not got the focus.
    readonly property color selectedRow: root.faded(root.primary, 0.1)
    /// The ground of a button whose text is red: a lighter one would leave no red in it.
    readonly property color destructiveControl: root.isDark ? Qt.rgba(1, 1, 1, 0.06) : root.control
    /// What the pointer adds to a button's ground.
    readonly property color hovered: root.faded(root.primary, 0.04)

    /// On `accentFill` and `redFill`.
    readonly property color accentText: "#FFFFFF"
    /// The accent as a ground of white text.
    readonly property color accentFill: Contrast.readable(root.accent, root.accentText)
    readonly property color redFill: Contrast.readable(root.red, root.accentText)
    /// The colours of texts that are not grey: readable on the grounds that they are used on.
    readonly property color accentInk: Contrast.readable(root.accent, Contrast.over(root.selectedRow, root.sidebar))
    readonly property color blueInk: Contrast.readable(root.blue, Contrast.over(root.selectedRow, root.sidebar))
    readonly property color redInk: Contrast.readable(Contrast.readable(root.red, root.sheet), root.menu)
    readonly property color destructiveInk: {
        const ground = Contrast.over(root.destructiveControl, root.sheet);
        return Contrast.readable(Contrast.readable(root.redInk, ground), Contrast.over(root.hovered, ground));
    }

    /// On the ground of a folder's icon, whatever its colour.
    readonly property color onIcon: "#FFFFFF"
    readonly property color badge: "#8E8E93"

    // Fonts

    readonly property string fontFamily: SystemAppearance.fontFamily
    readonly property int titleSize: 22
    readonly property int bodySize: 13
    readonly property int calloutSize: 12
    readonly property int subheadlineSize: 11
    readonly property int captionSize: 10

    readonly property font title: root.typeface(root.titleSize, Font.Normal)
    readonly property font titleSemibold: root.typeface(root.titleSize, Font.DemiBold)
    readonly property font windowTitle: root.typeface(15, Font.Bold)
    readonly property font headline: root.typeface(root.bodySize, Font.Bold)
    readonly property font body: root.typeface(root.bodySize, Font.Normal)
    readonly property font bodyMedium: root.typeface(root.bodySize, Font.Medium)
    readonly property font callout: root.typeface(root.calloutSize, Font.Normal)
    readonly property font subheadline: root.typeface(root.subheadlineSize, Font.Normal)
    readonly property font subheadlineMedium: root.typeface(root.subheadlineSize, Font.Medium)
    readonly property font subheadlineSemibold: root.typeface(root.subheadlineSize, Font.DemiBold)
    readonly property font caption: root.typeface(root.captionSize, Font.Normal)
    readonly property font captionMedium: root.typeface(root.captionSize, Font.Medium)

    // Space and shape

    readonly property int contentInset: 32
    readonly property int contentBottomInset: 48
    readonly property int sectionSpacing: 28
    readonly property int cardInset: 16
    readonly property int rowInset: 8
    readonly property int headerHeight: 52
    readonly property int sidebarWidth: 220
    readonly property int rowHeight: 52
    readonly property int selectionInset: 10
    readonly property int cardRadius: 12
    readonly property int sheetRadius: 12
    readonly property int contentRadius: 10
    readonly property int cellRadius: 10
    readonly property int containerRadius: 8
    readonly property int menuRadius: 8
    readonly property int swatchRadius: 7
    readonly property int buttonRadius: 6

    // Motion, in milliseconds

    readonly property int hoverDuration: root.reducesMotion ? 0 : 120
    readonly property int changeDuration: root.reducesMotion ? 0 : 200
    readonly property int sheetDuration: root.reducesMotion ? 0 : 250
    readonly property int toolTipDelay: 600

    /// A colour at a share of its own opacity.
    function faded(base: color, opacity: real): color {
        return Qt.rgba(base.r, base.g, base.b, base.a * opacity);
    }

    /// A grey between black (0) and white (1).
    function grey(level: real): color {
        return Qt.rgba(level, level, level, 1);
    }

    function typeface(pixelSize: int, weight: int): font {
        return Qt.font({
            family: root.fontFamily,
            pixelSize: pixelSize,
            weight: weight
        });
    }
}
