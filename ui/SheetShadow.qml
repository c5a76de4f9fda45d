import QtQuick

/// The shadow of the sheet that this fills, 30 wide. It is a picture in nine parts (a black rectangle
/// of radius 12 at 25 %, blurred by 10): an effect would be worked out anew for every frame.
BorderImage {
    readonly property int reach: 30
    readonly property int drop: 6

    anchors.fill: parent
    anchors.margins: -reach
    anchors.topMargin: drop - reach
    anchors.bottomMargin: -drop - reach
    source: "images/sheetshadow.png"
    border.left: 2 * reach
    border.top: 2 * reach
    border.right: 2 * reach
    border.bottom: 2 * reach
    Accessible.ignored: true
}
