#include "ui/urltexts.h"

QStringList textsOfURLs(const QList<FileURL> &urls)
{
    QStringList texts;
    for (const FileURL &url : urls)
        texts.append(url.text());
    return texts;
}

QList<FileURL> urlsFromTexts(const QStringList &texts)
{
    QList<FileURL> urls;
    for (const QString &text : texts) {
        if (const std::optional<FileURL> url = FileURL::fromText(text))
            urls.append(*url);
    }
    return urls;
}
