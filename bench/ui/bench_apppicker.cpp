#include "bench/monotonic.h"
#include "bench/ratios.h"
#include "bench/require.h"
#include "bench/ui/settle.h"
#include "tests/fakes/fakeworkspace.h"
#include "tests/ui/itemtree.h"
#include "ui/applicationscan.h"
#include "ui/picturestore.h"
#include "ui/windowengine.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRandomGenerator>
#include <QTextLayout>

#include <algorithm>

namespace {

constexpr int applicationCount = 5000;

const QByteArray windowText = R"(
    import QtQuick
    import QtQuick.Templates as T
    import Nestlet.Companion

    T.ApplicationWindow {
        id: root
        required property ApplicationScan scan
        width: 1060
        height: 800
        visible: true

        Loader {
            sourceComponent: AppPickerSheet {
                scan: root.scan
            }
        }
    }
)";

// One or two words of a few syllables and a number, so that every search finds some.
QStringList applicationNames()
{
    static const QStringList syllables
        = QStringLiteral(
              "dra wing pho to edi tor ma ni cal ter mi nal über sicht mö we sé lec tion "
              "key note chess mail box scan ner studio pro web kit")
              .split(u' ');
    QRandomGenerator random(5000);
    QStringList names;
    for (int number = 0; number < applicationCount; ++number) {
        QString name;
        for (int more = 2 + random.bounded(4); more > 0; --more)
            name += syllables.at(random.bounded(static_cast<int>(syllables.size())));
        names.append(QStringLiteral("%1 %2").arg(name).arg(number));
    }
    names.sort();
    return names;
}

QList<FileURL> applicationURLs(const QStringList &names)
{
    QList<FileURL> urls;
    for (const QString &name : names)
        urls.append(FileURL::directory(QStringLiteral("/Applications/%1.app").arg(name)));
    return urls;
}

/// What the cells in view say, and in which space.
struct NamesInView {
    QStringList names{};
    QFont font{};
    double width{};
};

// What no toolkit can do without to show other names in the cells.
void layOut(const NamesInView &inView)
{
    constexpr int mostLines = 2;
    for (const QString &name : inView.names) {
        QTextLayout layout(name, inView.font);
        layout.beginLayout();
        for (int count = 0; count < mostLines; ++count) {
            if (QTextLine line = layout.createLine(); line.isValid())
                line.setLineWidth(inView.width);
        }
        layout.endLayout();
    }
}

/// The open sheet over 5,000 applications, in a window of its own.
class Sheet {
public:
    explicit Sheet(const QList<FileURL> &applications)
        : m_scan([applications] { return applications; })
    {
        addPictureProviders(m_engine, m_workspace, m_pictures);
        addWindowTypes(m_engine);
        m_engine.setInitialProperties({{QStringLiteral("scan"), QVariant::fromValue(&m_scan)}});
        m_engine.loadData(windowText);
        require(!m_engine.rootObjects().isEmpty(), "there is no window");
        m_window = qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst());
        m_window->requestActivate();
        QObject::connect(m_window, &QQuickWindow::frameSwapped, [this] { ++m_frames; });
        settle(openingTime);
        m_field = childNamed(m_window->contentItem(), "appSearchField");
        m_grid = childNamed(m_window->contentItem(), "appGrid");
        require(m_field && m_field->hasActiveFocus(), "the search has no focus");
        require(m_grid && count() == applicationCount, "the applications are not shown");
    }

    [[nodiscard]] NamesInView namesInView() const
    {
        NamesInView inView;
        for (QQuickItem *cell :
             m_grid->property("contentItem").value<QQuickItem *>()->childItems()) {
            const QQuickItem *text = shownText(cell, cell->property("name").toString());
            if (!text)
                continue;
            inView.names.append(text->property("text").toString());
            inView.font = text->property("font").value<QFont>();
            inView.width = text->width();
        }
        return inView;
    }

    [[nodiscard]] int count() const { return m_grid->property("count").toInt(); }

    void search(const QString &text)
    {
        m_field->setProperty("text", text);
        settle(searchTime);
    }

    /// A keystroke, up to the grid whose cells are made, filled and placed.
    void type(QChar character)
    {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QCoreApplication::sendEvent(m_window, &press);
        m_grid->ensurePolished();
    }

    /// A keystroke, up to the painted frame. Returns the time that the thread works for it.
    [[nodiscard]] double typeAndPaint(QChar character)
    {
        const double begin = monotonicSeconds(CLOCK_THREAD_CPUTIME_ID);
        type(character);
        for (const int frames = m_frames; m_frames == frames;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return monotonicSeconds(CLOCK_THREAD_CPUTIME_ID) - begin;
    }

private:
    static constexpr int openingTime = 1000; // the sheet's motion, and the icons
    static constexpr int searchTime = 30;

    FakeWorkspace m_workspace;
    PictureStore m_pictures;
    ApplicationScan m_scan;
    QQmlApplicationEngine m_engine;
    QQuickWindow *m_window = nullptr;
    QQuickItem *m_field = nullptr;
    QQuickItem *m_grid = nullptr;
    int m_frames = 0;
};

qsizetype countByContains(const QStringList &names, const QString &text)
{
    return std::ranges::count_if(
        names, [&](const QString &name) { return name.contains(text, Qt::CaseInsensitive); });
}

Work keystrokeWork(Sheet &sheet, const ApplicationFilter &filter, const QStringList &names,
                   const QString &text)
{
    sheet.search(text);
    require(sheet.count() == filter.matches(text).size(), "the sheet finds something else");
    return {
        .name = "Type the last letter of “" + text.toStdString() + "”, 5,000 applications",
        .ours = {.name = "to the placed grid",
                 .run = [&sheet, text] { sheet.type(text.back()); },
                 .prepare = [&sheet, text] { sheet.search(text.chopped(1)); }},
        .references
        = {{.variant = {"the filter alone",
                        [&filter, text] { benchmark::DoNotOptimize(filter.matches(text)); }},
            .timesLonger = 3},
           {.variant = {"the filter, and the names in view laid out",
                        [&filter, text, inView = sheet.namesInView()] {
                            benchmark::DoNotOptimize(filter.matches(text));
                            layOut(inView);
                        }}},
           {.variant = {"the filter alone, by QString::contains",
                        [&names, text] { benchmark::DoNotOptimize(countByContains(names, text)); }},
            .timesLonger = 3}},
        .rounds = 25,
        .timing = Timing::ProcessorTime};
}

double framesPerKeystroke(Sheet &sheet, const QString &text)
{
    constexpr double frame = 1.0 / 60;
    std::vector<double> times;
    for (int round = 0; round < 15; ++round) {
        sheet.search(text.chopped(1));
        times.push_back(sheet.typeAndPaint(text.back()) / frame);
    }
    return median(times);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(argc, argv);
    const QStringList names = applicationNames();
    const QList<FileURL> urls = applicationURLs(names);
    const ApplicationFilter filter(urls);
    Sheet sheet(urls);

    // Each finds others than with a letter less; the last finds none.
    const QStringList texts{QStringLiteral("a"), QStringLiteral("ma"), QStringLiteral("t!")};
    Ratios ratios;
    for (const QString &text : texts)
        ratios.add(keystrokeWork(sheet, filter, names, text));
    for (const QString &text : texts) {
        ratios.addFigure("Frames of 1/60 s for “" + text.toStdString() + "”, painting included", 1,
                         [&sheet, text] { return framesPerKeystroke(sheet, text); });
    }
    return ratios.run(argc, argv);
}
