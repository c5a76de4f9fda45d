#include "ui/systempanels.h"

#include "platform/directories.h"
#include "platform/openpanel.h"
#include "platform/platform.h"

#include <QPointer>

SystemPanels::SystemPanels(const Platform &platform, QObject *parent)
    : QObject(parent)
    , m_colorPanel(platform.colorPanel.get())
    , m_openPanel(platform.openPanel.get())
    , m_files(*platform.files)
    , m_directories(*platform.directories)
{
}

QFuture<PictureListing> SystemPanels::browse(const FileURL &url)
{
    return m_worker.ask([this, url] { return browsePictures(m_files, m_directories, url); });
}

QFuture<PictureListing> SystemPanels::browseFirst()
{
    return m_worker.ask([this, last = m_lastDirectory] {
        return browseFirstPictures(m_files, m_directories, last);
    });
}

FileURL SystemPanels::home() const
{
    return m_directories.home();
}

void SystemPanels::chooseIconImage(const QString &folderID)
{
    if (!m_openPanel)
        return;
    const OpenPanel::Request request{.title = tr("Choose Icon Image"),
                                     .contentTypes = pictureContentTypes()};
    const QPointer guard(this); // the panel may outlive the window
    m_openPanel->choose(request, [guard, folderID](const std::optional<FileURL> &chosen) {
        if (guard && chosen)
            Q_EMIT guard->iconImageChosen(chosen->text(), folderID);
    });
}
