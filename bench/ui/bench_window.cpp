// What the program takes to open its window, to keep it open and to do nothing, seen from outside.

#include "bench/ratios.h"
#include "bench/require.h"
#include "bench/ui/editorhome.h"
#include "bench/ui/librarymac.h"
#include "bench/ui/shownprogram.h"

#include <QThread>

#include <map>
#include <optional>

namespace {

constexpr int rounds = 15;

using Starts = std::vector<ShownProgram::Start>; // one per round, and one before

/// The programs to compare and how each started: all of them once in each round, in rotating order.
class Programs {
public:
    explicit Programs(const Display &display)
        : m_display(display)
    {
    }

    void add(const std::string &name, const ProgramCall &call) { m_calls.emplace_back(name, call); }

    /// Starts all of them, when that has not been done.
    const Starts &starts(const std::string &name)
    {
        if (m_starts.empty()) {
            for (size_t round = 0; round <= rounds; ++round)
                runRound(round);
        }
        return m_starts[name];
    }

    [[nodiscard]] std::unique_ptr<ShownProgram> open(const std::string &name) const
    {
        const auto found = std::ranges::find(m_calls, name, &Named::first);
        return std::make_unique<ShownProgram>(found->second, m_display);
    }

private:
    using Named = std::pair<std::string, ProgramCall>;

    void runRound(size_t round)
    {
        for (size_t turn = 0; turn < m_calls.size(); ++turn) {
            const Named &program = m_calls[(turn + round) % m_calls.size()];
            m_starts[program.first].push_back(ShownProgram(program.second, m_display).start());
        }
    }

    const Display &m_display;
    std::vector<Named> m_calls;
    std::map<std::string, Starts> m_starts;
};

using Aspect = double ShownProgram::Start::*;

// The same starts are looked at from several sides: each variant goes through them once.
Variant variant(Programs &programs, const std::string &name, Aspect aspect)
{
    return {.name = name, .measure = [&programs, name, aspect, round = size_t{0}]() mutable {
                const Starts &starts = programs.starts(name);
                return starts[round++ % starts.size()].*aspect;
            }};
}

struct Beside {
    std::string program;
    double timesLonger;
    Aspect aspect;
};

void addStart(Ratios &ratios, Programs &programs, const std::string &name, const std::string &title,
              Aspect aspect, const std::vector<Beside> &references)
{
    Work work{.name = title, .ours = variant(programs, name, aspect), .rounds = rounds};
    for (const Beside &beside : references) {
        work.references.push_back({.variant = variant(programs, beside.program, beside.aspect),
                                   .timesLonger = beside.timesLonger});
    }
    ratios.add(work);
}

QList<QByteArray> commonEnvironment()
{
    return {"PATH=/usr/bin:/bin", "LANG=C.UTF-8", "XDG_RUNTIME_DIR=/tmp"};
}

ProgramCall quickCall(const char *path, const LibraryMac &mac, const char *backend)
{
    return {.path = path,
            .environment = commonEnvironment() + mac.environment()
                + QList<QByteArray>{QByteArray("QT_QUICK_BACKEND=") + backend}};
}

// Of an open window that shares the toolkit with no other program, as that halves what each is
// charged for it.
double memoryAlone(const Programs &programs, const std::string &name)
{
    const auto program = programs.open(name);
    QThread::sleep(1);
    return program->memory();
}

// Beyond the memory of the minimal window: what the pictures in view take, one in each row.
double memoryRatio(const Programs &programs, const std::string &ours, const std::string &minimal)
{
    constexpr int picturesInView = 15 * 36 * 36;
    std::vector<double> ratios;
    for (int round = 0; round < 5; ++round) {
        const double own = memoryAlone(programs, ours) - picturesInView * 4;
        ratios.push_back(own / memoryAlone(programs, minimal));
    }
    return median(ratios);
}

ShownProgram::Activity idleActivity(const Programs &programs, const std::string &name)
{
    const auto program = programs.open(name);
    QThread::sleep(6);
    const ShownProgram::Activity before = program->activity();
    QThread::sleep(20);
    const ShownProgram::Activity after = program->activity();
    return {.switches = after.switches - before.switches,
            .seconds = after.seconds - before.seconds};
}

void addIdle(Ratios &ratios, const Programs &programs, const std::string &name)
{
    const auto activity = std::make_shared<std::optional<ShownProgram::Activity>>();
    const auto measured = [&programs, name, activity] {
        if (!*activity)
            *activity = idleActivity(programs, name);
        return **activity;
    };
    ratios.addCount("20 seconds idle, " + name + ": context switches", 0,
                    [measured] { return measured().switches; });
    ratios.addCount("20 seconds idle, " + name + ": ms of processor time", 0,
                    [measured] { return measured().seconds * 1000; });
}

} // namespace

int main(int argc, char **argv)
{
    const Display display;
    const LibraryMac ten(10);
    const LibraryMac hundred(100);
    const LibraryMac thousand(1000);
    const EditorHome editor;
    Programs programs(display);
    programs.add("software", quickCall(COMPANION_PROGRAM, hundred, "software"));
    programs.add("minimal, software", quickCall(MINIMAL_PROGRAM, hundred, "software"));
    programs.add("OpenGL", quickCall(COMPANION_PROGRAM, hundred, "rhi"));
    programs.add("minimal, OpenGL", quickCall(MINIMAL_PROGRAM, hundred, "rhi"));
    programs.add("10 folders", quickCall(COMPANION_PROGRAM, ten, "software"));
    programs.add("1,000 folders", quickCall(COMPANION_PROGRAM, thousand, "software"));
    if (EditorHome::isThere())
        programs.add("menulibre", editor.call(commonEnvironment()));

    constexpr Aspect first = &ShownProgram::Start::firstFrame;
    constexpr Aspect complete = &ShownProgram::Start::complete;
    constexpr Aspect processor = &ShownProgram::Start::processorTime;
    Ratios ratios;
    const std::map<std::string, double> renderers{{"software", 0.3}, {"OpenGL", 0.5}};
    for (const auto &[renderer, ofEditor] : renderers) {
        const std::string minimal = "minimal, " + renderer;
        std::vector<Beside> toComplete{{minimal, 1.5, complete}};
        if (EditorHome::isThere())
            toComplete.push_back({"menulibre", ofEditor, first});
        addStart(ratios, programs, renderer, "Start to the first frame, 100 folders", first,
                 {{minimal, 1.5, first}});
        addStart(ratios, programs, renderer, "Start until every picture is there", complete,
                 toComplete);
        addStart(ratios, programs, renderer, "The same in processor time", processor,
                 {{minimal, 0, processor}});
    }
    addStart(ratios, programs, "1,000 folders", "Start until every picture is there", complete,
             {{"10 folders", 1.3, complete}});
    addStart(ratios, programs, "1,000 folders", "The same in processor time", processor,
             {{"10 folders", 0, processor}});
    for (const std::string renderer : {"software", "OpenGL"}) {
        ratios.addFigure("Memory beside the minimal window, " + renderer, 1.3, [&, renderer] {
            return memoryRatio(programs, renderer, "minimal, " + renderer);
        });
        addIdle(ratios, programs, renderer);
    }
    return ratios.run(argc, argv);
}
