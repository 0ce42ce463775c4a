// What the ledger costs the loop: each fact of a ban that is written by a writer of its own into a file, and
// the line that is only remembered.

#ifdef HALYARD_SQLITE

#include "bench/SilentBot.h"
#include "bridge/ledger/LastLines.h"
#include "bridge/ledger/Ledger.h"
#include "platform/sqlite/SqliteDatabase.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <filesystem>
#include <mutex>
#include <optional>
#include <thread>

using namespace halyard;

namespace {

/// The loop's end of the database: answers wait until they are run.
class Loop {
  public:
    void Post(std::function<void()> work) {
        const std::lock_guard held(lock);
        posted.push_back(std::move(work));
        came.notify_one();
    }
    /// Runs what has come; waits for the first, unless told otherwise.
    void RunSome(bool wait = true) {
        std::unique_lock held(lock);
        if (wait) came.wait(held, [this] { return !posted.empty(); });
        while (!posted.empty()) {
            auto work = std::move(posted.front());
            posted.pop_front();
            held.unlock();
            work();
            held.lock();
        }
    }

  private:
    std::mutex lock;
    std::condition_variable came;
    std::deque<std::function<void()>> posted;
};

class Stopwatch {
  public:
    template <typename Act>
    void Time(Act&& act) {
        const auto begin = std::chrono::steady_clock::now();
        act();
        times.push_back(
            std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - begin).count());
    }
    double At(double part) {
        const auto place = static_cast<std::ptrdiff_t>(static_cast<double>(times.size() - 1) * part);
        std::nth_element(times.begin(), times.begin() + place, times.end());
        return times[static_cast<std::size_t>(place)];
    }

  private:
    std::vector<double> times;
};

/// Goes behind all that writes into it.
struct Folder {
    Folder() { std::filesystem::remove_all(path); }
    ~Folder() { std::filesystem::remove_all(path); }
    std::filesystem::path path = std::filesystem::temp_directory_path() / "halyard-ledger-bench";
};

/// A ledger on a file with a writer of its own, and an op whose bans it hears of.
struct BanningOp {
    Folder folder;
    Loop loop;
    SilentBot bot;
    std::optional<Ledger> ledger;
    std::int32_t id = 0;

    BanningOp() {
        bot.platform.databases = [this] {
            return std::make_unique<SqliteDatabase>(
                [this](std::function<void()> work) { loop.Post(std::move(work)); });
        };
        bot.options.StartUp();
        bot.control.DefaultChatSends();
        ledger.emplace(bot.platform, bot.options);
        bot.control.SetNews(&*ledger);
        ledger->Start((folder.path / "ledger.db").string(), "bench");
        while (!ledger->Records()) loop.RunSome();
        ledger->RoomEntered(2, "lobby", 4);
    }
    ~BanningOp() { bot.control.SetNews(nullptr); }

    /// `time` runs each fact.
    template <typename Time>
    void Ban(Time&& time) {
        static const std::string line =
            "<b>ban somebody with a name/was rude and told so twice this evening</b>";
        auto& telling = bot.control.Tell();
        id = id % 65'535 + 1;
        const auto name = "guest" + std::to_string(id % 20'000);
        {
            const CauseScope said(telling, {.kind = CauseKind::OpLine,
                                            .room = 2,
                                            .who = "Room Boss",
                                            .line = line,
                                            .reason = "was rude and told so twice this evening"});
            time([&] { ledger->BanWanted(2, id, BanKind::Ban, name, ""); });
            time([&] { ledger->BanAsked(2, id, BanRequestKind::Ban, name); });
            time([&] { ledger->CauseEnded(said); });
        }
        time([&] { ledger->BanAnswered(2, id, BanVerdict::Accepted, 0); });
        const CauseScope reply(telling, {.kind = CauseKind::Reply, .room = 2, .request = id});
        time([&] { ledger->ListAdded({ListName::Ejects, "lobby", 4}, name); });
    }
};

void FactsOfABan(benchmark::State& state) {
    BanningOp op;
    Stopwatch watch;
    for (auto _ : state) {
        op.Ban([&](auto&& fact) { watch.Time(fact); });
        if (op.id % 100 == 0) { // as slow as a writer that has to keep up
            bool written = false;
            op.ledger->Flush();
            op.ledger->Records()->Write([](Connection&) {}, [&](const DatabaseResult&) { written = true; });
            while (!written) op.loop.RunSome();
        }
    }
    state.counters["median_ns"] = watch.At(0.5);
    state.counters["p99_ns"] = watch.At(0.99);
    state.counters["p999_ns"] = watch.At(0.999);
}
BENCHMARK(FactsOfABan)->Iterations(50'000);

/// A thousand bans a second, a virtual millisecond apart; after a second of them the writer stands still for
/// two, as in a sync that takes so long. Each turn of the loop is timed, answers of the writer included.
void LongestTurnBesideAStandingWriter(benchmark::State& state) {
    BanningOp op;
    Stopwatch watch;
    for (auto _ : state) {
        if (op.id == 1000)
            op.ledger->Records()->Maintain(
                [](Connection&) { std::this_thread::sleep_for(std::chrono::seconds(2)); },
                [](const DatabaseResult&) {});
        watch.Time([&] {
            op.Ban([](auto&& fact) { fact(); });
            op.bot.world.RunFor(1);
            op.loop.RunSome(false);
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    state.counters["median_us"] = watch.At(0.5) / 1000;
    state.counters["longest_us"] = watch.At(1) / 1000;
}
BENCHMARK(LongestTurnBesideAStandingWriter)->Iterations(5'000)->Unit(benchmark::kMicrosecond);

void LineRemembered(benchmark::State& state) {
    LastLines lines;
    const std::string line(300, 'x');
    const std::string names[] = {"somebody", "Some Body Else", "anna", "roomboss12345"};
    std::size_t next = 0;
    for (auto _ : state) {
        lines.Add(static_cast<std::int64_t>(next), 2, names[next % 4], line);
        ++next;
    }
}
BENCHMARK(LineRemembered);

} // namespace

#endif
