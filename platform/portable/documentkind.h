#pragma once

#include <QString>

/// What a document is, as far as its icon tells.
enum class DocumentKind {
    Plain,
    Text,
    Code,
    WebPage,
    Image,
    Audio,
    Video,
    PDF,
    Archive,
    Spreadsheet,
    Presentation,
    Font,
    DiskImage,
    Program,
};

/// By the file's name alone, which needs not exist. Any thread.
[[nodiscard]] DocumentKind documentKind(const QString &fileName);
/// Whether a file of that name is a picture that can be shown in a small size.
[[nodiscard]] bool isShowablePicture(const QString &fileName);
