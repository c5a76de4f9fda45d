#pragma once

#include <QString>

#include <exception>

/// What every failure of this program can say to its user. Thrown by tools, caught once at the edge
/// of a store operation.
class Error : public std::exception {
public:
    /// One or more sentences in the user's words, shown as they are.
    [[nodiscard]] virtual QString description() const = 0;
    [[nodiscard]] const char *what() const noexcept override { return "Nestlet Companion error"; }
};

/// The system refused something: what could not be done, on which path, and the system's own
/// reason.
class PlatformError final : public Error {
public:
    explicit PlatformError(const QString &description)
        : m_description(description)
    {
    }

    /// "<action> “<path>”: <reason of errno value `errorNumber`>".
    [[nodiscard]] static PlatformError fromErrno(const QString &action, const QString &path,
                                                 int errorNumber);

    [[nodiscard]] QString description() const override { return m_description; }
    bool operator==(const PlatformError &other) const
    {
        return m_description == other.m_description;
    }

private:
    QString m_description;
};

/// Runs `action` and drops any Error it throws: the silence that clean-up paths promise.
template <typename Action> void ignoringErrors(Action &&action)
{
    try {
        action();
    } catch (const Error &) { // NOLINT(bugprone-empty-catch): silence is what this function is for
    }
}
