import QtQuick

/// A picker under a small title. The picker says the title to assistive programs.
Column {
    id: root

    required property string title

    spacing: Theme.rowInset

    CompanionText {
        anchors.left: parent.left
        text: root.title
        font: Theme.subheadlineMedium
        color: Theme.secondary
    }
}
