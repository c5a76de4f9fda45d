import QtQuick

/// The ground of a window's content.
Rectangle {
    color: Theme.content
}
