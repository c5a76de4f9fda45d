#include "builder/proxyfilename.h"

#include "model/uuidtext.h"

#include <QCoreApplication>
#include <QTextBoundaryFinder>

namespace {

constexpr qsizetype longestFileName = 255; // bytes of UTF-8
const QString extension = QStringLiteral(".app");
constexpr qsizetype idPrefixLength = 8;

// Newlines are control characters but for the two separators. The system counts invisible format
// characters, such as joiners and direction marks, among the control characters.
bool separatesPieces(char32_t character)
{
    const auto category = QChar::category(character);
    return category == QChar::Other_Control || category == QChar::Other_Format
        || category == QChar::Separator_Line || category == QChar::Separator_Paragraph
        || (character < 0x80 && QStringView(u"/:\\?%*|\"<>").contains(QChar(char16_t(character))));
}

// To split at each such character and to join the pieces with single spaces is to replace each.
QString withSpacesForSeparators(const QString &name)
{
    QString text;
    for (const char32_t character : name.toUcs4()) {
        if (separatesPieces(character))
            text += u' ';
        else
            text += QChar::fromUcs4(character);
    }
    return text.trimmed();
}

// Whole visible characters only; a cut never ends in a space.
QString cutToBytes(const QString &text, qsizetype limit)
{
    if (text.toUtf8().size() <= limit)
        return text;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    while (finder.toNextBoundary() > 0 && text.left(finder.position()).toUtf8().size() <= limit)
        end = finder.position();
    return text.left(end).trimmed();
}

QString baseName(const DockFolder &folder)
{
    // Room is left for the longest ending, so that both names of a folder begin alike.
    const qsizetype limit = longestFileName - extension.size() - idPrefixLength - 1;
    const QString name = cutToBytes(withSpacesForSeparators(folder.name), limit);
    return name.isEmpty() ? QCoreApplication::translate("ProxyDirectory", "Dock Folder") : name;
}

} // namespace

QString proxyFileName(const DockFolder &folder)
{
    return baseName(folder) + extension;
}

QString distinctProxyFileName(const DockFolder &folder)
{
    return baseName(folder) + u' ' + uuidText(folder.id).left(idPrefixLength) + extension;
}
