#include "platform/portable/documentkind.h"

#include <QMimeDatabase>
#include <QStringList>

#include <algorithm>
#include <array>

namespace {

struct Rule {
    QLatin1StringView start; ///< of a MIME type's name
    DocumentKind kind;
};

// The first counts that matches one of the types that a name may have, or what they are derived
// from.
constexpr std::array rules{
    Rule{QLatin1StringView("application/pdf"), DocumentKind::PDF},
    Rule{QLatin1StringView("text/html"), DocumentKind::WebPage},
    Rule{QLatin1StringView("application/xhtml"), DocumentKind::WebPage},
    Rule{QLatin1StringView("application/x-mswinurl"), DocumentKind::WebPage},
    Rule{QLatin1StringView("image/"), DocumentKind::Image},
    Rule{QLatin1StringView("audio/"), DocumentKind::Audio},
    Rule{QLatin1StringView("video/"), DocumentKind::Video},
    Rule{QLatin1StringView("font/"), DocumentKind::Font},
    Rule{QLatin1StringView("application/x-font"), DocumentKind::Font},
    Rule{QLatin1StringView("application/vnd.oasis.opendocument.spreadsheet"),
         DocumentKind::Spreadsheet},
    Rule{QLatin1StringView("application/vnd.openxmlformats-officedocument.spreadsheet"),
         DocumentKind::Spreadsheet},
    Rule{QLatin1StringView("application/vnd.ms-excel"), DocumentKind::Spreadsheet},
    Rule{QLatin1StringView("text/csv"), DocumentKind::Spreadsheet},
    Rule{QLatin1StringView("text/tab-separated"), DocumentKind::Spreadsheet},
    Rule{QLatin1StringView("application/vnd.oasis.opendocument.presentation"),
         DocumentKind::Presentation},
    Rule{QLatin1StringView("application/vnd.openxmlformats-officedocument.presentation"),
         DocumentKind::Presentation},
    Rule{QLatin1StringView("application/vnd.ms-powerpoint"), DocumentKind::Presentation},
    Rule{QLatin1StringView("application/vnd.oasis.opendocument.text"), DocumentKind::Text},
    Rule{QLatin1StringView("application/vnd.openxmlformats-officedocument.word"),
         DocumentKind::Text},
    Rule{QLatin1StringView("application/msword"), DocumentKind::Text},
    Rule{QLatin1StringView("application/rtf"), DocumentKind::Text},
    Rule{QLatin1StringView("text/rtf"), DocumentKind::Text},
    Rule{QLatin1StringView("text/markdown"), DocumentKind::Text},
    Rule{QLatin1StringView("application/x-apple-diskimage"), DocumentKind::DiskImage},
    Rule{QLatin1StringView("application/x-cd-image"), DocumentKind::DiskImage},
    Rule{QLatin1StringView("application/x-raw-disk-image"), DocumentKind::DiskImage},
    Rule{QLatin1StringView("application/x-iso9660"), DocumentKind::DiskImage},
    Rule{QLatin1StringView("application/vnd.efi.iso"), DocumentKind::DiskImage},
    Rule{QLatin1StringView("application/zip"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/gzip"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/zstd"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/x-tar"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/x-bzip"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/x-xz"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/x-7z"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/x-compressed-tar"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/vnd.rar"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/x-xar"), DocumentKind::Archive},
    Rule{QLatin1StringView("application/json"), DocumentKind::Code},
    Rule{QLatin1StringView("application/xml"), DocumentKind::Code},
    Rule{QLatin1StringView("application/javascript"), DocumentKind::Code},
    Rule{QLatin1StringView("application/x-shellscript"), DocumentKind::Code},
    Rule{QLatin1StringView("application/x-yaml"), DocumentKind::Code},
    Rule{QLatin1StringView("text/x-log"), DocumentKind::Text},
    Rule{QLatin1StringView("text/x-readme"), DocumentKind::Text},
    Rule{QLatin1StringView("text/x-"), DocumentKind::Code},
    Rule{QLatin1StringView("text/css"), DocumentKind::Code},
    Rule{QLatin1StringView("text/javascript"), DocumentKind::Code},
    Rule{QLatin1StringView("text/"), DocumentKind::Text},
    // Last, for scripts are programs too.
    Rule{QLatin1StringView("application/x-executable"), DocumentKind::Program},
    Rule{QLatin1StringView("application/x-sharedlib"), DocumentKind::Program}};

} // namespace

DocumentKind documentKind(const QString &fileName)
{
    const auto *best = rules.end();
    for (const QMimeType &type : QMimeDatabase().mimeTypesForFileName(fileName)) {
        for (const QString &name : QStringList(type.name()) + type.allAncestors())
            best = std::min(best, std::ranges::find_if(rules, [&](const Rule &rule) {
                                return name.startsWith(rule.start);
                            }));
    }
    return best == rules.end() ? DocumentKind::Plain : best->kind;
}

bool isShowablePicture(const QString &fileName)
{
    static const QStringList types{QStringLiteral("image/png"),  QStringLiteral("image/jpeg"),
                                   QStringLiteral("image/gif"),  QStringLiteral("image/bmp"),
                                   QStringLiteral("image/webp"), QStringLiteral("image/tiff"),
                                   QStringLiteral("image/heif"), QStringLiteral("image/heic")};
    return types.contains(
        QMimeDatabase().mimeTypeForFile(fileName, QMimeDatabase::MatchExtension).name());
}
