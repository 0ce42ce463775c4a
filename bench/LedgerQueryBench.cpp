// What it costs to find something in a ledger of a million acts: 20,000 persons, 30 ops, 200 rules, five
// rooms, causes of 60 bytes, written by the ledger's own writer in batches of its own size. The file is made
// once and stays in the build folder.

#include "base/Latin1.h"
#include "bridge/ledger/Scribe.h"
#include "bridge/ledger/reading/UndoPlan.h"
#include "bridge/ledger/reading/Views.h"
#include "platform/sqlite/Beside.h"
#include "platform/sqlite/Opening.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <string>
#include <unistd.h>

using namespace halyard;

namespace {

constexpr std::int64_t Acts = 1'000'000;
constexpr std::int64_t Begin = 1'750'000'000'000; // ms UTC
constexpr std::int64_t Pause = 15'000;            // ms from act to act: half a year in all
constexpr std::int64_t End = Begin + Acts * Pause;
constexpr std::int64_t LargestLog = 4 << 20; // as the bot has it
constexpr std::size_t BatchFacts = 500;
#ifdef HALYARD_BENCH_FOLDER
constexpr const char* BenchFolder = HALYARD_BENCH_FOLDER;
#else
constexpr const char* BenchFolder = "."; // where a file is only looked at
#endif
const std::string Path = BenchFolder + std::string("/ledger-million.db");

/// What is said, and by whom; the same in each run.
class Maker {
  public:
    std::string Word() {
        std::string word;
        // A few words make up most of what is said.
        const auto number = static_cast<std::uint64_t>(Draw(1) * Draw(1) * Draw(1) * 8000);
        for (auto left = number * 2654435761U + 97; word.size() < 3 + number % 7; left /= 19)
            word += static_cast<char>('a' + left % 19);
        return word;
    }
    std::string Line(std::string line) {
        while (line.size() < 60) line += " " + Word();
        return line.substr(0, 60);
    }
    std::string Person() { return "Guest" + std::to_string(static_cast<int>(Draw(20'000))); }
    std::string Op() { return "The Op " + std::to_string(static_cast<int>(Draw(30))); }
    std::string Entry() { return "*word" + std::to_string(static_cast<int>(Draw(200))) + "*"; }
    double Draw(double end) { return std::uniform_real_distribution<double>(0, end)(source); }

  private:
    std::mt19937 source{1};
};

class Filling {
  public:
    explicit Filling(SqliteConnection& file) : file(file) {}

    void Run() {
        file.Execute("BEGIN");
        scribe.Begin(file, Begin, "bench");
        for (std::int64_t number = 1; number <= Acts; ++number) {
            AddAct(number);
            if (facts.size() >= BatchFacts) Flush();
        }
        Flush();
        file.Execute("COMMIT");
    }

  private:
    void AddAct(std::int64_t number) {
        const auto at = Begin + number * Pause;
        const auto person = maker.Person();
        const bool byOp = maker.Draw(1) < 0.4;
        CauseFact cause;
        cause.number = number;
        cause.kind = byOp ? CauseKind::OpLine : CauseKind::Rule;
        cause.room = rooms[static_cast<std::size_t>(maker.Draw(5))];
        cause.who = byOp ? maker.Op() : person;
        if (byOp && maker.Draw(1) < 0.5) cause.reason = maker.Word() + " " + maker.Word();
        if (!byOp) cause.rule = RuleKind::Autoword;
        if (!byOp) cause.entry = maker.Entry();
        cause.line = byOp && !cause.reason.empty() ? "ban " + person + "/" + cause.reason
                                                   : maker.Line(byOp ? "ban " + person : "");
        ActFact act;
        act.number = act.cause = number;
        act.at = at;
        act.kind = byOp && maker.Draw(1) < 0.3 ? ActKind::Kick : ActKind::Ban;
        act.room = cause.room;
        act.person = person;
        StepFact asked;
        asked.step = StepFact::Step::Asked;
        asked.act = number;
        asked.at = at;
        asked.room = cause.room;
        asked.wire = static_cast<std::int32_t>(number % 65535 + 1);
        auto answered = asked;
        answered.step = StepFact::Step::Answered;
        answered.after = 40;
        answered.outcome = ActOutcome::Accepted;
        ChangeFact change;
        change.at = at + 40;
        change.act = change.cause = number;
        change.list = ListName::Ejects;
        change.op = ChangeOp::Added;
        change.room = cause.room;
        change.entry = person;
        facts.insert(facts.end(), {std::move(cause), std::move(act), std::move(asked), std::move(answered),
                                   std::move(change)});
    }

    void Flush() {
        scribe.Write(file, facts, false);
        facts.clear();
        file.ResetAll();
        file.Execute("COMMIT");
        if (file.LogBytes() > LargestLog) file.Checkpoint(false);
        file.Execute("BEGIN");
    }

    SqliteConnection& file;
    Scribe scribe;
    Maker maker;
    std::vector<Fact> facts;
    std::array<NamedRoom, 5> rooms = {
        std::make_shared<RoomName>(RoomName{"The Lobby", 4}), std::make_shared<RoomName>(RoomName{"den", 4}),
        std::make_shared<RoomName>(RoomName{"games", 5}), std::make_shared<RoomName>(RoomName{"music", 4}),
        std::make_shared<RoomName>(RoomName{"news", 4})};
};

/// The file, made where it isn't there, opened as a reader beside the bot opens it.
OpenedConnection OpenMillion() {
    const auto spec = LedgerSpec(FromUtf8(Path), End / 1000);
    if (!FileStands(Path)) {
        auto made = OpenConnection(LedgerSpec(FromUtf8(Path + ".part"), End / 1000), OpenMode::ReadWrite);
        if (!made.connection) return made;
        Filling(*made.connection).Run();
        made.connection->Checkpoint(true);
        if (made.connection->Failed()) return {OpenOutcome::Failed, made.connection->Result(), nullptr};
        made.connection.reset();
        std::rename((Path + ".part").c_str(), Path.c_str());
    }
    return OpenConnection(spec, OpenMode::ReadOnly);
}

SqliteConnection* Million(benchmark::State& state) {
    static const auto opened = OpenMillion();
    if (!opened.connection) state.SkipWithError(opened.result.words.c_str());
    return opened.connection.get();
}

void ForgetCachedPages() {
    const int descriptor = open(Path.c_str(), O_RDONLY | O_CLOEXEC);
    fdatasync(descriptor);
    posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
    close(descriptor);
}

constexpr std::array Searches = {
    "",
    "#500000",
    "guest77",
    "guest77*",
    "room:den",
    "op:\"the op 7\"",
    "rule:word42",
    "kind:kick",
    "since:30d until:29d",
    "room:den op:theop7 kind:kick",
    "room:den rule:word42 person:guest77",
    "reason:ab*",
    "ba* ca* da*",
    "rule:word kind:kick",
    "rule:autoword kind:kick",
    "kind:kick rule:word42",
};

Search Asked(benchmark::State& state, std::size_t which) {
    state.SetLabel(Searches[which]);
    auto read = ReadSearch(Searches[which], End);
    auto* search = std::get_if<Search>(&read);
    return search ? *search : Search();
}

void LedgerSearch(benchmark::State& state) {
    auto* file = Million(state);
    if (!file) return;
    const auto search = Asked(state, static_cast<std::size_t>(state.range(0)));
    std::size_t found = 0;
    for (auto _ : state) found = FindActs(*file, search, 0, 100).size();
    state.counters["found"] = static_cast<double>(found);
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(Path)) / 1e6;
}
BENCHMARK(LedgerSearch)
    ->DenseRange(0, Searches.size() - 1)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

void LedgerSearchCold(benchmark::State& state) {
    if (!Million(state)) return;
    const auto search = Asked(state, static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        ForgetCachedPages();
        state.ResumeTiming();
        const auto opened = OpenMillion();
        benchmark::DoNotOptimize(FindActs(*opened.connection, search, 0, 100));
    }
}
BENCHMARK(LedgerSearchCold)
    ->DenseRange(0, Searches.size() - 1)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3)
    ->UseRealTime();

void LedgerPages(benchmark::State& state) {
    auto* file = Million(state);
    if (!file) return;
    const auto person = FindPerson(*file, "guest77"), op = FindPerson(*file, "The Op 7");
    const auto rules = ReadRules(*file, "*word42*");
    for (auto _ : state) {
        switch (state.range(0)) {
        case 0: benchmark::DoNotOptimize(ReadPerson(*file, person)); break;
        case 1: benchmark::DoNotOptimize(ReadOp(*file, op, 0)); break;
        default: benchmark::DoNotOptimize(ReadRule(*file, rules.front().row)); break;
        }
    }
    constexpr std::array names = {"person", "op", "rule"};
    state.SetLabel(names[static_cast<std::size_t>(state.range(0))]);
}
BENCHMARK(LedgerPages)
    ->DenseRange(0, 2)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(5)
    ->ReportAggregatesOnly();

/// The newest acts of one rule, of persons who are all out still.
void LedgerUndoPlan(benchmark::State& state) {
    auto* file = Million(state);
    if (!file) return;
    UndoAsk ask;
    for (const auto& act : FindActs(*file, std::get<Search>(ReadSearch("rule:autoword", End)), 0, 1000))
        ask.acts.push_back(act.number);
    const DeskNow now{.holds = [](const ListEntry&) { return true; },
                      .isOut = [](const std::string&, std::int16_t, const std::string&) { return true; },
                      .isLocked = [](const std::string&) { return false; },
                      .hits = [](const std::string&, const std::vector<ListEntry>&) { return std::string(); },
                      .option = [](const std::string&) { return std::nullopt; }};
    UndoPlan plan;
    for (auto _ : state) plan = PlanUndo(*file, ask, now);
    state.counters["items"] = static_cast<double>(plan.items.size());
    state.counters["entries"] = static_cast<double>(plan.first.size());
}
BENCHMARK(LedgerUndoPlan)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

} // namespace
