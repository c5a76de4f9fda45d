#include "ui/urltexts.h"

QList<FileURL> urlsFromTexts(const QStringList &texts)
{
    QList<FileURL> urls;
    for (const QString &text : texts) {
        if (const std::optional<FileURL> url = FileURL::fromText(text))
            urls.append(*url);
    }
    return urls;
}
