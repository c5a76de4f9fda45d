#include "system/mimedropinfo.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

namespace {

bool namesDirectory(const FileURL &url)
{
    const QFileInfo file(url.path());
    return file.isDir() && !file.isSymLink();
}

// Drag sources differ in whether the URL of a directory ends in a slash. Items tell applications
// and folders from files by it.
QByteArray withDirectorySlash(const QByteArray &text)
{
    const auto url = FileURL::fromText(QString::fromUtf8(text));
    return url && !url->hasDirectoryPath() && namesDirectory(*url) ? text + '/' : text;
}

class URIListItem final : public DropItemProvider {
public:
    explicit URIListItem(QByteArray text)
        : m_text(std::move(text))
    {
    }

    void loadFileURL(LoadCompletion completion) override
    {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [text = m_text, completion = std::move(completion)] {
                completion(withDirectorySlash(text));
            },
            Qt::QueuedConnection);
    }

private:
    QByteArray m_text;
};

bool isFileURLLine(const QByteArray &line)
{
    return line.first(std::min<qsizetype>(line.size(), 5)).compare("file:", Qt::CaseInsensitive)
        == 0;
}

QList<QByteArray> fileURLLines(const QByteArray &uriList)
{
    QList<QByteArray> urls;
    for (const QByteArray &line : uriList.split('\n')) { // comments start with "#"
        if (const QByteArray text = line.trimmed(); isFileURLLine(text))
            urls.append(text);
    }
    return urls;
}

QString uriListFormat()
{
    return QStringLiteral("text/uri-list");
}

// hasText() would count a list of URLs as text.
QString plainTextFormat()
{
    return QStringLiteral("text/plain");
}

} // namespace

KeptDragData::KeptDragData(const QMimeData &data)
    : m_uriList(data.data(uriListFormat()))
{
    for (const QString &format : {uriListFormat(), plainTextFormat()}) {
        if (data.hasFormat(format))
            m_formats.append(format);
    }
}

bool KeptDragData::hasFormat(const QString &format) const
{
    return m_formats.contains(format);
}

QVariant KeptDragData::retrieveData(const QString &format, QMetaType) const
{
    return format == uriListFormat() ? QVariant(m_uriList) : QVariant();
}

MimeDropInfo::MimeDropInfo(const QMimeData *data)
    : m_fileURLs(fileURLLines(data->data(uriListFormat())))
    , m_hasPlainText(data->hasFormat(plainTextFormat()))
{
}

bool MimeDropInfo::hasItems(DropContent content) const
{
    return content == DropContent::FileURL ? !m_fileURLs.isEmpty() : m_hasPlainText;
}

QList<std::shared_ptr<DropItemProvider>> MimeDropInfo::fileURLProviders() const
{
    QList<std::shared_ptr<DropItemProvider>> providers;
    for (const QByteArray &url : m_fileURLs)
        providers.append(std::make_shared<URIListItem>(url));
    return providers;
}
