import QtQuick

/// What a folder's icon will look like in the Dock.
FolderIcon {
    radius: size * 0.22
    neutralTop: Theme.isDark ? Theme.grey(0.14) : Theme.grey(0.70)
    neutralBottom: Theme.isDark ? Theme.grey(0.08) : Theme.grey(0.46)
    emptySymbolOpacity: 0.65
    fadeDuration: Theme.changeDuration
}
