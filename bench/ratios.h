#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

/// 0 when there are none.
[[nodiscard]] double median(std::vector<double> values);

/// One way to do a piece of work. Only `run` is timed.
struct Variant {
    std::string name{};
    std::function<void()> run{};
    std::function<void()> prepare{}; ///< before every run
    /// Instead of `run`, for what cannot be timed from here: does the work and gives its seconds.
    std::function<double()> measure{};
};

/// A variant to compare with, and what is wanted of the comparison (0: nothing, it is shown only).
/// A peer is another way to do the same work: `timesFaster` 15 asks for a fifteenth of its time.
/// A floor is work that no way can do without: `timesLonger` 3 allows three times its time.
struct Reference {
    Variant variant{};
    double timesFaster{};
    double timesLonger{};
};

/// What a piece of work is timed by. The processor time of this thread leaves out what other
/// programs take from a busy machine: for work that neither waits nor has other threads or programs
/// do it.
enum class Timing { Wall, ProcessorTime };

/// A piece of work, how we do it and what that is measured against. In each round every variant has
/// its turn, in rotating order, so that a machine whose speed drifts slows all of them alike. One
/// round goes before and is not counted. Times are medians, ratios medians of the rounds' own
/// ratios.
struct Work {
    std::string name{};
    Variant ours{};
    std::vector<Reference> references{};
    int rounds{15};
    int repeat{
        1}; ///< runs per turn, for work that is too short to time once (use no `prepare` then)
    Timing timing{Timing::Wall};
};

/// The benchmarks of one program, run by Google Benchmark (one benchmark per piece of work, manual
/// time, the ratios as counters) and shown at the end as a table of ratios:
///
///     int main(int argc, char **argv)
///     {
///         Ratios ratios;
///         ratios.add({.name = "Filter 4,000 names",
///                     .ours = {"arena", [&] { benchmark::DoNotOptimize(filter(arena, text)); }},
///                     .references = {{.variant = {"QString::contains", [&] { ... }},
///                                     .timesFaster = 3}}});
///         return ratios.run(argc, argv);
///     }
///
/// `--benchmark_filter=REGEX`, `--benchmark_format=json` and the like work as usual. The exit
/// status says whether the program ran, not whether goals were met: those depend on the machine's
/// mood.
class Ratios {
public:
    void add(Work work) { m_works.push_back(std::move(work)); }
    /// A ratio that is no time, such as memory. `measure` gives it; at most `goal` is wanted (0: it
    /// is shown only).
    void addFigure(std::string name, double goal, std::function<double()> measure);
    /// The same for what is counted: at most `most` is wanted.
    void addCount(std::string name, double most, std::function<double()> measure);
    int run(int argc, char **argv);

private:
    std::vector<Work> m_works;
};
