#pragma once

#include <QtGlobal>

class FolderListModel;
class QQmlEngine;

/// Begins to make the pictures that the sidebar opens with, for its first frame to show them: to be
/// called once the folders are known, before there is a window. `pixelRatio`: of the screen that
/// the window will be on; for another, they would be made in vain.
void beginFirstPictures(const QQmlEngine &engine, const FolderListModel &folders, qreal pixelRatio);
