#include "model/uuidtext.h"
#include "tests/ui/appearancefixture.h"

#include <QImage>
#include <QQmlComponent>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

/// The three pickers as a user meets them: by mouse, by keyboard, through assistive programs.
class AppearancePickersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_scene.reset(); }
    void everyPickerSaysWhatIsChosen();
    void aFolderWithoutAppearanceHasTheFirstChoices();
    void aColorBesideThePaletteSelectsTheCustomSwatch();
    void aCustomImageSelectsItsCellOnly();
    void clickingChooses();
    void autoStoresNoGridSize();
    void automaticStoresNoColor();
    void noSymbolStoresNone();
    void assistiveProgramsCanChoose();
    void everyPickerIsOneStopOfTheTabKey();
    void arrowsMoveAndSpaceChooses();
    void returnChooses();
    void arrowsAreMirrored();
    void theRingIsShownToTheKeyboardOnly();
    void theTabKeyComesBackToTheSelectedCell();
    void loadingAnImageSelectsItsCell();
    void aFileThatIsNoImageChangesNothing();
    void aSymbolChosenMeanwhileWins();
    void anImageForAFolderThatIsGoneIsDropped();
    void colorsOfADragAreShownAtOnceAndStoredNowAndThen();
    void theLastColorIsStoredWhenAnotherFolderIsShown();
    void theLastColorIsStoredAtTheEnd();

private:
    [[nodiscard]] QString writeImage() const;
    [[nodiscard]] QStringList checked(const char *picker) const
    {
        return m_scene->checkedCells(QString::fromLatin1(picker));
    }
    [[nodiscard]] static QString text(const char *name) { return QString::fromUtf8(name); }

    DockFolder m_folder;
    DockFolder m_other;
    QTemporaryDir m_directory;
    std::unique_ptr<AppearanceFixture> m_scene;
};

void AppearancePickersTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    m_folder = folderNamed(QStringLiteral("Work"));
    m_folder.iconSymbol = QStringLiteral("book.fill");
    m_folder.accentColorHex = QStringLiteral("#E05757");
    m_folder.gridColumns = 3;
    m_other = folderNamed(QStringLiteral("Play"));
    m_scene = std::make_unique<AppearanceFixture>();
    QVERIFY(m_scene->open({m_folder, m_other}));
}

QString AppearancePickersTest::writeImage() const
{
    QImage image(64, 32, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QString path = m_directory.filePath(QStringLiteral("a picture.png"));
    image.save(path);
    return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
}

void AppearancePickersTest::everyPickerSaysWhatIsChosen()
{
    QCOMPARE(checked("Symbol"), QStringList{text("Book")});
    QCOMPARE(checked("Color"), QStringList{text("Red")});
    QCOMPARE(checked("Grid Size"), QStringList{text("3 × 3")});
}

void AppearancePickersTest::aFolderWithoutAppearanceHasTheFirstChoices()
{
    m_scene->model->setFolder(m_other.id);
    QCOMPARE(checked("Symbol"), QStringList{text("No symbol (show app grid)")});
    QCOMPARE(checked("Color"), QStringList{text("Automatic")});
    QCOMPARE(checked("Grid Size"), QStringList{text("Auto")});
}

void AppearancePickersTest::aColorBesideThePaletteSelectsTheCustomSwatch()
{
    m_scene->store->setAccentColor(m_folder.id, QStringLiteral("#123456"));
    QCOMPARE(checked("Color"), QStringList{text("Custom Color…")});
}

void AppearancePickersTest::aCustomImageSelectsItsCellOnly()
{
    m_scene->store->setCustomIcon(m_folder.id, QByteArray("picture"));
    QCOMPARE(checked("Symbol"), QStringList{text("Load custom image…")});
}

void AppearancePickersTest::clickingChooses()
{
    m_scene->click(m_scene->cell(text("Star")));
    QCOMPARE(m_scene->stored(m_folder).iconSymbol, QStringLiteral("star.fill"));
    QCOMPARE(checked("Symbol"), QStringList{text("Star")});
    m_scene->click(m_scene->cell(text("Teal")));
    QCOMPARE(m_scene->stored(m_folder).accentColorHex, QStringLiteral("#3DAEC0"));
    QCOMPARE(checked("Color"), QStringList{text("Teal")});
    m_scene->click(m_scene->cell(text("4 × 4")));
    QCOMPARE(m_scene->stored(m_folder).gridColumns, 4);
    QCOMPARE(checked("Grid Size"), QStringList{text("4 × 4")});
}

void AppearancePickersTest::autoStoresNoGridSize()
{
    m_scene->click(m_scene->cell(text("Auto")));
    QCOMPARE(m_scene->stored(m_folder).gridColumns, std::nullopt);
}

void AppearancePickersTest::automaticStoresNoColor()
{
    m_scene->click(m_scene->cell(text("Automatic")));
    QCOMPARE(m_scene->stored(m_folder).accentColorHex, std::nullopt);
    QCOMPARE(checked("Color"), QStringList{text("Automatic")});
}

void AppearancePickersTest::noSymbolStoresNone()
{
    m_scene->click(m_scene->cell(text("No symbol (show app grid)")));
    QCOMPARE(m_scene->stored(m_folder).iconSymbol, std::nullopt);
}

void AppearancePickersTest::assistiveProgramsCanChoose()
{
    QAccessibleInterface *gear = m_scene->cell(text("Gear"));
    QVERIFY(gear->state().checkable);
    QVERIFY(gear->state().focusable);
    QVERIFY(gear->actionInterface());
    const QStringList actions = gear->actionInterface()->actionNames();
    QVERIFY2(actions.contains(QAccessibleActionInterface::pressAction()),
             qPrintable(actions.join(u' ')));
    gear->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(m_scene->stored(m_folder).iconSymbol, QStringLiteral("gear"));
    QVERIFY(m_scene->cell(text("Gear"))->state().checked);
}

void AppearancePickersTest::everyPickerIsOneStopOfTheTabKey()
{
    m_scene->press(Qt::Key_Tab);
    QCOMPARE(m_scene->focusedName(), text("Book"));
    m_scene->press(Qt::Key_Tab);
    QCOMPARE(m_scene->focusedName(), text("Red"));
    m_scene->press(Qt::Key_Tab);
    QCOMPARE(m_scene->focusedName(), text("3 × 3"));
    m_scene->press(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(m_scene->focusedName(), text("Red"));
}

void AppearancePickersTest::arrowsMoveAndSpaceChooses()
{
    m_scene->press(Qt::Key_Tab);
    m_scene->press(Qt::Key_Right);
    QCOMPARE(m_scene->focusedName(), text("Game Controller")); // the row's end is no end
    m_scene->press(Qt::Key_Down);
    QCOMPARE(m_scene->focusedName(), text("Airplane"));
    m_scene->press(Qt::Key_Left);
    m_scene->press(Qt::Key_Up);
    QCOMPARE(m_scene->focusedName(), text("Book"));
    m_scene->press(Qt::Key_Home);
    QCOMPARE(m_scene->focusedName(), text("No symbol (show app grid)"));
    m_scene->press(Qt::Key_End);
    QCOMPARE(m_scene->focusedName(), text("Load custom image…"));
    m_scene->press(Qt::Key_Left);
    QCOMPARE(m_scene->stored(m_folder).iconSymbol, QStringLiteral("book.fill"));
    m_scene->press(Qt::Key_Space);
    QCOMPARE(m_scene->stored(m_folder).iconSymbol, QStringLiteral("cloud.fill"));
}

void AppearancePickersTest::returnChooses()
{
    m_scene->press(Qt::Key_Tab);
    m_scene->press(Qt::Key_Tab);
    m_scene->press(Qt::Key_Right);
    m_scene->press(Qt::Key_Return);
    QCOMPARE(m_scene->stored(m_folder).accentColorHex, QStringLiteral("#4DAE72"));
}

void AppearancePickersTest::arrowsAreMirrored()
{
    QQuickItem *grid = m_scene->named("gridPicker");
    const auto place = [&](const char *name) {
        const auto *item = qobject_cast<QQuickItem *>(m_scene->cell(text(name))->object());
        return item->mapToItem(grid, QPointF()).x();
    };
    QVERIFY(place("Auto") < place("4 × 4"));
    QQmlComponent mirror(&m_scene->engine);
    mirror.setData("import QtQuick; import QtQml; QtObject { required property Item item;"
                   "Component.onCompleted: { item.LayoutMirroring.enabled = true;"
                   "item.LayoutMirroring.childrenInherit = true; } }",
                   QUrl());
    const std::unique_ptr<QObject> made(mirror.createWithInitialProperties(
        {{QStringLiteral("item"), QVariant::fromValue(m_scene->section)}}));
    QVERIFY2(made, qPrintable(mirror.errorString()));
    QTRY_VERIFY(place("Auto") > place("4 × 4"));
    m_scene->press(Qt::Key_Tab);
    m_scene->press(Qt::Key_Right);
    QCOMPARE(m_scene->focusedName(), text("Heart"));
}

void AppearancePickersTest::theRingIsShownToTheKeyboardOnly()
{
    m_scene->click(m_scene->cell(text("Star")));
    QCOMPARE(m_scene->focusedName(), text("Star"));
    QVERIFY(!m_scene->window->activeFocusItem()->property("visualFocus").toBool());
    m_scene->press(Qt::Key_Right);
    QCOMPARE(m_scene->focusedName(), text("Briefcase"));
    QVERIFY(m_scene->window->activeFocusItem()->property("visualFocus").toBool());
}

void AppearancePickersTest::theTabKeyComesBackToTheSelectedCell()
{
    m_scene->press(Qt::Key_Tab);
    m_scene->press(Qt::Key_End);
    m_scene->press(Qt::Key_Tab);
    m_scene->press(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(m_scene->focusedName(), text("Book"));
}

void AppearancePickersTest::loadingAnImageSelectsItsCell()
{
    m_scene->model->loadCustomImage(writeImage());
    QTRY_COMPARE(checked("Symbol"), QStringList{text("Load custom image…")});
    const DockFolder stored = m_scene->stored(m_folder);
    QCOMPARE(QImage::fromData(stored.customIconData->bytes()).size(), QSize(256, 256));
    QCOMPARE(stored.iconSymbol, std::nullopt);
    m_scene->click(m_scene->cell(text("Star")));
    QCOMPARE(m_scene->stored(m_folder).customIconData, std::nullopt);
    QCOMPARE(checked("Symbol"), QStringList{text("Star")});
}

void AppearancePickersTest::aFileThatIsNoImageChangesNothing()
{
    const QString path = m_directory.filePath(QStringLiteral("text.png"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no picture");
    file.close();
    m_scene->model->loadCustomImage(QUrl::fromLocalFile(path).toString());
    m_scene->model->loadCustomImage(QStringLiteral("file:///nothing/here.png"));
    m_scene->model->loadCustomImage(QStringLiteral("https://example.com/a.png"));
    // What comes after them shows that they are done.
    m_scene->model->loadCustomImage(writeImage(), uuidText(m_other.id));
    QTRY_VERIFY(m_scene->stored(m_other).customIconData);
    QCOMPARE(m_scene->stored(m_folder), m_folder);
    QCOMPARE(m_scene->store->errorMessage(), QString());
}

void AppearancePickersTest::aSymbolChosenMeanwhileWins()
{
    m_scene->model->loadCustomImage(writeImage());
    m_scene->model->setIconSymbol(QStringLiteral("globe"));
    m_scene->model->loadCustomImage(writeImage(), uuidText(m_other.id));
    QTRY_VERIFY(m_scene->stored(m_other).customIconData);
    QCOMPARE(m_scene->stored(m_folder).iconSymbol, QStringLiteral("globe"));
}

void AppearancePickersTest::anImageForAFolderThatIsGoneIsDropped()
{
    m_scene->model->loadCustomImage(writeImage());
    m_scene->model->loadCustomImage(writeImage(), uuidText(m_other.id));
    m_scene->store->deleteFolder(m_folder.id);
    QTRY_VERIFY(m_scene->stored(m_other).customIconData);
    QCOMPARE(m_scene->store->folders().size(), 1);
}

void AppearancePickersTest::colorsOfADragAreShownAtOnceAndStoredNowAndThen()
{
    QSignalSpy changes(m_scene->store, &CompanionStore::foldersChanged);
    for (int step = 0; step < 100; ++step) {
        const QString hex = QString::asprintf("#1020%02X", uint(step));
        m_scene->model->setAccentColor(hex);
        QCOMPARE(m_scene->model->accentColorHex(), hex);
    }
    QTRY_COMPARE(m_scene->stored(m_folder).accentColorHex, QStringLiteral("#102063"));
    QVERIFY2(changes.count() <= 4, qPrintable(QString::number(changes.count())));
    QCOMPARE(m_scene->savedLibrary()->folders.first().accentColorHex, QStringLiteral("#102063"));
}

void AppearancePickersTest::theLastColorIsStoredWhenAnotherFolderIsShown()
{
    m_scene->model->setAccentColor(QStringLiteral("#000001"));
    m_scene->model->setAccentColor(QStringLiteral("#000002"));
    m_scene->model->setFolder(m_other.id);
    QCOMPARE(m_scene->stored(m_folder).accentColorHex, QStringLiteral("#000002"));
    QCOMPARE(m_scene->stored(m_other).accentColorHex, std::nullopt);
    QCOMPARE(m_scene->model->accentColorHex(), QString());
}

void AppearancePickersTest::theLastColorIsStoredAtTheEnd()
{
    m_scene->model->setAccentColor(QStringLiteral("#000001"));
    m_scene->model->setAccentColor(QStringLiteral("#000002"));
    m_scene->window.reset();
    m_scene->model.reset();
    QCOMPARE(m_scene->stored(m_folder).accentColorHex, QStringLiteral("#000002"));
}

QTEST_MAIN(AppearancePickersTest)
#include "tst_appearancepickers.moc"
