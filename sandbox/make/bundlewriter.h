#pragma once

#include "platform/propertylist.h"
#include "sandbox/drawing/appicon.h"

#include <QString>
#include <QVariantMap>

// Writes the files of one bundle. Failures throw PlatformErrors.

/// What an Info.plist says of an application, before anything of its own.
[[nodiscard]] QVariantMap applicationInfo(const QString &name, const QString &identifier,
                                          const QString &executable);

/// "Contents" with its Info.plist, package information, program and, when there is a look, an icon.
void writeApplication(const QString &bundle, const QVariantMap &info, const QString &program,
                      const AppIconLook &look, PropertyListFormat format = PropertyListFormat::XML);

/// A versioned framework with a program that is never run, links included.
void writeFramework(const QString &bundle, const QString &identifier, const QString &program);
