#pragma once

class PictureStore;
class QQmlEngine;
class Workspace;

/// Gives an engine what the window's icons and pictures come from; to be called before it loads
/// anything. The engine owns the providers; workspace and pictures must outlive it.
void addImageProviders(QQmlEngine &engine, const Workspace &workspace,
                       const PictureStore &pictures);
