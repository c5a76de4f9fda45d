#include "tests/fakes/fakeappearance.h"
#include "tests/store/storefixture.h"
#include "ui/companionviewmodel.h"
#include "ui/picturestore.h"
#include "ui/systemappearance.h"
#include "ui/windowengine.h"

#include <QAccessible>
#include <QBuffer>
#include <QMetaEnum>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QtQuickTest>

/// What is around the view that a test shows, "mac" in the tests: how the system looks, what its
/// files look like, and the ears of an assistive program. Fakes all.
class Mac final : public QObject {
    Q_OBJECT
    Q_PROPERTY(CompanionViewModel *model READ model CONSTANT)
    /// What was opened through the model.
    Q_PROPERTY(QStringList opened READ opened)

public:
    explicit Mac(QQmlEngine &engine)
    {
        m_fixture.installNestlet();
        m_fixture.startWith({folderNamed(QStringLiteral("Work"))});
        setAppearance(engine, m_appearance);
        addPictureProviders(engine, m_fixture.workspace, m_pictures);
        addWindowTypes(engine);
    }

    [[nodiscard]] CompanionViewModel *model() { return &m_model; }
    [[nodiscard]] QStringList opened() const
    {
        QStringList paths;
        for (const FakeWorkspace::Opened &opened : m_fixture.workspace.opened)
            paths.append(opened.bundle.path());
        return paths;
    }

    /// Light and still, as most tests want it.
    Q_INVOKABLE void reset() { m_appearance.change({.reducesMotion = true}); }
    Q_INVOKABLE void makeDark() { m_appearance.change({.isDark = true, .reducesMotion = true}); }
    Q_INVOKABLE void setAccent(const QColor &accent)
    {
        m_appearance.change({.accent = accent, .reducesMotion = true});
    }

    /// Gives the file of that URL an icon of one colour.
    Q_INVOKABLE void setIcon(const QString &url, const QColor &color)
    {
        m_fixture.workspace.icons.insert(FileURL::fromValidText(url), square(color));
    }
    /// What a folder with a picture of one colour has for `pictureSource`.
    Q_INVOKABLE [[nodiscard]] QString picture(const QColor &color)
    {
        DockFolder folder = folderNamed(QStringLiteral("With a picture"));
        QBuffer png;
        square(color).save(&png, "PNG");
        folder.customIconData = png.data();
        return m_pictures.pictureSource(folder);
    }

    /// What an assistive program is told of an item: role, name, description, value, and those of
    /// its states and actions that a user would be told of. Empty: it is told nothing.
    Q_INVOKABLE [[nodiscard]] static QVariantMap told(QQuickItem *item)
    {
        QAccessibleInterface *const interface = QAccessible::queryAccessibleInterface(item);
        if (interface == nullptr || interface->parent()->indexOfChild(interface) < 0)
            return {};
        const auto role = QMetaEnum::fromType<QAccessible::Role>().valueToKey(interface->role());
        QAccessibleActionInterface *const actions = interface->actionInterface();
        return {{QStringLiteral("role"), QString::fromLatin1(role)},
                {QStringLiteral("name"), interface->text(QAccessible::Name)},
                {QStringLiteral("description"), interface->text(QAccessible::Description)},
                {QStringLiteral("value"), interface->text(QAccessible::Value)},
                {QStringLiteral("states"), statesOf(*interface)},
                {QStringLiteral("actions"), actions ? actions->actionNames() : QStringList()}};
    }
    /// The text that an item's help tag shows just now; empty: none.
    Q_INVOKABLE [[nodiscard]] static QString helpTag(QQuickItem *item)
    {
        const QObject *const popup = helpTagPopup(item);
        const bool isShown = popup && popup->property("visible").toBool()
            && popup->property("parent").value<QQuickItem *>() == item;
        return isShown ? popup->property("text").toString() : QString();
    }
    Q_INVOKABLE [[nodiscard]] static QSizeF helpTagSize(QQuickItem *item)
    {
        const QObject *const popup = helpTagPopup(item);
        return {popup->property("width").toReal(), popup->property("height").toReal()};
    }
    /// Lets an assistive program act on an item.
    Q_INVOKABLE static void act(QQuickItem *item, const QString &action)
    {
        QAccessible::queryAccessibleInterface(item)->actionInterface()->doAction(action);
    }

private:
    // Null: no help tag has been shown yet.
    [[nodiscard]] static QObject *helpTagPopup(QQuickItem *item)
    {
        return qmlEngine(item)->findChild<QObject *>(QStringLiteral("helpTagPopup"),
                                                     Qt::FindDirectChildrenOnly);
    }
    [[nodiscard]] static QImage square(const QColor &color)
    {
        QImage image(256, 256, QImage::Format_ARGB32_Premultiplied);
        image.fill(color);
        return image;
    }
    [[nodiscard]] static QStringList statesOf(const QAccessibleInterface &interface)
    {
        const QAccessible::State state = interface.state();
        QStringList names;
        const auto add = [&](bool isSet, const char *name) {
            if (isSet)
                names.append(QString::fromLatin1(name));
        };
        add(state.checkable, "checkable");
        add(state.checked, "checked");
        add(state.readOnly, "readOnly");
        add(state.selectable, "selectable");
        add(state.selected, "selected");
        return names;
    }

    StoreFixture m_fixture;
    FakeAppearance m_appearance;
    PictureStore m_pictures;
    CompanionViewModel m_model{*m_fixture.store, m_pictures};
};

/// Each file of tests gets an engine, and a Mac with it.
class ViewsSetup final : public QObject {
    Q_OBJECT

public Q_SLOTS:
    static void applicationAvailable()
    {
        qputenv("QT_QUICK_BACKEND", "software");
        qputenv("QT_QUICK_CONTROLS_HOVER_ENABLED", "1"); // as on a desktop
    }
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        m_macs.push_back(std::make_unique<Mac>(*engine));
        engine->rootContext()->setContextProperty(QStringLiteral("mac"), m_macs.back().get());
    }
    void cleanupTestCase() { m_macs.clear(); }

private:
    std::vector<std::unique_ptr<Mac>> m_macs;
};

QUICK_TEST_MAIN_WITH_SETUP(tst_views, ViewsSetup)
#include "tst_views.moc"
