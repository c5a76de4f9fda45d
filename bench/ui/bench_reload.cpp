// What the window takes, beyond the decoding, to show a folder that another program has changed.

#include "bench/monotonic.h"
#include "bench/ratios.h"
#include "bench/require.h"
#include "bench/ui/companionwindow.h"
#include "bench/ui/librarymac.h"
#include "bench/ui/settle.h"
#include "model/libraryfile.h"
#include "platform/directories.h"
#include "platform/filesystem.h"
#include "tests/ui/itemtree.h"

#include <QGuiApplication>
#include <QQuickItem>

namespace {

double now()
{
    return monotonicSeconds(CLOCK_THREAD_CPUTIME_ID);
}

QQuickItem *rowNamed(QQuickItem *root, const QString &name)
{
    return descendant(
        root, [&](const QQuickItem *item) { return item->property("name").toString() == name; });
}

template <typename Condition> void waitFor(const Condition &condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// A library of many folders and the window over it.
class Reloading {
public:
    explicit Reloading(int folders)
        : m_mac(folders)
        , m_platform((m_mac.use(), makePlatform()))
        , m_decoding(*m_platform.files, *m_platform.directories)
        , m_writing(*m_platform.files, *m_platform.directories)
        , m_folders(*m_writing.load().folders)
    {
        static_cast<void>(m_decoding.load());
        m_list = m_companion.item("folderList");
        QObject::connect(&m_companion.window(), &QQuickWindow::frameSwapped,
                         [this] { ++m_frames; });
    }

    /// Changes a folder's name in the file; returns the time up to the frame with its changed row,
    /// without that of decoding.
    double measure()
    {
        const QString name = QStringLiteral("Renamed %1").arg(++m_changes);
        m_folders[1].name = name;
        m_writing.save({.folders = m_folders, .selectedFolderID = m_folders.first().id});
        const double decodingBegin = now();
        static_cast<void>(m_decoding.load());
        const double decoding = now() - decodingBegin;

        const double begin = now();
        waitFor(
            [this] { return m_companion.store().folders().at(1).name == m_folders.at(1).name; });
        const int frames = m_frames;
        waitFor([&] { return m_frames > frames; });
        const double whole = now() - begin;
        require(rowNamed(m_list, name), "the row does not change");
        settle(300); // all that comes after it
        return std::max(whole - decoding, 0.0);
    }

private:
    LibraryMac m_mac;
    Platform m_platform;
    LibraryFile m_decoding;
    LibraryFile m_writing;
    QList<DockFolder> m_folders;
    CompanionWindow m_companion;
    QQuickItem *m_list = nullptr;
    int m_changes = 0;
    int m_frames = 0;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    Reloading thousand(1000);
    Reloading ten(10);
    Ratios ratios;
    ratios.add({.name = "Reload with one changed folder, to its row, less decoding",
                .ours = {.name = "1,000 folders", .measure = [&] { return thousand.measure(); }},
                .references
                = {{.variant = {.name = "10 folders", .measure = [&] { return ten.measure(); }},
                    .timesLonger = 3}}});
    return ratios.run(argc, argv);
}
