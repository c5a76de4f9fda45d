#pragma once

#include "system/picturebrowsing.h"
#include "ui/worker.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class ColorPanel;
class Directories;
class FileSystem;
class OpenPanel;
struct Platform;

/// The panels that the system has for choosing a colour and a picture. Where it has none, the
/// window brings its own, and asks here for the files that they show. Lives as long as the
/// platform.
class SystemPanels final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the application")
    Q_PROPERTY(bool hasOpenPanel READ hasOpenPanel CONSTANT)

public:
    explicit SystemPanels(const Platform &platform, QObject *parent = nullptr);

    /// Null: the system has none.
    [[nodiscard]] ColorPanel *colorPanel() const { return m_colorPanel; }
    [[nodiscard]] bool hasOpenPanel() const { return m_openPanel != nullptr; }

    // For the window's own open panel. The looks are taken off the main thread.

    [[nodiscard]] QFuture<PictureListing> browse(const FileURL &url);
    /// Begins where a picture was last chosen.
    [[nodiscard]] QFuture<PictureListing> browseFirst();
    [[nodiscard]] FileURL home() const;
    /// The directory in which a picture was last chosen.
    void setLastDirectory(const FileURL &directory) { m_lastDirectory = directory; }

    /// Lets the user choose a picture in the system's panel. `folderID` comes back with the answer.
    Q_INVOKABLE void chooseIconImage(const QString &folderID);

Q_SIGNALS:
    void iconImageChosen(const QString &urlText, const QString &folderID);

private:
    ColorPanel *m_colorPanel;
    OpenPanel *m_openPanel;
    const FileSystem &m_files;
    const Directories &m_directories;
    std::optional<FileURL> m_lastDirectory;
    Worker m_worker; ///< last: waits for a look that is still being taken
};
