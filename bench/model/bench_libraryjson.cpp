// The library's JSON in memory: bytes to records and back.

#include "bench/model/libraries.h"
#include "bench/ratios.h"
#include "model/jsonwriter.h"
#include "model/libraryjson.h"
#include "tests/model/qtlibraryjson.h"

#include <cstring>

namespace {

// One pass that reads and writes everything, and one that reads it: no decoder can do with less.
Variant passesOver(const QByteArray &bytes, QByteArray &buffer)
{
    return {.name = "memcpy + memchr", .run = [&] {
                std::memcpy(buffer.data(), bytes.constData(), size_t(bytes.size()));
                benchmark::DoNotOptimize(
                    std::memchr(buffer.constData(), '\1', size_t(bytes.size())));
            }};
}

Variant copyOf(const QByteArray &bytes, QByteArray &buffer)
{
    return {.name = "memcpy of the output", .run = [&] {
                std::memcpy(buffer.data(), bytes.constData(), size_t(bytes.size()));
                benchmark::ClobberMemory();
            }};
}

struct Decoding {
    QByteArray json;
    QByteArray buffer;

    explicit Decoding(const QByteArray &bytes)
        : json(bytes)
        , buffer(bytes.size(), '\0')
    {
    }

    void addTo(Ratios &ratios, std::string name, double timesFloor)
    {
        ratios.add(
            {.name = std::move(name),
             .ours = {"decodeLibrary", [this] { benchmark::DoNotOptimize(decodeLibrary(json)); }},
             .references = {
                 {.variant = {"QJsonDocument",
                              [this] { benchmark::DoNotOptimize(decodeLibraryByQt(json)); }},
                  .timesFaster = 15},
                 {.variant = passesOver(json, buffer), .timesLonger = timesFloor},
             }, .timing = Timing::ProcessorTime});
    }

    // The pictures of records stay encoded until they are looked at: here all are, as by the peer.
    void addWithPicturesTo(Ratios &ratios, std::string name)
    {
        ratios.add(
            {.name = std::move(name),
             .ours = {"decodeLibrary, bytes",
                      [this] {
                          const auto library = decodeLibrary(json);
                          for (const DockFolder &folder : library->folders)
                              benchmark::DoNotOptimize(folder.customIconData->bytes());
                      }},
             .references = {
                 {.variant = {"QJsonDocument",
                              [this] { benchmark::DoNotOptimize(decodeLibraryByQt(json)); }}},
                 {.variant = passesOver(json, buffer)},
             }, .timing = Timing::ProcessorTime});
    }
};

// Into a buffer that is used again and again, as its floor is.
struct Encoding {
    DockFolderLibrary library;
    QByteArray json;
    QByteArray buffer;
    JSONWriter writer;

    explicit Encoding(const DockFolderLibrary &value)
        : library(value)
        , json(encodeLibrary(value))
        , buffer(json.size(), '\0')
    {
    }

    void addTo(Ratios &ratios, std::string name, double timesFloor)
    {
        ratios.add(
            {.name = std::move(name),
             .ours = {"encodeLibrary",
                      [this] {
                          writer.clear();
                          encodeLibrary(library, writer);
                          benchmark::DoNotOptimize(writer.json());
                      }},
             .references = {
                 {.variant = {"QJsonDocument",
                              [this] { benchmark::DoNotOptimize(encodeLibraryByQt(library)); }},
                  .timesFaster = 10},
                 {.variant = copyOf(json, buffer), .timesLonger = timesFloor},
             }, .timing = Timing::ProcessorTime});
    }
};

} // namespace

int main(int argc, char **argv)
{
    const DockFolderLibrary medium = mediumLibrary();
    const QByteArray json = encodeLibrary(medium);
    Decoding plain(json);
    Decoding escaped(withEscapedSlashes(json));
    Encoding encoding(medium);

    Ratios ratios;
    plain.addTo(ratios, "Decode 100 x 20 with 40 KB pictures, plain", 3);
    escaped.addTo(ratios, "Decode 100 x 20 with 40 KB pictures, slashes escaped", 4);
    plain.addWithPicturesTo(ratios, "The same with every picture's bytes, plain");
    escaped.addWithPicturesTo(ratios, "The same with every picture's bytes, slashes escaped");
    encoding.addTo(ratios, "Encode 100 x 20 with 40 KB pictures", 2);
    return ratios.run(argc, argv);
}
