#pragma once

#include <QString>

/// Appends a line to the file that NESTLET_STANDIN_LOG names, if it does: "<process id> <line>".
/// From it, what a program of the stand-in does can be seen from outside.
void logState(const QString &line);
