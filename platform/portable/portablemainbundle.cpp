#include "platform/portable/portablemainbundle.h"

#include "platform/portable/bundleinfo.h"

PortableMainBundle::PortableMainBundle(const QString &executableDirectory)
    : m_url(FileURL::directory(executableDirectory))
    , m_version(QStringLiteral(NESTLET_COMPANION_BUILD))
{
    const QString inBundle = QStringLiteral(".app/Contents/MacOS");
    if (!m_url.path().endsWith(inBundle))
        return;
    m_url = m_url.deletingLastPathComponent().deletingLastPathComponent();
    const QVariant version = bundleInfoIfReadable(m_url).value(QStringLiteral("CFBundleVersion"));
    m_version
        = version.typeId() == QMetaType::QString ? std::optional(version.toString()) : std::nullopt;
}
