// What the library file costs the main thread beside the disk: the file is in memory here.

#include "bench/model/libraries.h"
#include "bench/ratios.h"
#include "model/libraryfile.h"
#include "model/libraryjson.h"
#include "platform/directories.h"
#include "platform/posix/posixfilesystem.h"

#include <cstring>

namespace {

/// A disk that takes no time: reads give the same bytes, writes are dropped.
struct NoDisk final : PosixFileSystem {
    QByteArray bytes{};

    using FileSystem::writeAtomically;
    [[nodiscard]] std::optional<FileIdentity> identity(const FileURL &) const override
    {
        return FileIdentity{};
    }
    [[nodiscard]] QByteArray read(const FileURL &) const override { return bytes; }
    void writeAtomically(const FileURL &, std::span<const QByteArrayView> pieces) const override
    {
        benchmark::DoNotOptimize(pieces.data());
    }
    void createDirectories(const FileURL &) const override { }
};

struct NoDirectories final : Directories {
    FileURL root = FileURL::directory(QStringLiteral("/nowhere"));
    [[nodiscard]] FileURL applicationSupport() const override { return root; }
    [[nodiscard]] FileURL userApplications() const override { return root; }
    [[nodiscard]] FileURL home() const override { return root; }
    [[nodiscard]] FileURL temporary() const override { return root; }
    [[nodiscard]] FileURL system(const QString &) const override { return root; }
};

/// A library, the library file that has just saved it, and a buffer for the floors.
struct Scene {
    DockFolderLibrary library;
    QByteArray json;
    QByteArray buffer;
    NoDisk disk;
    NoDirectories directories;
    LibraryFile file{disk, directories};
    int edits{};

    explicit Scene(const DockFolderLibrary &value)
        : library(value)
        , json(encodeLibrary(value))
        , buffer(json.size(), '\0')
    {
        disk.bytes = json;
        file.save(library);
    }

    // Another name in the middle of the library, as in the store: in its own copy of the list.
    void rename()
    {
        DockFolder &folder = library.folders[library.folders.size() / 2];
        folder.name = QStringLiteral("Renamed %1").arg(++edits);
    }

    [[nodiscard]] Variant passes()
    {
        return {.name = "memcpy + memchr", .run = [this] {
                    std::memcpy(buffer.data(), json.constData(), size_t(json.size()));
                    benchmark::DoNotOptimize(
                        std::memchr(buffer.constData(), '\1', size_t(json.size())));
                }};
    }
    [[nodiscard]] Variant copy()
    {
        return {.name = "memcpy of the output", .run = [this] {
                    std::memcpy(buffer.data(), json.constData(), size_t(json.size()));
                    benchmark::ClobberMemory();
                }};
    }
    [[nodiscard]] Variant comparison()
    {
        std::memcpy(buffer.data(), json.constData(), size_t(json.size()));
        return {.name = "compare", .run = [this] {
                    benchmark::DoNotOptimize(
                        std::memcmp(buffer.constData(), json.constData(), size_t(json.size())));
                }};
    }
    [[nodiscard]] Variant decode()
    {
        return {.name = "full decode",
                .run = [this] { benchmark::DoNotOptimize(decodeLibrary(json)); }};
    }
    [[nodiscard]] Variant encode()
    {
        return {.name = "full encode",
                .run = [this] { benchmark::DoNotOptimize(encodeLibrary(library)); }};
    }

    void addReload(Ratios &ratios, std::string name)
    {
        ratios.add(
            {.name = std::move(name),
             .ours = {.name = "LibraryFile::load",
                      .run = [this] { benchmark::DoNotOptimize(file.load()); },
                      .prepare =
                          [this] {
                              rename();
                              disk.bytes = encodeLibrary(library);
                          }},
             .references = {{.variant = decode()}, {.variant = passes(), .timesLonger = 1.2}},
             .timing = Timing::ProcessorTime});
    }

    void addRename(Ratios &ratios, std::string name)
    {
        ratios.add({.name = std::move(name),
                    .ours = {.name = "LibraryFile::save",
                             .run = [this] { file.save(library); },
                             .prepare = [this] { rename(); }},
                    .references = {{.variant = encode()}, {.variant = copy(), .timesLonger = 1.3}},
                    .timing = Timing::ProcessorTime});
    }

    void addEcho(Ratios &ratios, std::string name)
    {
        ratios.add(
            {.name = std::move(name),
             .ours = {"LibraryFile::load", [this] { benchmark::DoNotOptimize(file.load()); }},
             .references = {{.variant = decode()}, {.variant = comparison(), .timesLonger = 1.5}},
             .timing = Timing::ProcessorTime});
    }
};

} // namespace

int main(int argc, char **argv)
{
    Scene reloadedMedium(mediumLibrary());
    Scene reloaded(largeLibrary());
    Scene saved(largeLibrary());
    Scene echoed(largeLibrary());

    Ratios ratios;
    reloadedMedium.addReload(ratios, "Reload 100 x 20 with one folder changed");
    reloaded.addReload(ratios, "Reload 1,000 x 50 with one folder changed");
    saved.addRename(ratios, "One rename in 1,000 x 50 with 200 pictures");
    echoed.addEcho(ratios, "Echo of our own save of 1,000 x 50");
    return ratios.run(argc, argv);
}
