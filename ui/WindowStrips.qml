import QtQuick
import Nestlet.Companion

/// The strips over the window's columns, each while there is a reason for it.
Column {
    id: root

    required property CompanionViewModel model
    /// The focus was in a strip that has gone.
    signal focusLost

    FileLoader {
        width: parent.width
        file: root.model.isNestletInstalled ? "" : "NestletMissingBanner.qml"
        visible: item !== null
    }

    FileLoader {
        id: updateStrip
        width: parent.width
        file: root.model.isUpdateAvailable ? "UpdateAvailableBanner.qml" : ""
        properties: ({
                "version": root.model.availableVersion
            })
        visible: item !== null
    }

    Connections {
        target: updateStrip.item
        ignoreUnknownSignals: true
        function onDownloadRequested() {
            root.model.downloadUpdate();
        }
        function onDismissed() {
            const hadFocus = updateStrip.activeFocus;
            root.model.dismissUpdate();
            if (hadFocus)
                root.focusLost();
        }
    }
}
