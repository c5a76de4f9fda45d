#pragma once

#include "platform/mainbundle.h"

/// The program's bundle, wherever the test puts it.
struct FakeMainBundle final : MainBundle {
    FileURL bundleURL = FileURL::directory(QStringLiteral("/Applications/Nestlet Companion.app"));
    std::optional<QString> bundleVersion = QStringLiteral("1");

    [[nodiscard]] FileURL url() const override { return bundleURL; }
    [[nodiscard]] std::optional<QString> version() const override { return bundleVersion; }
};
