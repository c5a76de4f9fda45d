#pragma once

#include "model/dockfolder.h"

#include <QRandomGenerator>

/// The size of a regular library, all of whose folders are alike.
struct LibraryShape {
    int folders{};
    int itemsPerFolder{};
    int pictures{}; ///< folders with a custom icon, spread evenly
    int pictureSize{};
    int bookmarkSize{}; ///< of every item; 0: no bookmarks
};

/// Makes libraries, the same ones for the same seed.
class LibraryGenerator {
public:
    explicit LibraryGenerator(quint32 seed)
        : m_random(seed)
    {
    }

    DockFolderLibrary regularLibrary(const LibraryShape &shape);
    /// Few or many folders of odd fields: empty, long, of any script, with and without options.
    DockFolderLibrary oddLibrary();
    DockFolder oddFolder();

    QByteArray bytes(qsizetype size);
    QUuid uuid();
    /// Whole numbers from 0 up to, and without, `end`.
    int number(int end) { return int(m_random.bounded(end)); }

private:
    DockFolderItem item(int number, int bookmarkSize);
    DockFolderItem oddItem();
    QString oddText();

    QRandomGenerator m_random;
};

inline QByteArray LibraryGenerator::bytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = char(m_random.generate());
    return bytes;
}

inline QUuid LibraryGenerator::uuid()
{
    return QUuid::fromRfc4122(bytes(16));
}

inline DockFolderItem LibraryGenerator::item(int number, int bookmarkSize)
{
    const QString name = QStringLiteral("Application %1").arg(number);
    DockFolderItem item{.id = uuid(),
                        .name = name,
                        .url = FileURL::directory(QStringLiteral("/Applications/%1.app").arg(name)),
                        .kind = DockFolderItem::Kind::application};
    if (bookmarkSize > 0)
        item.bookmarkData = bytes(bookmarkSize);
    return item;
}

inline DockFolderLibrary LibraryGenerator::regularLibrary(const LibraryShape &shape)
{
    DockFolderLibrary library;
    for (int i = 0; i < shape.folders; ++i) {
        DockFolder folder{.id = uuid(), .name = QStringLiteral("Dock Folder %1").arg(i + 1)};
        for (int j = 0; j < shape.itemsPerFolder; ++j)
            folder.items.append(item(j, shape.bookmarkSize));
        folder.accentColorHex = QStringLiteral("#4F83D3");
        const bool hasPicture = shape.pictures > 0 && i % (shape.folders / shape.pictures) == 0;
        if (hasPicture)
            folder.customIconData = bytes(shape.pictureSize);
        else
            folder.iconSymbol = QStringLiteral("folder.fill");
        folder.gridColumns = 4;
        library.folders.append(folder);
    }
    library.selectedFolderID = library.folders.isEmpty() ? uuid() : library.folders.constFirst().id;
    return library;
}

inline QString LibraryGenerator::oddText()
{
    static const QStringList pieces{QStringLiteral("a"),
                                    QStringLiteral("Dock Folder"),
                                    QStringLiteral("\""),
                                    QStringLiteral("\\"),
                                    QStringLiteral("/"),
                                    QStringLiteral("\n\t\r\b\f"),
                                    QString(QChar(u'\0')),
                                    QString(QChar(0x1f)),
                                    QString(QChar(0x7f)),
                                    QStringLiteral("é"),
                                    QStringLiteral("e\u0301"),
                                    QStringLiteral("漢字"),
                                    QStringLiteral("👩‍👩‍👧"),
                                    QStringLiteral("\uffff"),
                                    QStringLiteral("\u2028")};
    QString text;
    for (int left = number(8); left > 0; --left)
        text += pieces.at(number(int(pieces.size())));
    if (number(20) == 0)
        text = text.repeated(200);
    return text;
}

inline DockFolderItem LibraryGenerator::oddItem()
{
    using Kind = DockFolderItem::Kind;
    const QString path = u'/' + oddText();
    DockFolderItem item{.id = uuid(),
                        .name = oddText(),
                        .url = number(2) == 0 ? FileURL::file(path) : FileURL::directory(path),
                        .kind = Kind(number(3))};
    if (number(2) == 0)
        item.bookmarkData = bytes(number(100));
    return item;
}

inline DockFolder LibraryGenerator::oddFolder()
{
    DockFolder folder{.id = uuid(), .name = oddText()};
    for (int left = number(6); left > 0; --left)
        folder.items.append(oddItem());
    if (number(2) == 0)
        folder.accentColorHex = oddText();
    if (number(2) == 0)
        folder.iconSymbol = oddText();
    if (number(2) == 0)
        folder.customIconData = bytes(number(number(10) == 0 ? 50000 : 50));
    if (number(2) == 0)
        folder.gridColumns = qint64(m_random.generate64());
    return folder;
}

inline DockFolderLibrary LibraryGenerator::oddLibrary()
{
    DockFolderLibrary library{.selectedFolderID = uuid()};
    for (int left = number(8); left > 0; --left)
        library.folders.append(oddFolder());
    return library;
}
