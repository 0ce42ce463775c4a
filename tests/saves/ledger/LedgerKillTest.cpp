// A real process is killed at random moments while it keeps a ledger, on one file: each time the file opens,
// its rows say what happened, and what is missing is the batch that was on its way and what came behind it.
// HALYARD_KILLS says how often, where that is not enough.

#include "bridge/ledger/Ledger.h"
#include "bridge/ledger/keeping/Verify.h"
#include "platform/qt/QtPlatform.h"
#include "platform/sqlite/InlineDatabase.h"
#include "platform/sqlite/SqliteDatabase.h"
#include "state/Options.h"
#include "tests/oscar/Wire.h"
#include "tests/platform_sqlite/TestFolder.h"

#include <QCoreApplication>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace halyard {

namespace {

/// What the child tells through the pipe: an act was told, a batch handed over, or written up to an act.
struct Word {
    enum { Told, Handed, Written } what;
    std::int64_t number; ///< of the act; as the file has it with Written
    std::int64_t at;     ///< ms of the child's
};

class TellingDatabase : public SqliteDatabase {
  public:
    using Tell = std::function<void(const Word&)>;
    TellingDatabase(Post post, Tell tell) : SqliteDatabase(std::move(post)), tell(std::move(tell)) {}
    void Write(Job job, Done done) override {
        tell({Word::Handed, 0, 0});
        const auto newest = std::make_shared<std::int64_t>(0);
        SqliteDatabase::Write(
            [job = std::move(job), newest](Connection& file) {
                job(file);
                auto& row = file.Prepare("SELECT max(id) FROM acts");
                *newest = row.Step() ? row.Integer(0) : 0;
                row.Reset();
            },
            [this, done = std::move(done), newest](const DatabaseResult& result) {
                if (result.Ok()) tell({Word::Written, *newest, 0});
                done(result);
            });
    }

  private:
    Tell tell;
};

/// The ledger in a process of its own, fed every few milliseconds.
class Child : EventLog {
  public:
    Child(const std::string& path, int pipe) : pipe(pipe) {
        machine.databases = [this](QtPlatform::Post post) {
            return std::make_unique<TellingDatabase>(std::move(post),
                                                     [this](const Word& word) { Say(word); });
        };
        options.Autobans.Tell(control.Tell());
        control.SetNews(&ledger);
        ledger.Start(path, "2.0");
        list.ChatName = "The Lobby";
        timer->SetInterval(3);
        timer->onTick = [this] {
            if (ledger.Records()) Next();
        };
        timer->SetEnabled(true);
    }

  private:
    void Say(Word word) {
        word.at = machine.Milliseconds();
        if (write(pipe, &word, sizeof word) != sizeof word) _exit(1);
    }
    void Next() {
        const auto id = static_cast<std::int32_t>(++told % 60'000 + 1);
        const auto name = "guest" + std::to_string(told);
        if (told % 2 == 0) {
            const CauseScope hand(control.Tell(), {.kind = CauseKind::Hand, .entry = "txtAddAB"});
            options.Autobans.Add(name);
        } else {
            const auto line = "ban " + name;
            const CauseScope said(control.Tell(),
                                  {.kind = CauseKind::OpLine, .who = "roomboss", .line = line});
            ledger.BanWanted(0, id, BanKind::Ban, name, "");
            ledger.BanAsked(0, id, BanRequestKind::Ban, name);
            ledger.BanAnswered(0, id, BanVerdict::Accepted, 0);
            const CauseScope yes(control.Tell(), {.kind = CauseKind::Reply, .request = id});
            list.AddEject(name);
        }
        Say({Word::Told, told, 0});
    }

    int pipe;
    QtPlatform machine;
    OscarSettings settings;
    TillerSock control{machine, settings, *this, *this};
    Options options{machine, control, settings};
    Ledger ledger{machine, options};
    EjectList list{&control.Tell()};
    std::unique_ptr<Timer> timer = machine.NewTimer();
    std::int64_t told = 0;
};

[[noreturn]] void Live(const std::string& path, int pipe) {
    int count = 0;
    QCoreApplication application(count, nullptr);
    const Child child(path, pipe);
    QCoreApplication::exec();
    _exit(1);
}

std::vector<Word> KilledAfter(std::int64_t acts, const std::string& path) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const auto child = fork();
    if (child == 0) Live(path, ends[1]);
    close(ends[1]);
    std::vector<Word> words;
    Word word{};
    while (read(ends[0], &word, sizeof word) == sizeof word) {
        words.push_back(word);
        if (word.what == Word::Told && word.number == acts) ::kill(child, SIGKILL);
    }
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return words;
}

} // namespace

TEST(Kill, LeavesALedgerThatLacksNoMoreThanWhatWasOnItsWay) {
    constexpr std::int64_t BatchPause = FactQueue::Pause;
    constexpr std::int64_t Late = 250; // a loop that doesn't get the processor, ms
    const char* wanted = std::getenv("HALYARD_KILLS");
    const TestFolder folder;
    const auto path = folder.Path("ledger.db");
    SimRandom chance(14);
    std::int64_t before = 0, missing = 0, longest = 0;
    for (int kill = 0, kills = wanted ? std::atoi(wanted) : 8; kill < kills; ++kill) {
        SCOPED_TRACE(kill);
        const auto words = KilledAfter(chance.Between(1, 250), path);
        InlineDatabase database;
        database.Open(LedgerSpec(path, 1'800'000'000), [](OpenOutcome outcome, const std::string& why) {
            EXPECT_EQ(outcome, OpenOutcome::Opened) << why;
        });
        std::int64_t found = 0;
        database.Read(
            [&](Connection& file) {
                for (const auto& finding : Verify(file)) ADD_FAILURE() << finding;
                auto& row = file.Prepare("SELECT max(id), count(*) FROM acts");
                ASSERT_TRUE(row.Step());
                found = row.Integer(0);
                EXPECT_EQ(row.Integer(1), found);
                row.Reset();
            },
            nullptr);
        std::int64_t written = 0, under = -1, firstMissing = -1;
        for (const auto& word : words) {
            if (word.what == Word::Handed) under = word.at;
            if (word.what == Word::Written) under = -1, written = word.number;
            if (word.what != Word::Told || before + word.number <= found) continue;
            if (firstMissing < 0) firstMissing = word.at;
            ++missing;
        }
        EXPECT_LE(written, found) << "what was said to be written is gone";
        if (firstMissing >= 0) {
            const auto waited = (under >= 0 ? under : words.back().at) - firstMissing;
            EXPECT_LE(waited, BatchPause + Late);
            longest = std::max(longest, waited);
        }
        before = found;
    }
    RecordProperty("acts", std::to_string(before));
    RecordProperty("missing", std::to_string(missing));
    RecordProperty("longest", std::to_string(longest));
    EXPECT_GT(before, 0);
}

} // namespace halyard
