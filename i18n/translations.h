#pragma once

#include <QTranslator>

class QCoreApplication;

/// The texts of the program in the best language that there is a catalogue for, while it lives.
class Translations {
public:
    /// In the languages of the user.
    explicit Translations(QCoreApplication &application);
    /// In the language of a locale, as "de_CH".
    Translations(QCoreApplication &application, const QString &locale);

private:
    void install(QCoreApplication &application, bool isLoaded);

    QTranslator m_translator;
};
