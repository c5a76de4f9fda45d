#include "bench/ratios.h"
#include "bench/require.h"
#include "bench/system/applicationtree.h"
#include "platform/posix/posixfilesystem.h"
#include "system/installedapplications.h"

#include <QCollator>
#include <QDir>
#include <QSet>
#include <QUrl>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>

namespace {

// The obvious way: entries with their data, a set of URLs, names compared by a collator.
void insertApplications(const QString &folder, QSet<QUrl> &found, bool looksIntoFolders)
{
    const auto entries = QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        if (entry.suffix() == u"app")
            found.insert(QUrl::fromLocalFile(entry.filePath()));
        else if (looksIntoFolders && entry.isDir())
            insertApplications(entry.filePath(), found, false);
    }
}

QList<QUrl> scanWithEntryInfoLists(const QStringList &roots)
{
    QSet<QUrl> found;
    for (const QString &root : roots)
        insertApplications(root, found, true);
    QList<QUrl> sorted(found.begin(), found.end());
    QCollator collator(QLocale(QLocale::English));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::sort(sorted.begin(), sorted.end(), [&](const QUrl &a, const QUrl &b) {
        return collator.compare(a.fileName(), b.fileName()) < 0;
    });
    return sorted;
}

// What no scan can do without.
void readDirectories(const std::vector<QByteArray> &folders)
{
    alignas(8) static std::array<char, 256 * 1024> buffer;
    for (const QByteArray &folder : folders) {
        const int descriptor = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        while (::syscall(SYS_getdents64, descriptor, buffer.data(), buffer.size()) > 0) { }
        ::close(descriptor);
    }
}

QList<qsizetype> matchesByContains(const QStringList &names, const QString &text)
{
    QList<qsizetype> positions;
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (names.at(i).contains(text, Qt::CaseInsensitive))
            positions.append(i);
    }
    return positions;
}

Work scanWork(const ApplicationTree &tree, const FileSystem &files)
{
    std::vector<QByteArray> folders;
    for (const QString &folder : tree.folders())
        folders.push_back(QFile::encodeName(folder));
    return {.name = "Scan 4,000 applications, sorted (warm)",
            .ours = {"visibleEntries, ICU keys in one arena",
                     [&] { benchmark::DoNotOptimize(scanInstalledApplications(files, tree)); }},
            .references
            = {{.variant
                = {"QDir::entryInfoList, QSet<QUrl>, QCollator",
                   [&tree] { benchmark::DoNotOptimize(scanWithEntryInfoLists(tree.roots())); }},
                .timesFaster = 5},
               {.variant = {"floor: open and getdents of 203 folders",
                            [folders] { readDirectories(folders); }},
                .timesLonger = 3.3}},
            .rounds = 41,
            .timing = Timing::ProcessorTime};
}

Work filterWork(const ApplicationFilter &filter, const QStringList &names, const QString &text)
{
    require(filter.matches(text) == matchesByContains(names, text), "filter");
    return {.name = "Filter 4,000 names by “" + text.toStdString() + "”",
            .ours = {"folded names in one arena, memmem",
                     [&filter, text] { benchmark::DoNotOptimize(filter.matches(text)); }},
            .references
            = {{.variant
                = {"QString::contains, case-insensitive",
                   [&names, text] { benchmark::DoNotOptimize(matchesByContains(names, text)); }},
                .timesFaster = 3}},
            .rounds = 41,
            .repeat = 20};
}

Work foldingWork(const QList<FileURL> &applications)
{
    return {.name = "Fold 4,000 names, once per list",
            .ours = {"NFC and case folding",
                     [&] { benchmark::DoNotOptimize(ApplicationFilter(applications)); }}};
}

} // namespace

int main(int argc, char **argv)
{
    const ApplicationTree tree;
    const PosixFileSystem files;
    const QList<FileURL> applications = scanInstalledApplications(files, tree);
    require(applications.size() == 4000, "count of applications");
    require(scanWithEntryInfoLists(tree.roots()).size() == 4000, "count by the peer");
    const ApplicationFilter filter(applications);
    QStringList names;
    for (const FileURL &application : applications)
        names.append(application.displayName());

    Ratios ratios;
    ratios.add(scanWork(tree, files));
    for (const char *text : {"a", "dra", "Übersicht", "no match"})
        ratios.add(filterWork(filter, names, QString::fromUtf8(text)));
    ratios.add(foldingWork(applications));
    return ratios.run(argc, argv);
}
