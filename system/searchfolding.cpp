#include "system/searchfolding.h"

#include <QLocale>

#include <unicode/uchar.h>
#include <unicode/ustring.h>

namespace {

// In these languages the dotted and the dotless i are two letters.
uint32_t foldingOptions()
{
    const auto language = QLocale().language();
    const bool isTurkic = language == QLocale::Turkish || language == QLocale::Azerbaijani;
    return isTurkic ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT;
}

QString caseFolded(const QString &text)
{
    constexpr qsizetype mostCharactersPerLetter = 3;
    QString folded(text.size() * mostCharactersPerLetter, Qt::Uninitialized);
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = u_strFoldCase(
        reinterpret_cast<char16_t *>(folded.data()), static_cast<int32_t>(folded.size()),
        reinterpret_cast<const char16_t *>(text.utf16()), static_cast<int32_t>(text.size()),
        foldingOptions(), &status);
    folded.truncate(length);
    return folded;
}

} // namespace

QByteArray foldedForSearch(const QString &text)
{
    const QString composed = text.normalized(QString::NormalizationForm_C);
    return caseFolded(composed).normalized(QString::NormalizationForm_C).toUtf8();
}
