import QtQuick

/// Offers a newer version.
BannerStrip {
    id: root

    required property string version
    signal downloadRequested
    signal dismissed

    symbol: "arrow.down.circle.fill"
    tint: Theme.blue
    tintOpacity: 0.08
    title: qsTr("Nestlet Companion %1 available").arg(root.version)
    text: qsTr("Download the latest version to get new features and bug fixes.")

    PushButton {
        anchors.verticalCenter: parent.verticalCenter
        text: qsTr("Download")
        isDefault: true
        onClicked: root.downloadRequested()
    }

    SymbolButton {
        anchors.verticalCenter: parent.verticalCenter
        symbol: "xmark"
        symbolSize: 11
        symbolWeight: Font.Medium
        text: qsTr("Dismiss")
        onClicked: root.dismissed()
    }
}
