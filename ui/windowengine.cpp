#include "ui/windowengine.h"

#include "builder/iconimage.h"
#include "ui/iconprovider.h"
#include "ui/pictureprovider.h"

// Generated with the QML module. Naming it keeps the module's types in the program.
extern void qml_register_types_Nestlet_Companion(); // NOLINT(readability-identifier-naming)

void addWindowTypes(QQmlEngine &engine)
{
    [[maybe_unused]] auto *const volatile uiTypes = &qml_register_types_Nestlet_Companion;
    engine.addImportPath(QStringLiteral(":/qt/qml"));
}

void addPictureProviders(QQmlEngine &engine, const Workspace &workspace,
                         const PictureStore &pictures)
{
    allowLargePictures(); // while no thread reads any
    new IconProvider(workspace, &engine);
    new PictureProvider(pictures, &engine);
}

void refreshIcons(const QQmlEngine &engine)
{
    if (auto *const icons = providerOf<IconProvider>(&engine))
        icons->refresh();
}
