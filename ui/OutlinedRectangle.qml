import QtQuick

/// A rectangle with an outline of 1.5, in whole pixels of the screen: a part of one would not be as
/// wide on all four sides.
Rectangle {
    border.pixelAligned: false // which would mean whole units of the window
    border.width: Math.round(1.5 * Screen.devicePixelRatio) / Screen.devicePixelRatio
}
