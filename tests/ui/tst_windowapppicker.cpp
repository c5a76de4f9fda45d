#include "tests/ui/windowfixture.h"
#include "ui/windowengine.h"

#include <QQmlComponent>
#include <QSemaphore>

namespace {

// The sheet as the detail opens it, from a button that has the focus.
const QByteArray windowText = R"(
    import QtQuick
    import QtQuick.Templates as T
    import Nestlet.Companion

    T.ApplicationWindow {
        id: root
        required property ApplicationScan scan
        required property list<string> existingURLs
        property var added
        width: 1060
        height: 800
        visible: true

        PushButton {
            id: opener
            objectName: "opener"
            text: "Add Apps"
            onClicked: sheet.active = true
        }
        Loader {
            id: sheet
            objectName: "sheetLoader"
            active: false
            sourceComponent: AppPickerSheet {
                scan: root.scan
                existingURLs: root.existingURLs
                onAddRequested: urls => root.added = urls
                onClosed: sheet.active = false
            }
        }
    }
)";

QString applicationURL(const QString &name)
{
    return FileURL::directory(QStringLiteral("/Applications/%1.app").arg(name)).text();
}

struct PickerFixture : WindowFixture {
    QStringList names{
        QStringLiteral("Calculator"),  QStringLiteral("Calendar"), QStringLiteral("Drawing"),
        QStringLiteral("Mail"),        QStringLiteral("Notes"),    QStringLiteral("Photos"),
        QStringLiteral("Safe Keeper"), QStringLiteral("Terminal"), QStringLiteral("Withdraw")};
    QSemaphore scanGate{1}; ///< a scan takes one and gives it back
    ApplicationScan scan{[this] { return scanned(); }};

    ~PickerFixture() { scanGate.release(); } // for a test that ended before it did

    [[nodiscard]] QList<FileURL> scanned()
    {
        const QSemaphoreReleaser passed((scanGate.acquire(), scanGate));
        QList<FileURL> urls;
        for (const QString &name : std::as_const(names))
            urls.append(FileURL::fromValidText(applicationURL(name)));
        return urls;
    }

    [[nodiscard]] bool openWindow(const QStringList &existing)
    {
        addPictureProviders(engine, workspace, pictures);
        addWindowTypes(engine);
        engine.setInitialProperties({{QStringLiteral("scan"), QVariant::fromValue(&scan)},
                                     {QStringLiteral("existingURLs"), existing}});
        engine.loadData(windowText);
        if (engine.rootObjects().isEmpty())
            return false;
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().first());
        window->requestActivate();
        return QTest::qWaitForWindowActive(window);
    }

    /// Opens the sheet by its button and waits until it shows the applications.
    [[nodiscard]] bool openSheet(const QStringList &existing = {})
    {
        return openWindow(existing) && beginSheet()
            && QTest::qWaitFor([&] { return grid()->property("count").toInt() > 0; });
    }
    [[nodiscard]] bool beginSheet() const
    {
        click(named("opener"));
        return QTest::qWaitFor([&] { return isOpen("appPickerSheet"); });
    }
    [[nodiscard]] bool isClosed() const
    {
        return QTest::qWaitFor([&] { return !named("sheetLoader")->property("active").toBool(); });
    }

    [[nodiscard]] QQuickItem *grid() const { return named("appGrid"); }
    [[nodiscard]] QQuickItem *search() const { return named("appSearchField"); }
    [[nodiscard]] QQuickItem *cell(const QString &name) const
    {
        grid()->ensurePolished();
        return item(QAccessible::CheckBox, name);
    }
    [[nodiscard]] QAccessible::State state(const QString &name) const
    {
        const QAccessibleInterface *found = control(QAccessible::CheckBox, name);
        return found ? found->state() : QAccessible::State();
    }
    [[nodiscard]] QStringList shownNames() const
    {
        grid()->ensurePolished();
        const auto *const apps = grid()->property("model").value<QAbstractListModel *>();
        QStringList shown;
        for (int row = 0; row < apps->rowCount(); ++row)
            shown.append(apps->index(row).data(Qt::UserRole + 1).toString());
        return shown;
    }
    [[nodiscard]] QString currentName() const
    {
        return grid()->property("currentItem").value<QQuickItem *>()->property("name").toString();
    }
    [[nodiscard]] QString searchText() const { return search()->property("text").toString(); }
    [[nodiscard]] QStringList added() const { return window->property("added").toStringList(); }
    [[nodiscard]] bool hasAdded() const { return window->property("added").isValid(); }
};

} // namespace

/// The sheet in which a user picks installed applications.
class WindowAppPickerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void opensUnderTheHeaderWithTheFocusInTheSearch();
    void tellsThatItLoads();
    void closesWhileItLoads();
    void marksWhatIsThereAlready();
    void aClickSelectsAndTakesBack();
    void aClickBesideTheCellsDoesNothing();
    void addsTheSelectedOnes();
    void theAddButtonNeedsASelection();
    void cancellingAddsNothing();
    void clearingTheSearchKeepsTheSelection();
    void saysThatNothingIsFound();
    void tellsHowMuchIsFound();
    void escapeClearsTheSearchThenCancels();
    void escapeInTheGridCancels();
    void spaceBringsBackWhatWasScrolledAway();
    void aGridWithoutApplicationsIsNoStop();
    void returnAddsWhatIsSelected();
    void theKeyboardReachesEverything();
    void arrowsWalkThroughTheGrid();
    void arrowsAreMirroredFromRightToLeft();
    void whatIsThereCanBeReadByKeyboard();
    void typingInTheGridGoesOnInTheSearch();
    void findGoesToTheSearch();
    void theRingFollowsTheKeyboardOnly();
    void theFocusGoesBackToItsOpener();
    void buildsOnlyTheCellsInView();
    void cellsOutOfUseAreNotAnnounced();
    void columnsTakeTheWidthThatIsThere();
    void controlsAreNamed();

private:
    std::unique_ptr<PickerFixture> m_window;
};

void WindowAppPickerTest::init()
{
    failOnWindowWarnings();
    m_window = std::make_unique<PickerFixture>();
}

void WindowAppPickerTest::cleanup()
{
    m_window.reset();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

void WindowAppPickerTest::opensUnderTheHeaderWithTheFocusInTheSearch()
{
    QVERIFY(m_window->openSheet());
    QVERIFY(m_window->search()->hasActiveFocus());
    QCOMPARE(m_window->shownNames(), m_window->names);
    const auto *const sheet = m_window->window->findChild<QObject *>(u"appPickerSheet"_qs);
    const double width = sheet->property("width").toDouble();
    QVERIFY(width >= 560);
    QVERIFY(sheet->property("height").toDouble() >= 420);
    QCOMPARE(sheet->property("x").toDouble(), (1060 - width) / 2);
    QVERIFY(sheet->property("y").toDouble() >= 52);
}

void WindowAppPickerTest::tellsThatItLoads()
{
    m_window->scanGate.acquire();
    QVERIFY(m_window->openWindow({}));
    QVERIFY(m_window->beginSheet());
    const QString loading = QStringLiteral("Loading apps…");
    const QAccessibleInterface *const search
        = m_window->control(QAccessible::EditableText, QStringLiteral("Search"));
    QVERIFY(m_window->control(QAccessible::StaticText, loading));
    QCOMPARE(search->text(QAccessible::Description), loading);
    m_window->scanGate.release();
    QTRY_VERIFY(!m_window->control(QAccessible::StaticText, loading));
    QCOMPARE(search->text(QAccessible::Description), QStringLiteral("9 apps"));
}

void WindowAppPickerTest::closesWhileItLoads()
{
    m_window->scanGate.acquire();
    QVERIFY(m_window->openWindow({}));
    QVERIFY(m_window->beginSheet());
    m_window->press(Qt::Key_Escape);
    QVERIFY(m_window->isClosed());
    m_window->scanGate.release();
    QVERIFY(m_window->beginSheet());
    QTRY_COMPARE(m_window->shownNames(), m_window->names);
}

void WindowAppPickerTest::marksWhatIsThereAlready()
{
    QVERIFY(m_window->openSheet({applicationURL(QStringLiteral("Mail"))}));
    const QString mail = QStringLiteral("Mail");
    QQuickItem *const cell = m_window->cell(mail);
    QVERIFY(cell);
    QVERIFY(cell->property("alreadyAdded").toBool());
    QVERIFY(m_window->state(mail).readOnly);
    QVERIFY(!m_window->state(mail).checkable);
    QCOMPARE(m_window->control(QAccessible::CheckBox, mail)->text(QAccessible::Description),
             QStringLiteral("Already added"));
    m_window->click(cell);
    QVERIFY(!m_window->state(mail).checked);
    QVERIFY(!m_window->button(QStringLiteral("Add"))->isEnabled());
    // The keyboard reaches it, so that it can be heard of.
    QQuickItem *const grid = m_window->named("appGrid");
    grid->forceActiveFocus();
    grid->setProperty("currentIndex", m_window->shownNames().indexOf(mail));
    QVERIFY(cell->hasActiveFocus());
    QVERIFY(m_window->state(mail).focused);
    m_window->press(Qt::Key_Space);
    QVERIFY(!m_window->state(mail).checked);
}

void WindowAppPickerTest::aClickSelectsAndTakesBack()
{
    QVERIFY(m_window->openSheet());
    const QString notes = QStringLiteral("Notes");
    QVERIFY(m_window->state(notes).checkable);
    m_window->click(m_window->cell(notes));
    QVERIFY(m_window->state(notes).checked);
    QVERIFY(m_window->button(QStringLiteral("Add 1")));
    m_window->click(m_window->cell(notes));
    QVERIFY(!m_window->state(notes).checked);
    QVERIFY(m_window->search()->hasActiveFocus());
}

void WindowAppPickerTest::aClickBesideTheCellsDoesNothing()
{
    QVERIFY(m_window->openSheet());
    const QQuickItem *const cell = m_window->cell(QStringLiteral("Notes"));
    QTest::mouseClick(m_window->window, Qt::LeftButton, Qt::NoModifier,
                      cell->mapToScene(QPointF(2, 40)).toPoint());
    QVERIFY(!m_window->button(QStringLiteral("Add"))->isEnabled());
}

void WindowAppPickerTest::addsTheSelectedOnes()
{
    QVERIFY(m_window->openSheet());
    for (const QString &name : {QStringLiteral("Withdraw"), QStringLiteral("Calendar")})
        m_window->click(m_window->cell(name));
    m_window->click(m_window->button(QStringLiteral("Add 2")));
    QVERIFY(m_window->isClosed());
    QCOMPARE(m_window->added(),
             QStringList({applicationURL(QStringLiteral("Calendar")),
                          applicationURL(QStringLiteral("Withdraw"))}));
}

void WindowAppPickerTest::theAddButtonNeedsASelection()
{
    QVERIFY(m_window->openSheet());
    QQuickItem *const button = m_window->button(QStringLiteral("Add"));
    QVERIFY(!button->isEnabled());
    m_window->click(button);
    m_window->press(Qt::Key_Return);
    QVERIFY(m_window->isOpen("appPickerSheet"));
    QVERIFY(!m_window->hasAdded());
}

void WindowAppPickerTest::cancellingAddsNothing()
{
    QVERIFY(m_window->openSheet());
    m_window->click(m_window->cell(QStringLiteral("Notes")));
    m_window->click(m_window->button(QStringLiteral("Cancel")));
    QVERIFY(m_window->isClosed());
    QVERIFY(!m_window->hasAdded());

    QVERIFY(m_window->beginSheet()); // starts anew
    QVERIFY(!m_window->button(QStringLiteral("Add"))->isEnabled());
}

void WindowAppPickerTest::clearingTheSearchKeepsTheSelection()
{
    QVERIFY(m_window->openSheet());
    QVERIFY(!m_window->button(QStringLiteral("Clear Search")));
    m_window->type(QStringLiteral("draw"));
    QCOMPARE(m_window->shownNames(),
             QStringList({QStringLiteral("Drawing"), QStringLiteral("Withdraw")}));
    m_window->click(m_window->cell(QStringLiteral("Withdraw")));
    m_window->click(m_window->button(QStringLiteral("Clear Search")));
    QCOMPARE(m_window->shownNames(), m_window->names);
    QVERIFY(m_window->state(QStringLiteral("Withdraw")).checked);
    QVERIFY(m_window->button(QStringLiteral("Add 1")));
    QVERIFY(m_window->search()->hasActiveFocus());
}

void WindowAppPickerTest::saysThatNothingIsFound()
{
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("xyz"));
    const QAccessibleInterface *const note
        = m_window->control(QAccessible::StaticText, QStringLiteral("No Results for “xyz”"));
    QVERIFY(note);
    QCOMPARE(note->text(QAccessible::Description),
             QStringLiteral("Check the spelling or try a new search."));
    m_window->press(Qt::Key_Down); // there is no cell to go to
    QVERIFY(m_window->search()->hasActiveFocus());
}

void WindowAppPickerTest::tellsHowMuchIsFound()
{
    QVERIFY(m_window->openSheet());
    const QAccessibleInterface *const search
        = m_window->control(QAccessible::EditableText, QStringLiteral("Search"));
    m_window->type(QStringLiteral("draw"));
    QCOMPARE(search->text(QAccessible::Description), QStringLiteral("2 apps"));
    m_window->type(QStringLiteral("x"));
    QCOMPARE(search->text(QAccessible::Description), QStringLiteral("No Results for “drawx”"));
}

void WindowAppPickerTest::escapeClearsTheSearchThenCancels()
{
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("draw"));
    m_window->press(Qt::Key_Escape);
    QCOMPARE(m_window->searchText(), QString());
    QVERIFY(m_window->isOpen("appPickerSheet"));
    m_window->press(Qt::Key_Escape);
    QVERIFY(m_window->isClosed());
    QVERIFY(!m_window->hasAdded());
}

void WindowAppPickerTest::escapeInTheGridCancels()
{
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("draw"));
    m_window->press(Qt::Key_Down);
    QVERIFY(m_window->grid()->hasActiveFocus());
    m_window->press(Qt::Key_Escape);
    QVERIFY(m_window->isClosed());
}

void WindowAppPickerTest::spaceBringsBackWhatWasScrolledAway()
{
    m_window->names.clear();
    for (int number = 100; number < 300; ++number)
        m_window->names.append(QStringLiteral("App %1").arg(number));
    QVERIFY(m_window->openSheet());
    m_window->press(Qt::Key_Down);
    QCOMPARE(m_window->currentName(), QStringLiteral("App 100"));
    m_window->grid()->setProperty("contentY", 900.0);
    m_window->grid()->ensurePolished();
    m_window->press(Qt::Key_Space);
    QVERIFY(m_window->state(QStringLiteral("App 100")).checked);
    QVERIFY(m_window->grid()->property("contentY").toReal() < 50);
    m_window->press(Qt::Key_Return);
    QVERIFY(m_window->isClosed());
    QCOMPARE(m_window->added(), QStringList({applicationURL(QStringLiteral("App 100"))}));
}

void WindowAppPickerTest::aGridWithoutApplicationsIsNoStop()
{
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("no such name"));
    QTRY_COMPARE(m_window->grid()->property("count").toInt(), 0);
    for (int presses = 0; presses < 6; ++presses) {
        m_window->press(Qt::Key_Tab);
        QVERIFY(!m_window->grid()->hasActiveFocus());
    }
}

void WindowAppPickerTest::returnAddsWhatIsSelected()
{
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("notes"));
    m_window->press(Qt::Key_Down);
    m_window->press(Qt::Key_Space);
    m_window->press(Qt::Key_Return);
    QVERIFY(m_window->isClosed());
    QCOMPARE(m_window->added(), QStringList({applicationURL(QStringLiteral("Notes"))}));
}

void WindowAppPickerTest::theKeyboardReachesEverything()
{
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("a"));
    m_window->press(Qt::Key_Tab);
    QVERIFY(m_window->button(QStringLiteral("Clear Search"))->hasActiveFocus());
    m_window->press(Qt::Key_Tab);
    QVERIFY(m_window->cell(QStringLiteral("Calculator"))->hasActiveFocus());
    m_window->press(Qt::Key_Space);
    m_window->press(Qt::Key_Tab);
    QVERIFY(m_window->button(QStringLiteral("Cancel"))->hasActiveFocus());
    m_window->press(Qt::Key_Tab);
    QVERIFY(m_window->button(QStringLiteral("Add 1"))->hasActiveFocus());
    m_window->press(Qt::Key_Tab);
    QVERIFY(m_window->search()->hasActiveFocus());
    m_window->press(Qt::Key_Tab, Qt::ShiftModifier);
    m_window->press(Qt::Key_Tab, Qt::ShiftModifier);
    m_window->press(Qt::Key_Return);
    QVERIFY(m_window->isClosed());
    QVERIFY(!m_window->hasAdded());
}

void WindowAppPickerTest::arrowsWalkThroughTheGrid()
{
    QVERIFY(m_window->openSheet());
    m_window->press(Qt::Key_Down);
    QCOMPARE(m_window->currentName(), QStringLiteral("Calculator"));
    m_window->press(Qt::Key_Right);
    QCOMPARE(m_window->currentName(), QStringLiteral("Calendar"));
    m_window->press(Qt::Key_Down);
    QCOMPARE(m_window->currentName(), QStringLiteral("Terminal"));
    m_window->press(Qt::Key_Home);
    QCOMPARE(m_window->currentName(), QStringLiteral("Calculator"));
    m_window->press(Qt::Key_End);
    QCOMPARE(m_window->currentName(), QStringLiteral("Withdraw"));
    m_window->press(Qt::Key_Left);
    QCOMPARE(m_window->currentName(), QStringLiteral("Terminal"));
    m_window->press(Qt::Key_Up);
    QCOMPARE(m_window->currentName(), QStringLiteral("Calendar"));
    m_window->press(Qt::Key_Up);
    QVERIFY(m_window->search()->hasActiveFocus());
}

void WindowAppPickerTest::arrowsAreMirroredFromRightToLeft()
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    QVERIFY(m_window->openSheet());
    const auto x = [&](const char *name) {
        return m_window->cell(QLatin1StringView(name))->mapToScene(QPointF()).x();
    };
    QVERIFY(x("Calendar") < x("Calculator"));
    QVERIFY(m_window->button(QStringLiteral("Add"))->mapToScene(QPointF()).x()
            < m_window->button(QStringLiteral("Cancel"))->mapToScene(QPointF()).x());
    m_window->press(Qt::Key_Down);
    m_window->press(Qt::Key_Left);
    QCOMPARE(m_window->currentName(), QStringLiteral("Calendar"));
    m_window->press(Qt::Key_Right);
    QCOMPARE(m_window->currentName(), QStringLiteral("Calculator"));
}

void WindowAppPickerTest::whatIsThereCanBeReadByKeyboard()
{
    QVERIFY(m_window->openSheet({applicationURL(QStringLiteral("Calendar"))}));
    m_window->press(Qt::Key_Down);
    m_window->press(Qt::Key_Right);
    QCOMPARE(m_window->currentName(), QStringLiteral("Calendar"));
    m_window->press(Qt::Key_Space);
    QVERIFY(!m_window->button(QStringLiteral("Add"))->isEnabled());
    m_window->press(Qt::Key_Right);
    QCOMPARE(m_window->currentName(), QStringLiteral("Drawing"));
    m_window->press(Qt::Key_Space);
    QVERIFY(m_window->state(QStringLiteral("Drawing")).checked);
}

void WindowAppPickerTest::typingInTheGridGoesOnInTheSearch()
{
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("d"));
    m_window->press(Qt::Key_Down);
    m_window->type(QStringLiteral("raw"));
    QCOMPARE(m_window->searchText(), QStringLiteral("draw"));
    QVERIFY(m_window->search()->hasActiveFocus());
}

void WindowAppPickerTest::findGoesToTheSearch()
{
    QVERIFY(m_window->openSheet());
    m_window->press(Qt::Key_Down);
    QVERIFY(!m_window->search()->hasActiveFocus());
    m_window->press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(m_window->search()->hasActiveFocus());
}

void WindowAppPickerTest::theRingFollowsTheKeyboardOnly()
{
    QVERIFY(m_window->openSheet());
    QQuickItem *const first = m_window->cell(QStringLiteral("Calculator"));
    QVERIFY(!first->property("hasFocusRing").toBool());
    m_window->press(Qt::Key_Down);
    QVERIFY(first->property("hasFocusRing").toBool());
    m_window->click(m_window->cell(QStringLiteral("Notes")));
    QVERIFY(!first->property("hasFocusRing").toBool());
    QVERIFY(!m_window->cell(QStringLiteral("Notes"))->property("hasFocusRing").toBool());
    m_window->press(Qt::Key_Right);
    QVERIFY(m_window->cell(QStringLiteral("Photos"))->property("hasFocusRing").toBool());
}

void WindowAppPickerTest::theFocusGoesBackToItsOpener()
{
    QVERIFY(m_window->openSheet());
    m_window->press(Qt::Key_Escape);
    QVERIFY(m_window->isClosed());
    QVERIFY(m_window->named("opener")->hasActiveFocus());
}

void WindowAppPickerTest::buildsOnlyTheCellsInView()
{
    m_window->names.clear();
    for (int number = 10'000; number < 15'000; ++number)
        m_window->names.append(QStringLiteral("App %1").arg(number));
    QVERIFY(m_window->openSheet());
    m_window->grid()->ensurePolished();
    const auto *const content = m_window->grid()->property("contentItem").value<QQuickItem *>();
    QVERIFY(content->childItems().size() < 60);
    QVERIFY(m_window->cell(QStringLiteral("App 10000")));
    QVERIFY(!m_window->cell(QStringLiteral("App 14999")));
}

void WindowAppPickerTest::cellsOutOfUseAreNotAnnounced()
{
    m_window->names.clear();
    for (int number = 1000; number < 1400; ++number)
        m_window->names.append(QStringLiteral("App %1").arg(number));
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("1399"));
    m_window->grid()->ensurePolished();
    QAccessibleInterface *const list = m_window->control(QAccessible::List, QStringLiteral("Apps"));
    QVERIFY(list);
    const auto announced = [list] {
        QStringList names;
        for (int index = 0; index < list->childCount(); ++index) {
            if (list->child(index)->role() == QAccessible::CheckBox)
                names.append(list->child(index)->text(QAccessible::Name));
        }
        return names;
    };
    QTRY_COMPARE(announced(), QStringList({QStringLiteral("App 1399")}));
    m_window->press(Qt::Key_Escape); // the cells come back
    m_window->grid()->ensurePolished();
    QVERIFY(announced().size() > 20);
    QVERIFY(announced().contains(QStringLiteral("App 1000")));
}

void WindowAppPickerTest::columnsTakeTheWidthThatIsThere()
{
    QVERIFY(m_window->openSheet());
    QQuickItem *const grid = m_window->grid();
    const int columns = grid->property("columns").toInt();
    QCOMPARE(columns, int(grid->width()) / 92);
    QVERIFY(grid->property("cellWidth").toReal() * columns <= grid->width());
    const QQuickItem *const last = m_window->cell(m_window->names.at(columns - 1));
    QVERIFY(last->x() + last->width() <= grid->width());
    QCOMPARE(last->y(), m_window->cell(m_window->names.first())->y());
}

void WindowAppPickerTest::controlsAreNamed()
{
    QVERIFY(m_window->openSheet());
    m_window->type(QStringLiteral("a"));
    QVERIFY(m_window->control(QAccessible::Heading, QStringLiteral("Choose Apps")));
    QVERIFY(m_window->control(QAccessible::Button, QStringLiteral("Cancel")));
    QVERIFY(m_window->control(QAccessible::Button, QStringLiteral("Clear Search")));
    QVERIFY(m_window->control(QAccessible::List, QStringLiteral("Apps")));
    QVERIFY(
        m_window->control(QAccessible::EditableText, QStringLiteral("Search"))->state().searchEdit);
}

QTEST_MAIN(WindowAppPickerTest)
#include "tst_windowapppicker.moc"
