#pragma once

#include "bench/ui/display.h"
#include "bench/ui/windowwatch.h"

#include <sys/types.h>

/// How a program is started.
struct ProgramCall {
    QByteArray path{};
    QList<QByteArray> environment{}; ///< all of it, but for the display
    uid_t user{}; ///< of the process, when the benchmark may choose
};

/// A program that shows a window: started, and there until this ends.
class ShownProgram {
public:
    struct Start {
        double firstFrame{}; ///< until something was to be seen, in seconds from the start
        double complete{}; ///< until all was there that came
        double processorTime{}; ///< of all its threads until then
    };
    /// What its threads did since they began.
    struct Activity {
        double switches{}; ///< how often one of them was put to sleep or woken
        double seconds{}; ///< of processor time
    };

    ShownProgram(const ProgramCall &call, const Display &display);
    ~ShownProgram();
    Q_DISABLE_COPY_MOVE(ShownProgram)

    [[nodiscard]] const Start &start() const { return m_start; }
    [[nodiscard]] Activity activity() const;
    /// Its share of memory, in bytes.
    [[nodiscard]] double memory() const;

private:
    [[nodiscard]] double processorTime() const;

    pid_t m_process{};
    Start m_start;
};
