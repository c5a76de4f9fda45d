// What a frame takes of the main thread while 2,000 items scroll.

#include "bench/monotonic.h"
#include "bench/ratios.h"
#include "bench/require.h"
#include "bench/ui/companionwindow.h"
#include "bench/ui/librarymac.h"
#include "bench/ui/settle.h"

#include <QGuiApplication>
#include <QQuickItem>

#include <algorithm>

namespace {

constexpr int items = 2000;
constexpr int frames = 400;
constexpr double step = 37; // a fast wheel; no row starts twice at the same place of a frame

const QByteArray rectanglesText = R"(
    import QtQuick
    import QtQuick.Templates as T

    T.ApplicationWindow {
        width: 1060
        height: 800
        visible: true

        GridView {
            objectName: "rectangles"
            x: 252
            y: 52
            width: 776
            height: 748
            clip: true
            cellWidth: 110
            cellHeight: 102
            reuseItems: true
            model: 2000

            delegate: Rectangle {
                required property int index

                width: 96
                height: 92
                color: Qt.hsla(index % 7 / 7, 0.5, 0.5, 1)
            }
        }
    }
)";

/// Something in a window that scrolls down, frame by frame.
class Scrolling {
public:
    Scrolling(QQuickWindow &window, QQuickItem *area)
        : m_window(window)
        , m_area(area)
    {
        QObject::connect(&window, &QQuickWindow::frameSwapped, [this] { ++m_frames; });
    }

    /// The 99th percentile of the time that this thread works for a frame, in seconds.
    double measure()
    {
        std::vector<double> times;
        m_area->setProperty("contentY", 0);
        settle(300);
        for (int frame = 1; frame <= frames; ++frame)
            times.push_back(timeOfFrame(frame * step));
        std::ranges::sort(times);
        return times[times.size() * 99 / 100];
    }

private:
    double timeOfFrame(double position)
    {
        const double begin = monotonicSeconds(CLOCK_THREAD_CPUTIME_ID);
        m_area->setProperty("contentY", position);
        for (const int before = m_frames; m_frames == before;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return monotonicSeconds(CLOCK_THREAD_CPUTIME_ID) - begin;
    }

    QQuickWindow &m_window;
    QQuickItem *m_area;
    int m_frames = 0;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const LibraryMac mac(1, items);
    mac.use();
    const QGuiApplication application(argc, argv);

    CompanionWindow companion;
    companion.model().setSelection(companion.model().folders()->folderIDAt(1));
    settle(1000);
    QQuickItem *const area = companion.item("detailScroll");
    require(area->property("contentHeight").toDouble() > frames * step + area->height(),
            "the items are not shown");
    Scrolling ours(companion.window(), area);

    QQmlApplicationEngine engine;
    engine.loadData(rectanglesText);
    require(!engine.rootObjects().isEmpty(), "there is no grid of rectangles");
    auto *const window = qobject_cast<QQuickWindow *>(engine.rootObjects().constFirst());
    Scrolling rectangles(*window, window->findChild<QQuickItem *>(QStringLiteral("rectangles")));

    Ratios ratios;
    ratios.add({.name = "A frame while 2,000 items scroll, 99th percentile",
                .ours = {.name = "the window", .measure = [&] { return ours.measure(); }},
                .references = {{.variant = {.name = "a grid of plain rectangles",
                                            .measure = [&] { return rectangles.measure(); }},
                                .timesLonger = 3}},
                .rounds = 9});
    return ratios.run(argc, argv);
}
