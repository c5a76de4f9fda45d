// Saves one library after the other under the given directory, until it is killed. Says a dot when
// it begins and after each save.

#include "model/libraryfile.h"
#include "platform/directories.h"
#include "platform/posix/posixfilesystem.h"
#include "tests/model/savedversions.h"

#include <cstdio>

namespace {

struct SaverDirectories final : Directories {
    explicit SaverDirectories(const QString &path)
        : support(FileURL::directory(path))
    {
    }

    FileURL support;
    [[nodiscard]] FileURL applicationSupport() const override { return support; }
    [[nodiscard]] FileURL userApplications() const override { return support; }
    [[nodiscard]] FileURL home() const override { return support; }
    [[nodiscard]] FileURL temporary() const override { return support; }
    [[nodiscard]] FileURL system(const QString &) const override { return support; }
};

void sayDot()
{
    std::fputc('.', stdout);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    const PosixFileSystem files;
    const SaverDirectories directories(QString::fromLocal8Bit(argv[1]));
    LibraryFile file(files, directories);
    (void)file.load(); // what it says is the tests' business
    sayDot();
    for (int version = QByteArray(argv[2]).toInt();; version = (version + 1) % savedVersions) {
        file.save(savedVersion(version));
        sayDot();
    }
}
