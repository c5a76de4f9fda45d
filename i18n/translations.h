#pragma once

#include <QTranslator>

/// The texts of the program in the best language that there is a catalogue for, while it lives.
/// There has to be a QCoreApplication.
class Translations {
public:
    /// In the languages of the user.
    Translations();
    /// In the language of a locale, as "de_CH".
    explicit Translations(const QString &locale);

private:
    void install(bool isLoaded);

    QTranslator m_translator;
};
