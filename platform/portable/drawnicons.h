#pragma once

#include <QImage>

// Icons for what brings none of its own. Drawn on images alone: they work on any thread.

[[nodiscard]] QImage drawnFolderIcon(int side);
/// A sheet of paper with a folded corner and the file's extension.
[[nodiscard]] QImage drawnDocumentIcon(const QString &extension, int side);
[[nodiscard]] QImage drawnApplicationIcon(int side);
