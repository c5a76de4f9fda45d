#include "tests/pictures.h"
#include "tests/ui/itemtree.h"
#include "tests/ui/windowfixture.h"
#include "ui/firstpictures.h"
#include "ui/iconprovider.h"
#include "ui/windowengine.h"

/// What the window shows the first time that it is painted.
class WindowFirstFrameTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnWindowWarnings(); }
    void picturesThatWereBegunAreInIt();

private:
    [[nodiscard]] QList<DockFolder> folders();

    WindowFixture m_window;
};

// More than the sidebar has room for: with pictures, with items in grids of each size, and with
// symbols, some of them over items.
QList<DockFolder> WindowFirstFrameTest::folders()
{
    QList<DockFolder> folders;
    for (int number = 0; number < 30; ++number) {
        QStringList items;
        for (int item = 0; item <= number; ++item) {
            items.append(QStringLiteral("file:///item%1").arg(item));
            m_window.workspace.icons.insert(*FileURL::fromText(items.last()), filledImage(Qt::red));
        }
        DockFolder folder = folderNamed(QStringLiteral("Folder %1").arg(number), items);
        if (number % 3 == 1)
            folder.customIconData = pngOf(Qt::blue);
        if (number % 5 == 2)
            folder.iconSymbol = QStringLiteral("star.fill");
        folders.append(folder);
    }
    return folders;
}

void WindowFirstFrameTest::picturesThatWereBegunAreInIt()
{
    m_window.installNestlet();
    m_window.start(folders());
    beginFirstPictures(m_window.engine, *m_window.model->folders(), 1);
    providerOf<IconProvider>(&m_window.engine)->loader().pool().waitForDone();
    QVERIFY(m_window.makeWindow());
    m_window.window->grabWindow(); // paints, and delivers no picture that is made meanwhile
    const QList<QQuickItem *> pictures
        = descendants(m_window.named("folderList"), [](const QQuickItem *item) {
              return item->isVisible() && item->inherits("LoadedPicture");
          });
    QVERIFY2(pictures.size() >= 10, qPrintable(QString::number(pictures.size())));
    for (const QQuickItem *picture : pictures)
        QVERIFY2(picture->property("isLoaded").toBool(), picture->metaObject()->className());
}

QTEST_MAIN(WindowFirstFrameTest)
#include "tst_windowfirstframe.moc"
