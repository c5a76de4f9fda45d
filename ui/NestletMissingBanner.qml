import QtQuick

/// Tells that there is no Nestlet to make Dock apps from.
BannerStrip {
    symbol: "exclamationmark.triangle.fill"
    tint: Theme.orange
    tintOpacity: 0.1
    title: qsTr("Nestlet not found")
    text: qsTr("Install Nestlet first. Companion needs it to generate and launch Dock folders.")
}
