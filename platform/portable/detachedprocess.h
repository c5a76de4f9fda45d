#pragma once

#include <QByteArray>
#include <QList>

/// A program to be started, all in the system's own bytes.
struct Program {
    QByteArray path{};
    QList<QByteArray> arguments{}; ///< behind the program's own name
    QList<QByteArray> environment{}; ///< "NAME=value"
};

enum class Streams {
    Inherited, ///< output and errors go where this program's go
    Silent, ///< both go nowhere
};

/// Starts a program that is nobody's child: in a session of its own, at "/", with nothing on its
/// standard input and no other file of this program open. It leaves no zombie. Throws PlatformError
/// with the system's reason when the program cannot be executed.
void startDetached(const Program &program, Streams streams);

/// The null-terminated array of pointers that system calls take; valid as long as `texts` is.
[[nodiscard]] QList<char *> pointersTo(const QList<QByteArray> &texts);
