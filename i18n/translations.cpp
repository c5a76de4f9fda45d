#include "i18n/translations.h"

#include <QCoreApplication>
#include <QLocale>

namespace {

QString folder()
{
    return QStringLiteral(":/i18n");
}

} // namespace

Translations::Translations()
{
    install(m_translator.load(QLocale::system(), QStringLiteral("companion"), QStringLiteral("_"),
                              folder()));
}

Translations::Translations(const QString &locale)
{
    install(m_translator.load(QStringLiteral("companion_") + locale, folder()));
}

// The sources are in English, but for the plurals.
void Translations::install(bool isLoaded)
{
    if (isLoaded || m_translator.load(QStringLiteral("companion_en"), folder()))
        QCoreApplication::installTranslator(&m_translator);
}
