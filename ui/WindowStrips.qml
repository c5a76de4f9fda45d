import QtQuick
import Nestlet.Companion

/// The strips over the window's columns, each while there is a reason for it.
Column {
    id: root

    required property CompanionViewModel model
    /// The focus was in a strip that has gone.
    signal focusLost

    Loader {
        width: parent.width
        active: !root.model.isNestletInstalled
        visible: active

        sourceComponent: NestletMissingBanner {}
    }

    Loader {
        id: updateStrip
        width: parent.width
        active: root.model.isUpdateAvailable
        visible: active

        sourceComponent: UpdateAvailableBanner {
            version: root.model.availableVersion
            onDownloadRequested: root.model.downloadUpdate()
            onDismissed: {
                const strips = root; // outlives the strip
                const hadFocus = updateStrip.activeFocus;
                strips.model.dismissUpdate();
                if (hadFocus)
                    strips.focusLost();
            }
        }
    }
}
