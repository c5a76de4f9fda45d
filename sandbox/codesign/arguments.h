#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// What the tool was asked to do.
struct CodesignArguments {
    enum class Operation { sign, verify, display };

    Operation operation{Operation::verify};
    QString identity{}; ///< of "--sign"; "-" is ad hoc
    QString identifier{};
    QString entitlements{}; ///< signing: the file to read; displaying: where to print them
    QString requirement{}; ///< verifying: what the code must satisfy as well
    bool deep{};
    bool strict{};
    bool force{};
    int verbosity{};
    QStringList paths{};
    bool operator==(const CodesignArguments &) const = default;
};

/// The arguments after the program's name; nothing when the tool would print its usage.
[[nodiscard]] std::optional<CodesignArguments> parseCodesignArguments(const QStringList &arguments);
[[nodiscard]] QString codesignUsage();
