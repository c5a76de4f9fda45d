#include "platform/error.h"
#include "platform/posix/posixfilesystem.h"
#include "tests/platform/unprivileged.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>

#include <atomic>
#include <csignal>
#include <optional>
#include <thread>

namespace {

QString refusal(const std::function<void()> &action)
{
    try {
        action();
    } catch (const PlatformError &error) {
        return error.description();
    }
    return {};
}

struct stat linkStatus(const FileURL &url)
{
    struct stat status { };
    ::lstat(url.nativePath().constData(), &status);
    return status;
}

mode_t modeOf(const FileURL &url)
{
    return linkStatus(url).st_mode & 07777U;
}

QByteArray linkText(const FileURL &url)
{
    QByteArray text(10'000, '\0');
    const ssize_t length
        = ::readlink(url.nativePath().constData(), text.data(), static_cast<size_t>(text.size()));
    return text.first(std::max<ssize_t>(length, 0));
}

bool makeLink(const QByteArray &text, const FileURL &at)
{
    return ::symlink(text.constData(), at.nativePath().constData()) == 0;
}

bool setMode(const FileURL &url, mode_t mode)
{
    return ::chmod(url.nativePath().constData(), mode) == 0;
}

// Sets a time long ago, with its nanoseconds.
bool setOldTime(const FileURL &url)
{
    const std::array<timespec, 2> times{timespec{.tv_sec = 1, .tv_nsec = 2},
                                        timespec{.tv_sec = 1'234'567'890, .tv_nsec = 123'456'789}};
    return ::utimensat(AT_FDCWD, url.nativePath().constData(), times.data(), AT_SYMLINK_NOFOLLOW)
        == 0;
}

bool hasOldTime(const FileURL &url)
{
    const timespec time = linkStatus(url).st_mtim;
    return time.tv_sec == 1'234'567'890 && time.tv_nsec == 123'456'789;
}

// Runs the action in a child. Its exit code, or minus the signal that ended it.
int inChild(const std::function<int()> &action)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(action());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

} // namespace

class PosixFileSystemTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void tellsWhatIsThere();
    void followsLinksToWhatIsThere();
    void listsHiddenNamesToo();
    void listsOnlyVisibleEntries();
    void listingNamesTheReason();
    void readsFiles_data();
    void readsFiles();
    void readingNamesTheReason();
    void identityChangesWithTheFile();
    void urlsThatNameNoFileAreErrors();

    void writesPiecesInOrder();
    void writingReplacesTheWholeFile();
    void writingKeepsTheMode();
    void writingHonoursTheMask();
    void writingFollowsLinks();
    void writingThroughALinkRingFails();
    void writingOverADirectoryFails();
    void writingIntoAReadOnlyDirectoryFails();
    void writingToAFullDiskKeepsTheOldFile();
    void writingBeyondTheLimitKeepsTheOldFile();
    void killedWritersLeaveWholeFilesAndNoHeap();
    void writersDoNotDisturbEachOther();

    void createsMissingDirectories();
    void creatingBelowAFileFails();

    void copiesATreeExactly();
    void copiesAFileAndALink();
    void copiesReadOnlyDirectories();
    void copiesOverNothing();
    void copyingIntoItselfFails();
    void copyingAPipeFails();
    void copyingToAFullDiskFails();

    void movesOverAFile();
    void removesATree();
    void removingFollowsNoLink();
    void removesReadOnlyDirectories();
    void removingWhatIsNotThereFails();
    void removingFromAReadOnlyDirectoryFails();
    void handlesOddNames_data();
    void handlesOddNames();

private:
    [[nodiscard]] FileURL at(const QString &name) const { return m_root.appendingFile(name); }
    [[nodiscard]] FileURL below(const FileURL &directory, const char *name) const
    {
        return directory.appendingFile(QString::fromLatin1(name));
    }
    [[nodiscard]] bool mountSmallDisk(const FileURL &directory) const;

    const PosixFileSystem m_files{};
    std::optional<QTemporaryDir> m_directory{};
    FileURL m_root{};
};

void PosixFileSystemTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_directory.emplace();
    QVERIFY(Unprivileged::handOver(m_directory->path()));
    m_root = FileURL::directory(m_directory->path());
}

void PosixFileSystemTest::cleanup()
{
    for (const FileURL &url : m_files.contents(m_root)) // QTemporaryDir cannot remove every name
        m_files.remove(url);
    m_directory.reset();
}

// A disk of 256 KB that only this process sees. False where that is not allowed.
bool PosixFileSystemTest::mountSmallDisk(const FileURL &directory) const
{
    m_files.createDirectories(directory);
    return ::unshare(CLONE_NEWNS) == 0
        && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
        && ::mount("none", directory.nativePath().constData(), "tmpfs", 0, "size=256k") == 0;
}

void PosixFileSystemTest::tellsWhatIsThere()
{
    m_files.writeAtomically(at(QStringLiteral("file")), "x");
    m_files.createDirectories(at(QStringLiteral("directory")));
    QVERIFY(makeLink("file", at(QStringLiteral("link"))));
    QVERIFY(makeLink("directory", at(QStringLiteral("link to directory"))));
    QVERIFY(makeLink("nowhere", at(QStringLiteral("dangling"))));
    QVERIFY(m_files.exists(at(QStringLiteral("file"))));
    QVERIFY(m_files.exists(at(QStringLiteral("link"))));
    QVERIFY(!m_files.exists(at(QStringLiteral("dangling"))));
    QVERIFY(m_files.isOccupied(at(QStringLiteral("dangling"))));
    QVERIFY(!m_files.isOccupied(at(QStringLiteral("nowhere"))));
    QVERIFY(!m_files.exists(at(QStringLiteral("file/below"))));
    QVERIFY(m_files.isDirectory(at(QStringLiteral("directory"))));
    QVERIFY(m_files.isDirectory(at(QStringLiteral("link to directory"))));
    QVERIFY(!m_files.isDirectory(at(QStringLiteral("file"))));
    QVERIFY(m_files.isDirectoryItself(at(QStringLiteral("directory"))));
    QVERIFY(!m_files.isDirectoryItself(at(QStringLiteral("link to directory"))));
    QVERIFY(!m_files.isDirectoryItself(at(QStringLiteral("link to directory/"))));
    QVERIFY(!m_files.isDirectoryItself(at(QStringLiteral("file"))));
    QVERIFY(!m_files.isDirectoryItself(at(QStringLiteral("nowhere"))));
}

void PosixFileSystemTest::followsLinksToWhatIsThere()
{
    const FileURL root = m_files.resolved(m_root); // where tests keep their files may be a link
    const FileURL directory = root.appendingNative("bad \xff", true);
    m_files.createDirectories(directory);
    m_files.writeAtomically(directory.appendingFile(QStringLiteral("file")), "x");
    QVERIFY(makeLink("bad \xff", at(QStringLiteral("first"))));
    QVERIFY(makeLink("first", at(QStringLiteral("second"))));
    QVERIFY(makeLink("nowhere", at(QStringLiteral("dangling"))));
    QCOMPARE(m_files.resolved(at(QStringLiteral("second"))), directory);
    QCOMPARE(m_files.resolved(at(QStringLiteral("second/file"))),
             directory.appendingFile(QStringLiteral("file")));
    QCOMPARE(m_files.resolved(at(QStringLiteral("dangling"))), at(QStringLiteral("dangling")));
    const FileURL top = FileURL::directory(QStringLiteral("/"));
    QCOMPARE(m_files.resolved(top), top);
}

void PosixFileSystemTest::listsHiddenNamesToo()
{
    for (const char *name : {"a", ".hidden", "b c"})
        m_files.writeAtomically(below(m_root, name), "");
    m_files.createDirectories(below(m_root, "d.app"));
    QVERIFY(makeLink("d.app", below(m_root, "link")));
    QStringList texts;
    for (const FileURL &url : m_files.contents(m_root))
        texts.append(url.text().sliced(m_root.text().size()));
    texts.sort();
    QCOMPARE(texts,
             (QStringList{QStringLiteral(".hidden"), QStringLiteral("a"), QStringLiteral("b%20c"),
                          QStringLiteral("d.app/"), QStringLiteral("link")}));
}

void PosixFileSystemTest::listsOnlyVisibleEntries()
{
    m_files.writeAtomically(below(m_root, ".hidden"), "");
    m_files.createDirectories(below(m_root, "d.app"));
    QVERIFY(makeLink("d.app", below(m_root, "link")));
    m_files.writeAtomically(m_root.appendingNative("bad \xff", false), "");
    QList<DirectoryEntry> entries = m_files.visibleEntries(m_root);
    std::ranges::sort(entries, {}, &DirectoryEntry::name);
    QCOMPARE(entries,
             (QList<DirectoryEntry>{{.name = QStringLiteral("d.app"), .isDirectory = true},
                                    {.name = QStringLiteral("link"), .isDirectory = false}}));
}

void PosixFileSystemTest::listingNamesTheReason()
{
    const FileURL missing = at(QStringLiteral("missing"));
    const QString text = refusal([&] { static_cast<void>(m_files.contents(missing)); });
    QCOMPARE(text,
             QStringLiteral("Could not list “%1”: No such file or directory").arg(missing.path()));
    m_files.writeAtomically(missing, "");
    QVERIFY(refusal([&] {
                static_cast<void>(m_files.visibleEntries(missing));
            }).endsWith(QStringLiteral("Not a directory")));
}

void PosixFileSystemTest::readsFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("NUL bytes") << QByteArray("a\0b", 3);
    QTest::newRow("large") << QByteArray(5'000'000, 'x');
}

void PosixFileSystemTest::readsFiles()
{
    QFETCH(QByteArray, bytes);
    m_files.writeAtomically(at(QStringLiteral("f")), bytes);
    QCOMPARE(m_files.read(at(QStringLiteral("f"))), bytes);
}

void PosixFileSystemTest::readingNamesTheReason()
{
    QVERIFY(refusal([&] {
                static_cast<void>(m_files.read(m_root));
            }).endsWith(QStringLiteral("Is a directory")));
    QVERIFY(refusal([&] {
                static_cast<void>(m_files.read(at(QStringLiteral("missing"))));
            }).endsWith(QStringLiteral("No such file or directory")));
    const FileURL pipe = at(QStringLiteral("pipe"));
    QVERIFY(::mkfifo(pipe.nativePath().constData(), 0600) == 0);
    QVERIFY(!refusal([&] { static_cast<void>(m_files.read(pipe)); }).isEmpty());
    // Without a size of its own.
    QVERIFY(m_files.read(FileURL::file(QStringLiteral("/proc/self/status"))).contains("Name:"));
}

void PosixFileSystemTest::identityChangesWithTheFile()
{
    const FileURL file = at(QStringLiteral("f"));
    QVERIFY(!m_files.identity(file));
    m_files.writeAtomically(file, "one");
    const auto first = m_files.identity(file);
    QVERIFY(first);
    QCOMPARE(m_files.identity(file), first);
    QCOMPARE(first->size, 3);
    QVERIFY(makeLink("f", at(QStringLiteral("link"))));
    QCOMPARE(m_files.identity(at(QStringLiteral("link"))), first);
    m_files.writeAtomically(file, "two");
    QVERIFY(m_files.identity(file) != first);
}

void PosixFileSystemTest::urlsThatNameNoFileAreErrors()
{
    for (const QString &text : {QStringLiteral("https://example.com/etc"), QStringLiteral("/etc"),
                                QStringLiteral("file:///etc%00/x"), QStringLiteral("file:etc")}) {
        const FileURL url = FileURL::fromText(text).value();
        QVERIFY(!m_files.exists(url));
        QVERIFY(!m_files.isOccupied(url));
        QVERIFY(!m_files.isDirectory(url));
        QVERIFY(!m_files.isDirectoryItself(url));
        QCOMPARE(m_files.resolved(url), url);
        QVERIFY(!m_files.identity(url));
        QVERIFY(!refusal([&] { static_cast<void>(m_files.contents(url)); }).isEmpty());
        QVERIFY(!refusal([&] { m_files.writeAtomically(url, "x"); }).isEmpty());
        QVERIFY(!refusal([&] { m_files.remove(url); }).isEmpty());
        QVERIFY(!refusal([&] { m_files.copy(m_root, url); }).isEmpty());
    }
    QVERIFY(!m_files.exists(FileURL()));
}

void PosixFileSystemTest::writesPiecesInOrder()
{
    QList<QByteArray> bytes;
    QByteArray expected;
    for (int i = 0; i < 1000; ++i) {
        bytes.append(i % 3 == 0 ? QByteArray() : QByteArray::number(i).repeated(i));
        expected += bytes.constLast();
    }
    const std::vector<QByteArrayView> pieces(bytes.cbegin(), bytes.cend());
    m_files.writeAtomically(at(QStringLiteral("f")), pieces);
    QCOMPARE(m_files.read(at(QStringLiteral("f"))), expected);
    m_files.writeAtomically(at(QStringLiteral("f")), std::span<const QByteArrayView>());
    QCOMPARE(m_files.read(at(QStringLiteral("f"))), QByteArray());
}

void PosixFileSystemTest::writingReplacesTheWholeFile()
{
    const FileURL file = at(QStringLiteral("f"));
    m_files.writeAtomically(file, "a long first text");
    QFile reader(file.path());
    QVERIFY(reader.open(QIODevice::ReadOnly));
    m_files.writeAtomically(file, "short");
    QCOMPARE(m_files.read(file), QByteArray("short"));
    QCOMPARE(reader.readAll(), QByteArray("a long first text"));
    QCOMPARE(m_files.contents(m_root).size(), 1);
}

void PosixFileSystemTest::writingKeepsTheMode()
{
    const FileURL file = at(QStringLiteral("f"));
    m_files.writeAtomically(file, "x");
    for (const mode_t mode : {0640U, 0755U, 0444U}) {
        QVERIFY(setMode(file, mode));
        m_files.writeAtomically(file, "y");
        QCOMPARE(modeOf(file), mode);
    }
}

void PosixFileSystemTest::writingHonoursTheMask()
{
    const mode_t before = ::umask(027);
    m_files.writeAtomically(at(QStringLiteral("f")), "x");
    ::umask(before);
    QCOMPARE(modeOf(at(QStringLiteral("f"))), mode_t{0640});
}

void PosixFileSystemTest::writingFollowsLinks()
{
    m_files.createDirectories(at(QStringLiteral("d")));
    QVERIFY(makeLink("second", at(QStringLiteral("first"))));
    QVERIFY(makeLink("d/target", at(QStringLiteral("second"))));
    m_files.writeAtomically(at(QStringLiteral("first")), "new"); // its target is not there yet
    m_files.writeAtomically(at(QStringLiteral("first")), "newer");
    QCOMPARE(linkText(at(QStringLiteral("first"))), QByteArray("second"));
    QCOMPARE(m_files.read(at(QStringLiteral("d/target"))), QByteArray("newer"));
    QCOMPARE(m_files.contents(at(QStringLiteral("d"))).size(), 1);
}

void PosixFileSystemTest::writingThroughALinkRingFails()
{
    QVERIFY(makeLink("b", at(QStringLiteral("a"))));
    QVERIFY(makeLink("a", at(QStringLiteral("b"))));
    QVERIFY(!refusal([&] { m_files.writeAtomically(at(QStringLiteral("a")), "x"); }).isEmpty());
    QCOMPARE(m_files.contents(m_root).size(), 2);
}

void PosixFileSystemTest::writingOverADirectoryFails()
{
    m_files.createDirectories(at(QStringLiteral("d")));
    QVERIFY(refusal([&] { m_files.writeAtomically(at(QStringLiteral("d")), "x"); })
                .startsWith(
                    QStringLiteral("Could not write “%1”: ").arg(at(QStringLiteral("d")).path())));
    QCOMPARE(m_files.contents(m_root).size(), 1);
}

void PosixFileSystemTest::writingIntoAReadOnlyDirectoryFails()
{
    const FileURL directory = at(QStringLiteral("d"));
    const FileURL file = below(directory, "f");
    m_files.createDirectories(directory);
    m_files.writeAtomically(file, "old");
    QVERIFY(Unprivileged::handOver(file.path()));
    QVERIFY(Unprivileged::handOver(directory.path()));
    QVERIFY(setMode(directory, 0555));
    {
        const Unprivileged user;
        QVERIFY(user.isInForce());
        QVERIFY(refusal([&] {
                    m_files.writeAtomically(file, "new");
                }).endsWith(QStringLiteral("Permission denied")));
    }
    QCOMPARE(m_files.read(file), QByteArray("old"));
    QVERIFY(setMode(directory, 0755));
}

void PosixFileSystemTest::writingToAFullDiskKeepsTheOldFile()
{
    const FileURL disk = at(QStringLiteral("disk"));
    const int result = inChild([&] {
        if (!mountSmallDisk(disk))
            return 77;
        const FileURL file = below(disk, "f");
        m_files.writeAtomically(file, "old");
        const QString text
            = refusal([&] { m_files.writeAtomically(file, QByteArray(1'000'000, 'x')); });
        const bool isWhole = m_files.read(file) == "old" && m_files.contents(disk).size() == 1;
        return isWhole && text.endsWith(QStringLiteral("No space left on device")) ? 0 : 1;
    });
    if (result == 77)
        QSKIP("no right to mount a small disk here");
    QCOMPARE(result, 0);
}

void PosixFileSystemTest::writingBeyondTheLimitKeepsTheOldFile()
{
    const FileURL file = at(QStringLiteral("f"));
    m_files.writeAtomically(file, "old");
    const int result = inChild([&] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{.rlim_cur = 100'000, .rlim_max = 100'000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const QString text
            = refusal([&] { m_files.writeAtomically(file, QByteArray(1'000'000, 'x')); });
        return text.endsWith(QStringLiteral("File too large")) ? 0 : 1;
    });
    QCOMPARE(result, 0);
    QCOMPARE(m_files.read(file), QByteArray("old"));
    QCOMPARE(m_files.contents(m_root).size(), 1);
}

void PosixFileSystemTest::killedWritersLeaveWholeFilesAndNoHeap()
{
    const FileURL file = at(QStringLiteral("f"));
    m_files.writeAtomically(file, QByteArray(300'000, 'a'));
    QRandomGenerator random(1);
    for (int round = 0; round < 100; ++round) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;) {
                for (const char letter : {'b', 'c'})
                    m_files.writeAtomically(file, QByteArray(300'000, letter));
            }
        }
        QTest::qSleep(random.bounded(1, 8));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const QByteArray bytes = m_files.read(file);
        QCOMPARE(bytes, QByteArray(300'000, bytes.front()));
        QVERIFY(m_files.contents(m_root).size() <= 2);
    }
    m_files.writeAtomically(file, "x");
    QCOMPARE(m_files.contents(m_root).size(), 1);
}

void PosixFileSystemTest::writersDoNotDisturbEachOther()
{
    const FileURL file = at(QStringLiteral("f"));
    std::atomic<int> failures = 0;
    const auto write = [&](char letter) {
        for (int i = 0; i < 200; ++i) {
            const QString text
                = refusal([&] { m_files.writeAtomically(file, QByteArray(100'000, letter)); });
            failures += text.isEmpty() ? 0 : 1;
        }
    };
    std::thread first(write, 'a');
    std::thread second(write, 'b');
    write('c');
    first.join();
    second.join();
    QCOMPARE(failures.load(), 0);
    const QByteArray bytes = m_files.read(file);
    QCOMPARE(bytes, QByteArray(100'000, bytes.front()));
    QCOMPARE(m_files.contents(m_root).size(), 1);
}

void PosixFileSystemTest::createsMissingDirectories()
{
    const FileURL deep = FileURL::directory(m_root.path() + QStringLiteral("/a b/c/d"));
    m_files.createDirectories(deep);
    QVERIFY(m_files.isDirectory(deep));
    m_files.createDirectories(deep);
    QVERIFY(makeLink("a b", at(QStringLiteral("link"))));
    m_files.createDirectories(at(QStringLiteral("link/e")));
    QVERIFY(m_files.isDirectory(at(QStringLiteral("a b/e"))));
}

void PosixFileSystemTest::creatingBelowAFileFails()
{
    m_files.writeAtomically(at(QStringLiteral("file")), "");
    QVERIFY(refusal([&] {
                m_files.createDirectories(at(QStringLiteral("file")));
            }).endsWith(QStringLiteral("File exists")));
    QVERIFY(!refusal([&] { m_files.createDirectories(at(QStringLiteral("file/d"))); }).isEmpty());
    QVERIFY(makeLink("nowhere", at(QStringLiteral("dangling"))));
    QVERIFY(!refusal([&] { m_files.createDirectories(at(QStringLiteral("dangling"))); }).isEmpty());
}

void PosixFileSystemTest::copiesATreeExactly()
{
    const FileURL from = at(QStringLiteral("from"));
    const FileURL to = at(QStringLiteral("to"));
    m_files.createDirectories(below(from, "empty"));
    m_files.createDirectories(below(from, "a/b"));
    m_files.writeAtomically(below(from, "a/big"), QByteArray(3'000'000, 'x'));
    m_files.writeAtomically(below(from, "a/b/tool"), "#!/bin/sh\n");
    m_files.writeAtomically(below(from, "a/none"), "");
    QVERIFY(setMode(below(from, "a/b/tool"), 04755));
    QVERIFY(setMode(below(from, "a/none"), 0400));
    QVERIFY(setMode(below(from, "a/b"), 0700));
    const QList<std::pair<const char *, QByteArray>> links{
        {"relative", "a/b/../big"}, {"absolute", "/usr/bin/../bin"}, {"dangling", "nowhere/at all"},
        {"directory", "a"},         {"long", QByteArray(3000, 'l')}, {"not text", "\xff\xfe"}};
    for (const auto &[name, text] : links) {
        QVERIFY(makeLink(text, below(from, name)));
        QVERIFY(setOldTime(below(from, name)));
    }
    const bool hasAttributes
        = ::setxattr(below(from, "a/big").nativePath().constData(), "user.colour", "red", 3, 0)
        == 0;
    for (const char *name : {"a/big", "a/b", "a", "empty"})
        QVERIFY(setOldTime(below(from, name)));

    m_files.copy(from, to);
    for (const auto &[name, text] : links) {
        QCOMPARE(linkText(below(to, name)), text);
        QVERIFY2(hasOldTime(below(to, name)), name);
    }
    for (const char *name : {"a/big", "a/b", "a", "empty"})
        QVERIFY2(hasOldTime(below(to, name)), name);
    for (const char *name : {"a/big", "a/b/tool", "a/none"}) {
        QCOMPARE(m_files.read(below(to, name)), m_files.read(below(from, name)));
        QCOMPARE(modeOf(below(to, name)), modeOf(below(from, name)));
    }
    QCOMPARE(modeOf(below(to, "a/b")), mode_t{0700});
    QVERIFY(m_files.contents(below(to, "empty")).isEmpty());
    QCOMPARE(m_files.contents(to).size(), m_files.contents(from).size());
    if (!hasAttributes)
        QSKIP("no extended attributes on this volume");
    QByteArray colour(10, '\0');
    QCOMPARE(
        ::getxattr(below(to, "a/big").nativePath().constData(), "user.colour", colour.data(), 10),
        3);
    QCOMPARE(colour.first(3), QByteArray("red"));
}

void PosixFileSystemTest::copiesAFileAndALink()
{
    m_files.writeAtomically(at(QStringLiteral("f")), "x");
    QVERIFY(makeLink("f", at(QStringLiteral("l"))));
    m_files.copy(at(QStringLiteral("f")), at(QStringLiteral("f2")));
    m_files.copy(at(QStringLiteral("l")), at(QStringLiteral("l2")));
    QCOMPARE(m_files.read(at(QStringLiteral("f2"))), QByteArray("x"));
    QCOMPARE(linkText(at(QStringLiteral("l2"))), QByteArray("f"));
}

void PosixFileSystemTest::copiesReadOnlyDirectories()
{
    const FileURL from = at(QStringLiteral("from"));
    const FileURL inner = below(from, "inner");
    m_files.createDirectories(inner);
    m_files.writeAtomically(below(inner, "f"), "x");
    for (const FileURL &url : {below(inner, "f"), inner, from})
        QVERIFY(Unprivileged::handOver(url.path()));
    QVERIFY(setMode(inner, 0555));
    {
        const Unprivileged user;
        QVERIFY(user.isInForce());
        m_files.copy(from, at(QStringLiteral("to")));
        QCOMPARE(modeOf(at(QStringLiteral("to/inner"))), mode_t{0555});
        QCOMPARE(m_files.read(at(QStringLiteral("to/inner/f"))), QByteArray("x"));
        m_files.remove(at(QStringLiteral("to")));
    }
    QVERIFY(!m_files.isOccupied(at(QStringLiteral("to"))));
}

void PosixFileSystemTest::copiesOverNothing()
{
    m_files.writeAtomically(at(QStringLiteral("f")), "new");
    m_files.createDirectories(at(QStringLiteral("d")));
    m_files.writeAtomically(at(QStringLiteral("old")), "old");
    QVERIFY(makeLink("nowhere", at(QStringLiteral("dangling"))));
    for (const QString &from : {QStringLiteral("f"), QStringLiteral("d")}) {
        for (const QString &to : {QStringLiteral("old"), QStringLiteral("dangling")})
            QVERIFY(refusal([&] {
                        m_files.copy(at(from), at(to));
                    }).endsWith(QStringLiteral("File exists")));
    }
    QCOMPARE(m_files.read(at(QStringLiteral("old"))), QByteArray("old"));
    QVERIFY(
        refusal([&] { m_files.copy(at(QStringLiteral("missing")), at(QStringLiteral("x"))); })
            .startsWith(
                QStringLiteral("Could not copy “%1”").arg(at(QStringLiteral("missing")).path())));
}

void PosixFileSystemTest::copyingIntoItselfFails()
{
    const FileURL from = at(QStringLiteral("d"));
    m_files.createDirectories(below(from, "x"));
    QVERIFY(!refusal([&] { m_files.copy(from, below(from, "x/y")); }).isEmpty());
    QVERIFY(m_files.contents(below(from, "x")).isEmpty());
    m_files.copy(from, at(QStringLiteral("d2"))); // a name that only begins the same
    QVERIFY(m_files.isDirectory(at(QStringLiteral("d2/x"))));
}

void PosixFileSystemTest::copyingAPipeFails()
{
    m_files.createDirectories(at(QStringLiteral("d")));
    QVERIFY(::mkfifo(at(QStringLiteral("d/pipe")).nativePath().constData(), 0600) == 0);
    QVERIFY(refusal([&] {
                m_files.copy(at(QStringLiteral("d")), at(QStringLiteral("d2")));
            }).contains(QStringLiteral("/d/pipe”")));
}

void PosixFileSystemTest::copyingToAFullDiskFails()
{
    const FileURL disk = at(QStringLiteral("disk"));
    m_files.writeAtomically(at(QStringLiteral("big")), QByteArray(1'000'000, 'x'));
    const int result = inChild([&] {
        if (!mountSmallDisk(disk))
            return 77;
        const QString text
            = refusal([&] { m_files.copy(at(QStringLiteral("big")), below(disk, "big")); });
        return text.endsWith(QStringLiteral("No space left on device")) ? 0 : 1;
    });
    if (result == 77)
        QSKIP("no right to mount a small disk here");
    QCOMPARE(result, 0);
}

void PosixFileSystemTest::movesOverAFile()
{
    m_files.writeAtomically(at(QStringLiteral("a")), "new");
    m_files.writeAtomically(at(QStringLiteral("b")), "old");
    m_files.move(at(QStringLiteral("a")), at(QStringLiteral("b")));
    QCOMPARE(m_files.read(at(QStringLiteral("b"))), QByteArray("new"));
    QVERIFY(!m_files.exists(at(QStringLiteral("a"))));
    QVERIFY(!refusal([&] {
                 m_files.move(at(QStringLiteral("a")), at(QStringLiteral("c")));
             }).isEmpty());
}

void PosixFileSystemTest::removesATree()
{
    m_files.createDirectories(at(QStringLiteral("d/e/f")));
    for (int i = 0; i < 300; ++i)
        m_files.writeAtomically(at(QStringLiteral("d/e/%1").arg(i)), "");
    m_files.remove(FileURL::directory(at(QStringLiteral("d")).path()));
    QVERIFY(m_files.contents(m_root).isEmpty());
}

void PosixFileSystemTest::removingFollowsNoLink()
{
    m_files.createDirectories(at(QStringLiteral("kept/inside")));
    m_files.createDirectories(at(QStringLiteral("d")));
    QVERIFY(makeLink("../kept", at(QStringLiteral("d/link"))));
    QVERIFY(makeLink("kept", at(QStringLiteral("link"))));
    m_files.remove(at(QStringLiteral("d")));
    m_files.remove(FileURL::directory(at(QStringLiteral("link")).path()));
    QVERIFY(m_files.isDirectory(at(QStringLiteral("kept/inside"))));
    QCOMPARE(m_files.contents(m_root).size(), 1);
}

void PosixFileSystemTest::removesReadOnlyDirectories()
{
    const FileURL directory = at(QStringLiteral("d"));
    m_files.createDirectories(below(directory, "closed/inner"));
    m_files.writeAtomically(below(directory, "closed/inner/f"), "");
    for (const char *name : {"closed/inner/f", "closed/inner", "closed"})
        QVERIFY(Unprivileged::handOver(below(directory, name).path()));
    QVERIFY(Unprivileged::handOver(directory.path()));
    QVERIFY(setMode(below(directory, "closed/inner"), 0555));
    QVERIFY(setMode(below(directory, "closed"), 0000));
    const Unprivileged user;
    QVERIFY(user.isInForce());
    m_files.remove(directory);
    QVERIFY(!m_files.isOccupied(directory));
}

void PosixFileSystemTest::removingWhatIsNotThereFails()
{
    QVERIFY(refusal([&] {
                m_files.remove(at(QStringLiteral("missing")));
            }).endsWith(QStringLiteral("No such file or directory")));
}

void PosixFileSystemTest::removingFromAReadOnlyDirectoryFails()
{
    const FileURL directory = at(QStringLiteral("d"));
    m_files.createDirectories(below(directory, "inner"));
    QVERIFY(Unprivileged::handOver(directory.path()));
    QVERIFY(setMode(directory, 0555));
    {
        const Unprivileged user;
        QVERIFY(user.isInForce());
        QVERIFY(refusal([&] {
                    m_files.remove(below(directory, "inner"));
                }).endsWith(QStringLiteral("Permission denied")));
    }
    QVERIFY(m_files.exists(below(directory, "inner")));
    QVERIFY(setMode(directory, 0755));
}

void PosixFileSystemTest::handlesOddNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isPossible");
    QTest::newRow("emoji") << QByteArray("\xf0\x9f\x98\x80.app") << true;
    QTest::newRow("decomposed accent") << QByteArray("e\xcc\x81") << true;
    QTest::newRow("line feed") << QByteArray("a\nb") << true;
    QTest::newRow("percent and question mark") << QByteArray("100%? #;") << true;
    QTest::newRow("no UTF-8") << QByteArray("\xff\xfe x") << true;
    QTest::newRow("255 bytes") << QByteArray(255, 'x') << true;
    QTest::newRow("300 bytes") << QByteArray(300, 'x') << false;
    QTest::newRow("dots") << QByteArray("...") << true;
}

void PosixFileSystemTest::handlesOddNames()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, isPossible);
    const FileURL url = m_root.appendingNative(name, false);
    if (!isPossible) {
        QVERIFY(refusal([&] {
                    m_files.writeAtomically(url, "x");
                }).endsWith(QStringLiteral("File name too long")));
        QVERIFY(refusal([&] {
                    m_files.createDirectories(url);
                }).endsWith(QStringLiteral("File name too long")));
        QVERIFY(!m_files.exists(url));
        QVERIFY(m_files.contents(m_root).isEmpty());
        return;
    }
    m_files.writeAtomically(url, "x");
    QCOMPARE(m_files.contents(m_root), QList<FileURL>{url});
    m_files.copy(m_root, FileURL::file(m_directory->path() + QStringLiteral(" copy")));
    const FileURL copied = FileURL::directory(m_directory->path() + QStringLiteral(" copy"));
    const bool isCopied = m_files.exists(copied.appendingNative(name, false));
    m_files.remove(copied);
    QVERIFY(isCopied);
    m_files.remove(url);
    QVERIFY(m_files.contents(m_root).isEmpty());
}

QTEST_GUILESS_MAIN(PosixFileSystemTest)
#include "tst_posixfilesystem.moc"
