import QtQuick
import Nestlet.Companion

/// The icon of an app, folder or file, loaded behind the scenes; until it has come, a rounded square
/// holds its place. Decoration: never accessible itself.
FileIconPicture {
    id: root

    /// The side of the icon.
    property real size: 16

    width: root.size
    height: root.size
    placeholderColor: Theme.quaternary
}
