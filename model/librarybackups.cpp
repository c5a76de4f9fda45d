#include "model/librarybackups.h"

#include "platform/filesystem.h"

#include <QCryptographicHash>

namespace {

// Long enough that two contents never meet, short enough to read.
constexpr qsizetype digestLength = 16;

QString contentName(QByteArrayView bytes)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(bytes);
    const QByteArray digest = hash.result().toHex().first(digestLength);
    return QStringLiteral("Nestlet %1.json").arg(QString::fromLatin1(digest));
}

} // namespace

void LibraryBackups::keep(QByteArrayView bytes) const
{
    const FileURL backup = m_directory.appendingFile(contentName(bytes));
    if (m_files.exists(backup))
        return;
    m_files.createDirectories(m_directory);
    m_files.writeAtomically(backup, bytes);
}

FileURL LibraryBackups::moveHere(const FileURL &file) const
{
    m_files.createDirectories(m_directory);
    FileURL url = unusedURL();
    m_files.move(file, url);
    return url;
}

FileURL LibraryBackups::unusedURL() const
{
    FileURL url = m_directory.appendingFile(QStringLiteral("Nestlet unreadable.json"));
    for (int number = 2; m_files.isOccupied(url); ++number)
        url = m_directory.appendingFile(QStringLiteral("Nestlet unreadable %1.json").arg(number));
    return url;
}
