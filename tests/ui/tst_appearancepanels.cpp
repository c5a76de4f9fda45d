#include "model/uuidtext.h"
#include "tests/fakes/fakecolorpanel.h"
#include "tests/fakes/fakeopenpanel.h"
#include "tests/ui/appearancefixture.h"

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QWheelEvent>

/// The colour panel and the open panel: the system's, and those of the window.
class AppearancePanelsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup()
    {
        m_scene.reset();
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    }
    void theSystemsColorPanelGetsTheFoldersColor();
    void theSystemsColorsAreStored();
    void theSystemsPanelIsLeftWithTheFolder();
    void theColorPanelStandsAtTheFoldersColor();
    void theColorPanelWorksByKeyboard();
    void theColorPanelWorksByMouse();
    void theColorPanelTakesAHexText();
    void escapeInTheHexTextChangesNothing();
    void assistiveProgramsSetTheSliders();
    void escapeClosesTheColorPanel();
    void theColorPanelClosesWithTheFolder();
    void theSystemsOpenPanelIsAskedForPictures();
    void thePictureIsForTheFolderThatAsked();
    void aCancelledPanelChangesNothing();
    void theOpenPanelShowsThePictures();
    void theOpenPanelChoosesByKeyboard();
    void theOpenPanelGoesByPages();
    void theOpenPanelTakesAPath();
    void theOpenPanelTakesNoOtherFileByItsPath();
    void theOpenPanelScrollsByTheWheel();
    void theOpenPanelIsMirrored();
    void escapeClosesTheOpenPanel();

private:
    [[nodiscard]] static QString text(const char *name) { return QString::fromUtf8(name); }
    [[nodiscard]] QString storedColor() const
    {
        return m_scene->stored(m_folder).accentColorHex.value_or(QString());
    }
    void useSystemPanels();
    QString writeImage(const QString &name) const;
    static constexpr int manyImages = 40; // more than the open panel has room for
    void writeManyImages() const;
    void openColorPanel() const;
    void typeHexColor(const QByteArray &hex);
    [[nodiscard]] QAccessibleInterface *slider(const char *name) const
    {
        return m_scene->control(QAccessible::Slider, text(name));
    }
    [[nodiscard]] bool isColorPanelOpen() const { return slider("Hue") != nullptr; }
    [[nodiscard]] QQuickWindow *openImagePanel() const;

    DockFolder m_folder;
    DockFolder m_other;
    FakeColorPanel *m_colorPanel = nullptr;
    FakeOpenPanel *m_openPanel = nullptr;
    std::unique_ptr<AppearanceFixture> m_scene;
};

void AppearancePanelsTest::init()
{
    // The offscreen platform warns that it ignores a window's least size.
    QTest::failOnWarning(QRegularExpression(text("^(?!This plugin does not support)")));
    m_folder = folderNamed(QStringLiteral("Work"));
    m_folder.accentColorHex = QStringLiteral("#FF0000");
    m_other = folderNamed(QStringLiteral("Play"));
    m_scene = std::make_unique<AppearanceFixture>();
    if (QByteArrayView(QTest::currentTestFunction()).startsWith("theSystems")
        || QByteArrayView(QTest::currentTestFunction()) == "thePictureIsForTheFolderThatAsked"
        || QByteArrayView(QTest::currentTestFunction()) == "aCancelledPanelChangesNothing")
        useSystemPanels();
    QVERIFY(m_scene->open({m_folder, m_other}));
}

void AppearancePanelsTest::useSystemPanels()
{
    auto colorPanel = std::make_unique<FakeColorPanel>();
    auto openPanel = std::make_unique<FakeOpenPanel>();
    m_colorPanel = colorPanel.get();
    m_openPanel = openPanel.get();
    m_scene->platform.colorPanel = std::move(colorPanel);
    m_scene->platform.openPanel = std::move(openPanel);
}

QString AppearancePanelsTest::writeImage(const QString &name) const
{
    const QDir home(m_scene->directories.home().path());
    home.mkpath(QStringLiteral("Pictures"));
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    QString path = home.filePath(QStringLiteral("Pictures/") + name);
    image.save(path);
    return path;
}

void AppearancePanelsTest::writeManyImages() const
{
    for (int number = 0; number < manyImages; ++number)
        writeImage(text("picture%1.png").arg(number));
}

void AppearancePanelsTest::theSystemsColorPanelGetsTheFoldersColor()
{
    m_scene->click(m_scene->cell(text("Custom Color…")));
    QCOMPARE(m_colorPanel->shown, QColor(Qt::red));
    QCOMPARE(storedColor(), text("#FF0000"));
    m_scene->model->setAccentColor({});
    m_scene->click(m_scene->cell(text("Custom Color…")));
    QCOMPARE(m_colorPanel->shown, QColor(0x4f, 0x83, 0xd3));
    QTRY_COMPARE(storedColor(), QString()); // showing a colour is not choosing it
    QVERIFY(!isColorPanelOpen());
}

void AppearancePanelsTest::theSystemsColorsAreStored()
{
    m_scene->click(m_scene->cell(text("Custom Color…")));
    m_colorPanel->choose(QColor(1, 2, 3));
    QCOMPARE(storedColor(), text("#010203"));
    QCOMPARE(m_scene->checkedCells(text("Color")), QStringList{text("Custom Color…")});
    m_colorPanel->choose(QColor());
    QTRY_COMPARE(storedColor(), text("#4F83D3"));
}

void AppearancePanelsTest::theSystemsPanelIsLeftWithTheFolder()
{
    m_scene->click(m_scene->cell(text("Custom Color…")));
    m_scene->model->setFolder(m_other.id);
    QVERIFY(!m_colorPanel->changed);
    QVERIFY(!m_colorPanel->shown);
}

void AppearancePanelsTest::openColorPanel() const
{
    m_scene->cell(text("Custom Color…"))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    QTRY_VERIFY(isColorPanelOpen());
    QTRY_COMPARE(m_scene->focusedName(), text("Saturation"));
}

void AppearancePanelsTest::theColorPanelStandsAtTheFoldersColor()
{
    openColorPanel();
    QCOMPARE(slider("Hue")->valueInterface()->currentValue().toInt(), 0);
    QCOMPARE(slider("Hue")->valueInterface()->maximumValue().toInt(), 360);
    QCOMPARE(slider("Saturation")->valueInterface()->currentValue().toInt(), 100);
    QCOMPARE(slider("Brightness")->valueInterface()->currentValue().toInt(), 100);
    QAccessibleInterface *hex = m_scene->control(QAccessible::EditableText, text("Hex Color"));
    QVERIFY(hex);
    QCOMPARE(hex->text(QAccessible::Value), text("#FF0000"));
    m_scene->store->setAccentColor(m_folder.id, text("#00FF00")); // by another hand
    QCOMPARE(hex->text(QAccessible::Value), text("#00FF00"));
    QCOMPARE(slider("Hue")->valueInterface()->currentValue().toInt(), 120);
}

void AppearancePanelsTest::theColorPanelWorksByKeyboard()
{
    openColorPanel();
    m_scene->press(Qt::Key_Left, Qt::ShiftModifier);
    m_scene->press(Qt::Key_Left, Qt::ShiftModifier);
    QTRY_COMPARE(storedColor(), text("#FF3333"));
    m_scene->press(Qt::Key_Down, Qt::ShiftModifier);
    m_scene->press(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(m_scene->focusedName(), text("Brightness"));
    QTRY_COMPARE(storedColor(), text("#CC2929"));
    m_scene->press(Qt::Key_Tab);
    QCOMPARE(m_scene->focusedName(), text("Hue"));
    for (int step = 0; step < 12; ++step)
        m_scene->press(Qt::Key_Right, Qt::ShiftModifier);
    QTRY_COMPARE(storedColor(), text("#29CC29"));
    m_scene->press(Qt::Key_Tab);
    QCOMPARE(m_scene->focusedName(), text("Hex Color"));
}

void AppearancePanelsTest::theColorPanelWorksByMouse()
{
    openColorPanel();
    QQuickItem *field = childNamed(m_scene->window->contentItem(), "saturationField");
    if (!field)
        field = m_scene->window->findChild<QQuickItem *>(text("saturationField"));
    QVERIFY(field);
    const auto at = [&](double x, double y) {
        return field->mapToScene(QPointF(x * field->width(), y * field->height())).toPoint();
    };
    QTest::mousePress(m_scene->window.get(), Qt::LeftButton, Qt::NoModifier, at(0.5, 0));
    QTest::mouseMove(m_scene->window.get(), at(0.25, 0.5));
    QTest::mouseMove(m_scene->window.get(), at(-0.5, -0.5)); // outside: the nearest inside
    QTest::mouseRelease(m_scene->window.get(), Qt::LeftButton, Qt::NoModifier, at(-0.5, -0.5));
    QTRY_COMPARE(storedColor(), text("#FFFFFF"));
    QVERIFY(isColorPanelOpen());
}

// In the place of the one that the colour panel shows.
void AppearancePanelsTest::typeHexColor(const QByteArray &hex)
{
    openColorPanel();
    m_scene->press(Qt::Key_Tab);
    m_scene->press(Qt::Key_Tab);
    QCOMPARE(m_scene->focusedName(), text("Hex Color"));
    QTest::keyClick(m_scene->window.get(), Qt::Key_A, Qt::ControlModifier);
    for (const char c : hex)
        QTest::keyClick(m_scene->window.get(), c);
}

void AppearancePanelsTest::theColorPanelTakesAHexText()
{
    typeHexColor("12ab34");
    m_scene->press(Qt::Key_Return);
    QTRY_COMPARE(storedColor(), text("#12AB34"));
    QAccessibleInterface *hex = m_scene->control(QAccessible::EditableText, text("Hex Color"));
    QCOMPARE(hex->text(QAccessible::Value), text("#12AB34"));
    QTest::keyClick(m_scene->window.get(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(m_scene->window.get(), 'x');
    m_scene->press(Qt::Key_Return);
    QCOMPARE(hex->text(QAccessible::Value), text("#12AB34"));
}

void AppearancePanelsTest::escapeInTheHexTextChangesNothing()
{
    typeHexColor("12ab34");
    m_scene->press(Qt::Key_Escape);
    QTRY_VERIFY(!isColorPanelOpen());
    QTest::qWait(150); // longer than a colour waits to be stored
    QCOMPARE(storedColor(), text("#FF0000"));
}

void AppearancePanelsTest::assistiveProgramsSetTheSliders()
{
    openColorPanel();
    slider("Hue")->valueInterface()->setCurrentValue(240);
    QTRY_COMPARE(storedColor(), text("#0000FF"));
    slider("Brightness")->valueInterface()->setCurrentValue(50);
    QTRY_COMPARE(storedColor(), text("#000080"));
    m_scene->store->setAccentColor(m_folder.id, text("#FFFFFF"));
    QCOMPARE(slider("Brightness")->valueInterface()->currentValue().toInt(), 100);
}

void AppearancePanelsTest::escapeClosesTheColorPanel()
{
    openColorPanel();
    m_scene->press(Qt::Key_Escape);
    QTRY_VERIFY(!isColorPanelOpen());
    QCOMPARE(m_scene->focusedName(), text("Custom Color…"));
}

void AppearancePanelsTest::theColorPanelClosesWithTheFolder()
{
    openColorPanel();
    m_scene->press(Qt::Key_Left, Qt::ShiftModifier);
    m_scene->model->setFolder(m_other.id);
    QTRY_VERIFY(!isColorPanelOpen());
    QCOMPARE(m_scene->stored(m_other).accentColorHex, std::nullopt);
}

void AppearancePanelsTest::theSystemsOpenPanelIsAskedForPictures()
{
    m_scene->click(m_scene->cell(text("Load custom image…")));
    QCOMPARE(m_openPanel->requests.size(), 1);
    QCOMPARE(m_openPanel->requests.first().title, text("Choose Icon Image"));
    QCOMPARE(
        m_openPanel->requests.first().contentTypes.join(u' '),
        text("public.png public.jpeg public.tiff com.microsoft.bmp com.apple.icns public.heic"));
    QVERIFY(!m_scene->openPanel());
}

void AppearancePanelsTest::thePictureIsForTheFolderThatAsked()
{
    m_scene->click(m_scene->cell(text("Load custom image…")));
    m_scene->model->setFolder(m_other.id);
    m_openPanel->completion(FileURL::file(writeImage(text("a.png"))));
    QTRY_VERIFY(m_scene->stored(m_folder).customIconData);
    QCOMPARE(m_scene->stored(m_other), m_other);
}

void AppearancePanelsTest::aCancelledPanelChangesNothing()
{
    m_scene->click(m_scene->cell(text("Load custom image…")));
    m_openPanel->completion(std::nullopt);
    QCOMPARE(m_scene->stored(m_folder), m_folder);
}

QQuickWindow *AppearancePanelsTest::openImagePanel() const
{
    m_scene->click(m_scene->cell(text("Load custom image…")));
    QQuickWindow *panel = m_scene->openPanel();
    if (!panel)
        return nullptr;
    panel->requestActivate();
    return QTest::qWaitForWindowActive(panel) ? panel : nullptr;
}

void AppearancePanelsTest::theOpenPanelShowsThePictures()
{
    writeImage(text("b.png"));
    writeImage(text("a.png"));
    QQuickWindow *panel = openImagePanel();
    QVERIFY(panel);
    QCOMPARE(panel->title(), text("Choose Icon Image"));
    QCOMPARE(panel->modality(), Qt::NonModal);
    QAccessibleInterface *root = QAccessible::queryAccessibleInterface(panel);
    QTRY_VERIFY(accessibleChild(root, QAccessible::ListItem, text("b.png")));
    QVERIFY(accessibleChild(root, QAccessible::ListItem, text("a.png"))->state().selected);
    QVERIFY(!accessibleChild(root, QAccessible::StaticText, text("No pictures here")));
    for (const char *button : {"Cancel", "Open", "Enclosing Folder"})
        QVERIFY2(accessibleChild(root, QAccessible::Button, text(button)), button);
    m_scene->click(accessibleChild(root, QAccessible::ListItem, text("b.png")));
    m_scene->click(accessibleChild(root, QAccessible::Button, text("Open")));
    QTRY_VERIFY(m_scene->stored(m_folder).customIconData);
    QTRY_VERIFY(!m_scene->openPanel());
}

void AppearancePanelsTest::theOpenPanelChoosesByKeyboard()
{
    writeImage(text("b.png"));
    writeImage(text("a.png"));
    QQuickWindow *panel = openImagePanel();
    QVERIFY(panel);
    QTRY_VERIFY(accessibleChild(QAccessible::queryAccessibleInterface(panel), QAccessible::ListItem,
                                text("b.png")));
    QTest::keyClick(panel, Qt::Key_Down);
    QTest::keyClick(panel, Qt::Key_Return);
    QTRY_VERIFY(m_scene->stored(m_folder).customIconData);
    QTRY_VERIFY(!m_scene->openPanel());
    QTRY_COMPARE(m_scene->checkedCells(text("Symbol")), QStringList{text("Load custom image…")});
}

void AppearancePanelsTest::theOpenPanelGoesByPages()
{
    writeManyImages();
    QQuickWindow *panel = openImagePanel();
    QVERIFY(panel);
    const QQuickItem *const list = childNamed(panel->contentItem(), "fileList");
    QTRY_COMPARE(list->property("count").toInt(), manyImages);
    const auto row = [list] { return list->property("currentIndex").toInt(); };
    QTest::keyClick(panel, Qt::Key_PageDown);
    const int page = row();
    QVERIFY(page > 5 && page < list->height() / 24);
    QTest::keyClick(panel, Qt::Key_PageDown);
    QCOMPARE(row(), 2 * page);
    QTest::keyClick(panel, Qt::Key_PageUp);
    QTest::keyClick(panel, Qt::Key_Up);
    QCOMPARE(row(), page - 1);
    QTest::keyClick(panel, Qt::Key_PageUp);
    QCOMPARE(row(), 0);
    for (int key = 0; key < 8; ++key)
        QTest::keyClick(panel, Qt::Key_PageDown);
    QCOMPARE(row(), manyImages - 1);
}

void AppearancePanelsTest::theOpenPanelTakesAPath()
{
    QTemporaryDir elsewhere;
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QString path = elsewhere.filePath(text("far.png"));
    QVERIFY(image.save(path));
    QQuickWindow *panel = openImagePanel();
    QVERIFY(panel);
    QTest::keyClick(panel, Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    const auto type = [panel](const QString &typed) {
        for (const QChar c : typed)
            QTest::keyClick(panel, c.toLatin1());
        QTest::keyClick(panel, Qt::Key_Return);
    };
    type(text("/nothing/here"));
    QAccessibleInterface *root = QAccessible::queryAccessibleInterface(panel);
    QTRY_VERIFY(
        accessibleChild(root, QAccessible::AlertMessage, text("There is nothing at this path.")));
    QTest::keyClick(panel, Qt::Key_A, Qt::ControlModifier);
    type(path);
    QTRY_VERIFY(m_scene->stored(m_folder).customIconData);
}

void AppearancePanelsTest::theOpenPanelTakesNoOtherFileByItsPath()
{
    QTemporaryDir elsewhere;
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QString path = elsewhere.filePath(text("far.ppm")); // could be read, but is not offered
    QVERIFY(image.save(path));
    QQuickWindow *panel = openImagePanel();
    QVERIFY(panel);
    QTest::keyClick(panel, Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    for (const QChar c : path)
        QTest::keyClick(panel, c.toLatin1());
    QTest::keyClick(panel, Qt::Key_Return);
    QTRY_VERIFY(accessibleChild(QAccessible::queryAccessibleInterface(panel),
                                QAccessible::AlertMessage,
                                text("This is no picture that can be an icon.")));
    QVERIFY(panel->isVisible());
    QCOMPARE(m_scene->stored(m_folder), m_folder);
}

void AppearancePanelsTest::theOpenPanelScrollsByTheWheel()
{
    writeManyImages();
    QQuickWindow *panel = openImagePanel();
    QVERIFY(panel);
    const QQuickItem *const list = childNamed(panel->contentItem(), "fileList");
    QTRY_COMPARE(list->property("count").toInt(), manyImages);
    const QPoint place = list->mapToScene(QPointF(40, 40)).toPoint();
    QWheelEvent event(place, panel->mapToGlobal(place), QPoint(), QPoint(0, -360), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    event.setTimestamp(1000);
    QCoreApplication::sendEvent(panel, &event);
    QTRY_VERIFY(list->property("contentY").toReal() > 50);
}

void AppearancePanelsTest::theOpenPanelIsMirrored()
{
    writeImage(text("a.png"));
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    QQuickWindow *panel = openImagePanel();
    QVERIFY(panel);
    QAccessibleInterface *const root = QAccessible::queryAccessibleInterface(panel);
    QTRY_VERIFY(accessibleChild(root, QAccessible::ListItem, text("a.png")));
    const auto item = [root](QAccessible::Role role, const char *name) {
        return qobject_cast<QQuickItem *>(accessibleChild(root, role, text(name))->object());
    };
    const QQuickItem *const row = item(QAccessible::ListItem, "a.png");
    const auto right = [](const QQuickItem *shown) {
        return shown->mapRectToScene(shown->boundingRect()).right();
    };
    QCOMPARE(right(item(QAccessible::List, "Favorites")), panel->width() - 10.0);
    QVERIFY(right(row) < right(item(QAccessible::List, "Favorites")) - 100);
    QVERIFY(right(item(QAccessible::Button, "Open")) < panel->width() / 2.0);
    for (const QQuickItem *child : row->childItems()) {
        if (child->inherits("FileIconPicture"))
            QCOMPARE(right(child), right(row) - 8);
    }
}

void AppearancePanelsTest::escapeClosesTheOpenPanel()
{
    writeImage(text("a.png"));
    QQuickWindow *panel = openImagePanel();
    QVERIFY(panel);
    QTest::keyClick(panel, Qt::Key_Escape);
    QTRY_VERIFY(!m_scene->openPanel());
    QCOMPARE(m_scene->stored(m_folder), m_folder);
}

QTEST_MAIN(AppearancePanelsTest)
#include "tst_appearancepanels.moc"
