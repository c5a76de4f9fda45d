import QtQuick
import Nestlet.Companion

/// The sheet whose applications become items of a folder.
AppPickerSheet {
    id: root

    required property FolderDetailModel folder

    existingURLs: root.folder.itemURLs
    onAddRequested: urls => root.folder.addItems(urls)
}
