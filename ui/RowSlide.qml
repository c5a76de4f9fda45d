import QtQuick
import Nestlet.Companion

/// The way of one row to another place. The row is there at once, so that a drag meets no other on its
/// way; what is seen of it, which `shift` moves, slides there.
QtObject {
    id: root

    required property RowRearrangement rearrangement
    required property Item row
    /// What the row shows. None while the row is kept for others.
    required property string rowID
    readonly property point place: Qt.point(root.row.x, root.row.y)
    /// How far from its place something that stands for the row is seen: from there it slides, too.
    property point lead: Qt.point(0, 0)
    /// How much is seen of the row: one that was not there before comes as the others move.
    readonly property real presence: root.isNewcomer ? 1 - root.rearrangement.rest : 1
    /// It slides from there, so that others lie under it.
    readonly property bool isLanding: root.isLed && root.rearrangement.rest > 0
    /// How far from its place the row is seen.
    readonly property point shift: Qt.point(Math.round(root.offset.x * root.rearrangement.rest),
                                            Math.round(root.offset.y * root.rearrangement.rest))
    // How far from its place it began to slide.
    property point offset: Qt.point(0, 0)
    // Where the row was when that began, and as what: nothing when it was not there.
    property point formerPlace
    property string formerID
    property bool isNewcomer: false
    property bool isLed: false

    function follow() {
        const slides = root.rearrangement.isGoingOn && root.formerID === root.rowID;
        root.offset = !slides ? Qt.point(0, 0)
                              : Qt.point(root.offset.x + root.formerPlace.x - root.place.x,
                                         root.offset.y + root.formerPlace.y - root.place.y);
        root.formerPlace = root.place;
    }
    function come() {
        root.isNewcomer = root.rearrangement.isGoingOn && root.rowID !== "" && root.formerID !== root.rowID;
    }

    onPlaceChanged: root.follow()
    onRowIDChanged: {
        if (root.rowID === "")
            root.formerID = "";
        root.come();
    }
    Component.onCompleted: root.come()

    readonly property Connections beginning: Connections {
        target: root.rearrangement
        function onBegun() {
            const rest = root.rearrangement.rest;
            root.offset = Qt.point(root.offset.x * rest + root.lead.x, root.offset.y * rest + root.lead.y);
            root.isNewcomer = false;
            root.isLed = root.lead.x !== 0 || root.lead.y !== 0;
            root.formerPlace = root.place;
            root.formerID = root.rowID;
        }
    }
}
