#pragma once

#include "platform/fileurl.h"

#include <QVariantMap>

class FileSystem;

/// A property list with that root element.
[[nodiscard]] QByteArray xml(const QByteArray &root);

/// Writes `bytes` as the bundle's Info.plist and makes the directories above it.
void writeInfoPlistBytes(const FileURL &bundle, const QByteArray &bytes, const FileSystem &files);

/// The same for a dictionary, as XML.
void writeInfoPlist(const FileURL &bundle, const QVariantMap &info, const FileSystem &files);

/// The bundle's Info.plist as it is now.
[[nodiscard]] QVariantMap readInfoPlist(const FileURL &bundle, const FileSystem &files);

/// A small template app: an Info.plist with keys of every type, an executable, nested code, links
/// and the artifacts of a signature.
void makeTemplateApp(const FileURL &bundle, const FileSystem &files);

/// Writes a file and makes the directories above it.
void writeFile(const FileURL &url, const QByteArray &bytes, const FileSystem &files);
