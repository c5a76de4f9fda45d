#pragma once

#include "platform/directories.h"

/// The directories of the user who runs the program, as the file manager finds them.
class MacDirectories final : public Directories {
public:
    [[nodiscard]] FileURL applicationSupport() const override;
    [[nodiscard]] FileURL userApplications() const override;
    [[nodiscard]] FileURL home() const override;
    [[nodiscard]] FileURL temporary() const override;
    [[nodiscard]] FileURL system(const QString &absolutePath) const override;
};
