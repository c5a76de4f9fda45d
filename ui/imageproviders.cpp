#include "ui/imageproviders.h"

#include "ui/iconprovider.h"
#include "ui/pictureprovider.h"

#include <QQmlEngine>

void addImageProviders(QQmlEngine &engine, const Workspace &workspace, const PictureStore &pictures)
{
    engine.addImageProvider(IconProvider::name(), new IconProvider(workspace));
    engine.addImageProvider(PictureProvider::name(), new PictureProvider(pictures));
}
