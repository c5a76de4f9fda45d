#pragma once

#include "platform/portable/documentkind.h"

#include <QImage>

// Icons for what brings none of its own. Drawn on images alone: they work on any thread.

[[nodiscard]] QImage drawnFolderIcon(int side);
/// A sheet of paper with a folded corner, a picture of its kind and the file's extension.
[[nodiscard]] QImage drawnDocumentIcon(DocumentKind kind, const QString &extension, int side);
[[nodiscard]] QImage drawnApplicationIcon(int side);
/// A picture as a small print of itself: in its proportions, with an edge.
[[nodiscard]] QImage drawnThumbnail(const QImage &picture, int side);
