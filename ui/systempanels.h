#pragma once

#include "platform/fileurl.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class ColorPanel;
class Directories;
class FileSystem;
class OpenPanel;
struct Platform;

/// The panels that the system has for choosing a colour and a picture. Where it has none, the
/// window brings its own, and these are the files that they show.
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
    [[nodiscard]] const FileSystem &files() const { return m_files; }
    [[nodiscard]] const Directories &directories() const { return m_directories; }
    /// The directory in which a picture was last chosen; nothing at first.
    [[nodiscard]] const std::optional<FileURL> &lastDirectory() const { return m_lastDirectory; }
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
};
