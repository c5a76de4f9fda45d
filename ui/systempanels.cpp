#include "ui/systempanels.h"

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

void SystemPanels::chooseIconImage(const QString &folderID)
{
    if (!m_openPanel)
        return;
    const OpenPanel::Request request{
        .title = tr("Choose Icon Image"),
        .contentTypes = {QStringLiteral("public.png"), QStringLiteral("public.jpeg"),
                         QStringLiteral("public.tiff"), QStringLiteral("com.microsoft.bmp"),
                         QStringLiteral("com.apple.icns"), QStringLiteral("public.heic")}};
    const QPointer guard(this); // the panel may outlive the window
    m_openPanel->choose(request, [guard, folderID](const std::optional<FileURL> &chosen) {
        if (guard && chosen)
            Q_EMIT guard->iconImageChosen(chosen->text(), folderID);
    });
}
