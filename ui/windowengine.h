#pragma once

#include <QQmlEngine>

class PictureStore;
class Workspace;

// What an engine needs before it can load the window.

/// Lets an engine load the window's own types; to be called before it loads anything.
void addWindowTypes(QQmlEngine &engine);

/// Gives an engine what the window's icons and pictures come from; to be called before it loads
/// anything. The engine owns the providers; workspace and pictures must outlive it.
void addPictureProviders(QQmlEngine &engine, const Workspace &workspace,
                         const PictureStore &pictures);

/// To be called when files may have other icons than before.
void refreshIcons(const QQmlEngine &engine);

/// The provider of an engine; null when it has none, or there is no engine.
template <typename Provider> [[nodiscard]] Provider *providerOf(const QQmlEngine *engine)
{
    return engine == nullptr ? nullptr
                             : engine->findChild<Provider *>(QString(), Qt::FindDirectChildrenOnly);
}
