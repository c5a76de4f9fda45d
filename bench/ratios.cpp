#include "bench/ratios.h"

#include "bench/monotonic.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <iostream>
#include <iterator>

namespace {

using Seconds = std::vector<double>; // one per round

double medianRatio(const Seconds &of, const Seconds &to)
{
    std::vector<double> ratios;
    std::ranges::transform(of, to, std::back_inserter(ratios), std::divides());
    return median(ratios);
}

double now(Timing timing)
{
    return monotonicSeconds(timing == Timing::Wall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID);
}

double secondsOf(const Variant &variant, const Work &work)
{
    if (variant.prepare)
        variant.prepare();
    if (variant.measure)
        return variant.measure();
    const double start = now(work.timing);
    for (int i = 0; i < work.repeat; ++i)
        variant.run();
    return (now(work.timing) - start) / work.repeat;
}

// The times of one piece of work: ours first, then the references', in their order.
class Rounds {
public:
    explicit Rounds(const Work &work)
        : m_work(work)
        , m_variants{&work.ours}
    {
        for (const Reference &reference : work.references)
            m_variants.push_back(&reference.variant);
        m_times.resize(m_variants.size());
    }

    void warmUp()
    {
        for (const Variant *variant : m_variants)
            secondsOf(*variant, m_work);
    }

    // Runs every variant once; returns our time.
    double runRound()
    {
        const size_t count = m_variants.size();
        for (size_t turn = 0; turn < count; ++turn) {
            const size_t index = (turn + m_round) % count;
            m_times[index].push_back(secondsOf(*m_variants[index], m_work));
        }
        ++m_round;
        return m_times.front().back();
    }

    [[nodiscard]] const Seconds &ours() const { return m_times.front(); }
    [[nodiscard]] const Seconds &reference(size_t index) const { return m_times[index + 1]; }

private:
    const Work &m_work;
    std::vector<const Variant *> m_variants;
    std::vector<Seconds> m_times;
    size_t m_round{};
};

std::string printed(const char *format, double value)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

std::string timeText(double seconds)
{
    if (seconds < 1e-6)
        return printed("%.1f ns", seconds * 1e9);
    if (seconds < 1e-3)
        return printed("%.2f us", seconds * 1e6);
    return printed("%.3f ms", seconds * 1e3);
}

std::string row(const std::string &name, const std::string &time, const std::string &verdict)
{
    std::array<char, 256> text{};
    std::snprintf(text.data(), text.size(), "%-58.58s %12s   %s\n", name.c_str(), time.c_str(),
                  verdict.c_str());
    return text.data();
}

const char *met(bool isMet)
{
    return isMet ? "   met" : "   MISSED";
}

// "23 x faster   goal 15   met" or "2.1 x its time   goal 3   met".
std::string verdict(const Reference &reference, double oursToReference)
{
    if (reference.timesFaster > 0) {
        const double faster = 1 / oursToReference;
        return printed("%7.2f x faster    ", faster) + printed("goal %g x", reference.timesFaster)
            + met(faster >= reference.timesFaster);
    }
    std::string longer = printed("%7.3f x its time  ", oursToReference);
    if (reference.timesLonger <= 0)
        return longer;
    return longer + printed("goal %g x", reference.timesLonger)
        + met(oursToReference <= reference.timesLonger);
}

std::string &table()
{
    static std::string text;
    return text;
}

void report(const Work &work, const Rounds &rounds, benchmark::State &state)
{
    table() += row(work.name, timeText(median(rounds.ours())), work.ours.name);
    for (size_t i = 0; i < work.references.size(); ++i) {
        const Reference &reference = work.references[i];
        const double ratio = medianRatio(rounds.ours(), rounds.reference(i));
        table() += row("    " + reference.variant.name, timeText(median(rounds.reference(i))),
                       verdict(reference, ratio));
        state.counters["x " + reference.variant.name] = ratio;
    }
}

void measure(const Work &work, benchmark::State &state)
{
    Rounds rounds(work);
    rounds.warmUp();
    for ([[maybe_unused]] const auto round : state)
        state.SetIterationTime(rounds.runRound());
    report(work, rounds, state);
}

void registerFigure(const std::string &name, std::function<double()> measure,
                    std::function<std::string(double)> toRow)
{
    const auto benchmark = [=](benchmark::State &state) {
        double figure = 0;
        for ([[maybe_unused]] const auto round : state) {
            figure = measure();
            state.SetIterationTime(1e-9); // there is no time to tell of
        }
        state.counters["figure"] = figure;
        table() += toRow(figure);
    };
    benchmark::RegisterBenchmark(name.c_str(), benchmark)->UseManualTime()->Iterations(1);
}

} // namespace

double median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    const auto middle = values.begin() + std::ssize(values) / 2;
    std::ranges::nth_element(values, middle);
    return *middle;
}

void Ratios::addFigure(std::string name, double goal, std::function<double()> measure)
{
    registerFigure(name, std::move(measure), [=](double figure) {
        return row(name, printed("%.3f x", figure),
                   goal > 0 ? printed("goal at most %g x", goal) + met(figure <= goal)
                            : std::string());
    });
}

void Ratios::addCount(std::string name, double most, std::function<double()> measure)
{
    registerFigure(name, std::move(measure), [=](double count) {
        return row(name, printed("%.3g", count),
                   printed("goal at most %g", most) + met(count <= most));
    });
}

int Ratios::run(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    for (const Work &work : m_works) {
        benchmark::RegisterBenchmark(work.name.c_str(),
                                     [&work](benchmark::State &state) { measure(work, state); })
            ->UseManualTime()
            ->Iterations(work.rounds)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::cerr << '\n' << table() << '\n'; // beside a report in JSON, not in it
    return 0;
}
