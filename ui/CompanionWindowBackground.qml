import QtQuick

/// The ground of a window's content. The window paints it, as what each of its pictures begins with: it
/// takes its colour from here.
Item {
    readonly property color color: Theme.content
}
