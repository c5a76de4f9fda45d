#include "platform/portable/portableappearance.h"

#include "platform/error.h"
#include "platform/posix/posixfilesystem.h"
#include "platform/propertylist.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

const QString globalDomain = QStringLiteral(".GlobalPreferences");
const QString accessibilityDomain = QStringLiteral("com.apple.Accessibility");
const QString universalAccessDomain = QStringLiteral("com.apple.universalaccess");

FileURL fileOf(const FileURL &preferences, const QString &domain)
{
    return preferences.appendingFile(domain + QStringLiteral(".plist"));
}

// The system's colours, by the number that stands for them in the preferences.
std::optional<QColor> accentColor(const QVariant &number, bool isDark)
{
    struct Accent {
        qint64 number;
        QRgb light;
        QRgb dark;
    };
    constexpr auto accents = std::to_array<Accent>({
        {-1, 0x8E8E93, 0x98989D}, // graphite
        {0, 0xFF3B30, 0xFF453A}, // red
        {1, 0xFF9500, 0xFF9F0A}, // orange
        {2, 0xFFCC00, 0xFFD60A}, // yellow
        {3, 0x34C759, 0x30D158}, // green
        {4, 0x007AFF, 0x0A84FF}, // blue
        {5, 0xAF52DE, 0xBF5AF2}, // purple
        {6, 0xFF2D55, 0xFF375F}, // pink
    });
    if (number.typeId() != QMetaType::LongLong)
        return std::nullopt;
    const auto *const found = std::ranges::find(accents, number.toLongLong(), &Accent::number);
    if (found == accents.end())
        return std::nullopt;
    return QColor(isDark ? found->dark : found->light);
}

} // namespace

PortableAppearance::PortableAppearance(const FileURL &preferences,
                                       std::unique_ptr<Appearance> desktop)
    : m_preferences(preferences)
    , m_desktop(std::move(desktop))
{
    ignoringErrors([&] { PosixFileSystem().createDirectories(m_preferences); });
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_watcher,
                     [this] { update(); });
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_watcher,
                     [this] { update(); });
    m_desktop->observe([this] { update(); });
    m_watcher.addPath(m_preferences.path());
    watchFiles();
    m_settings = readSettings();
}

// The directory's watch tells of files that come, go and are replaced; this one of those that are
// written in place. A replaced file is another one.
void PortableAppearance::watchFiles()
{
    const PosixFileSystem files;
    for (const QString &domain : {globalDomain, accessibilityDomain, universalAccessDomain}) {
        const FileURL file = fileOf(m_preferences, domain);
        if (files.exists(file) && !m_watcher.files().contains(file.path()))
            m_watcher.addPath(file.path());
    }
}

QVariantMap PortableAppearance::values(const QString &domain) const
{
    const FileURL file = fileOf(m_preferences, domain);
    QVariantMap values;
    ignoringErrors([&] {
        const PosixFileSystem files;
        if (files.exists(file))
            values = parsePropertyList(files.read(file), file.path()).toMap();
    });
    return values;
}

Appearance::Settings PortableAppearance::readSettings() const
{
    const QVariantMap global = values(globalDomain);
    const QVariant style = global.value(QStringLiteral("AppleInterfaceStyle"));
    const bool isDark
        = style.isValid() ? style.toString() == u"Dark" : m_desktop->settings().isDark;
    return {
        .isDark = isDark,
        .accent = accentColor(global.value(QStringLiteral("AppleAccentColor")), isDark),
        .reducesMotion
        = values(universalAccessDomain).value(QStringLiteral("reduceMotion")).toBool()
            || values(accessibilityDomain).value(QStringLiteral("ReduceMotionEnabled")).toBool()};
}

void PortableAppearance::update()
{
    watchFiles();
    const Settings next = readSettings();
    if (std::exchange(m_settings, next) != next && m_changed)
        m_changed();
}
