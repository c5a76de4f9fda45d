#include "model/libraryjson.h"

#include "model/jsonwriter.h"
#include "model/recordkeys.h"

namespace {

void encodeItem(const DockFolderItem &item, JSONWriter &writer)
{
    writer.writeRaw(R"({"id":)");
    writer.writeUUID(item.id);
    writer.writeRaw(R"(,"name":)");
    writer.writeString(item.name);
    writer.writeRaw(R"(,"url":)");
    writer.writeString(item.url.text());
    if (item.bookmarkData) {
        writer.writeRaw(R"(,"bookmarkData":)");
        writer.writeBase64(*item.bookmarkData);
    }
    writer.writeRaw(R"(,"kind":")");
    writer.writeRaw(kindTexts.at(size_t(item.kind)));
    writer.writeRaw(R"("})");
}

void encodeItems(const QList<DockFolderItem> &items, JSONWriter &writer)
{
    writer.writeRaw("[");
    bool isFirst = true;
    for (const DockFolderItem &item : items) {
        if (!std::exchange(isFirst, false))
            writer.writeRaw(",");
        encodeItem(item, writer);
    }
    writer.writeRaw("]");
}

} // namespace

void encodeFolder(const DockFolder &folder, JSONWriter &writer)
{
    writer.writeRaw(R"({"id":)");
    writer.writeUUID(folder.id);
    writer.writeRaw(R"(,"name":)");
    writer.writeString(folder.name);
    writer.writeRaw(R"(,"items":)");
    encodeItems(folder.items, writer);
    if (folder.accentColorHex) {
        writer.writeRaw(R"(,"accentColorHex":)");
        writer.writeString(*folder.accentColorHex);
    }
    if (folder.iconSymbol) {
        writer.writeRaw(R"(,"iconSymbol":)");
        writer.writeString(*folder.iconSymbol);
    }
    if (folder.customIconData) {
        writer.writeRaw(R"(,"customIconData":)");
        writer.writeBase64(folder.customIconData->bytes());
    }
    if (folder.gridColumns) {
        writer.writeRaw(R"(,"gridColumns":)");
        writer.writeInteger(*folder.gridColumns);
    }
    writer.writeRaw("}");
}

QByteArray libraryTail(const QUuid &selectedFolderID)
{
    JSONWriter writer;
    writer.writeRaw(R"(],"selectedFolderID":)");
    writer.writeUUID(selectedFolderID);
    writer.writeRaw("}");
    return writer.take();
}

void encodeLibrary(const DockFolderLibrary &library, JSONWriter &writer)
{
    writer.writeRaw(libraryHead);
    bool isFirst = true;
    for (const DockFolder &folder : library.folders) {
        if (!std::exchange(isFirst, false))
            writer.writeRaw(folderSeparator);
        encodeFolder(folder, writer);
    }
    writer.writeRaw(libraryTail(library.selectedFolderID));
}

QByteArray encodeLibrary(const DockFolderLibrary &library)
{
    JSONWriter writer;
    encodeLibrary(library, writer);
    return writer.take();
}
