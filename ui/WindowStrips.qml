import QtQuick
import Nestlet.Companion

/// The strips over the window's columns, each while there is a reason for it.
Column {
    id: root

    required property CompanionViewModel model
    /// The focus was in a strip that has gone.
    signal focusLost

    function dismissUpdate() {
        const hadFocus = updateStrip.activeFocus;
        root.model.dismissUpdate();
        if (hadFocus)
            root.focusLost();
    }

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
        onMade: strip => {
            strip.downloadRequested.connect(root.model.downloadUpdate);
            strip.dismissed.connect(root.dismissUpdate);
        }
    }
}
