#pragma once

#include <QString>

#include <chrono>
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
    /// What the system can refuse.
    enum class Action {
        List,
        Read,
        Write,
        Create,
        Copy,
        CopyIntoItself,
        Move,
        Remove,
        Launch,
        WaitFor,
    };

    explicit PlatformError(const QString &description)
        : m_description(description)
    {
    }

    /// "Could not <action> “<path>”: <reason>".
    PlatformError(Action action, const QString &path, const QString &reason);
    /// The same with the system's words for the errno value as the reason.
    [[nodiscard]] static PlatformError fromErrno(Action action, const QString &path,
                                                 int errorNumber);
    /// A program was ended because it took longer than this.
    [[nodiscard]] static PlatformError tookTooLong(const QString &path,
                                                   std::chrono::duration<double> limit);
    [[nodiscard]] static PlatformError withoutReason();

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
