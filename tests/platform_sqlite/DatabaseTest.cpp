// What holds for every database, on one that answers at once and on one with threads; then what threads add.

#include "platform/sqlite/InlineDatabase.h"
#include "platform/sqlite/Jobs.h"
#include "platform/sqlite/SqliteDatabase.h"
#include "tests/platform_sqlite/FaultVfs.h"
#include "tests/platform_sqlite/Scene.h"

#include <atomic>
#include <deque>
#include <latch>

namespace halyard {

namespace {

/// A message loop of this thread's own.
class Loop {
  public:
    void Post(std::function<void()> work) {
        const std::lock_guard held(mutex);
        waiting.push_back(std::move(work));
        changed.notify_one();
    }
    /// Runs one piece of work once it is there.
    void Turn() {
        std::unique_lock held(mutex);
        changed.wait(held, [&] { return !waiting.empty(); });
        const auto work = std::move(waiting.front());
        waiting.pop_front();
        held.unlock();
        work();
    }
    bool IsEmpty() {
        const std::lock_guard held(mutex);
        return waiting.empty();
    }

  private:
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> waiting;
};

} // namespace

/// Hears the answers of databases, each on the loop's thread.
struct Listener {
    /// Notes each answer, and that it is given and let go on this thread.
    Database::Done Noted(const std::string& name) {
        ++asked;
        const auto here = std::this_thread::get_id();
        const std::shared_ptr<void> held(nullptr,
                                         [here](void*) { EXPECT_EQ(std::this_thread::get_id(), here); });
        return [this, name, held, here](const DatabaseResult& result) {
            EXPECT_EQ(std::this_thread::get_id(), here);
            EXPECT_EQ(result.words.empty(), result.Ok());
            answers.emplace_back(name, result.fault);
        };
    }
    void Settle() {
        while (answers.size() < asked) loop.Turn();
        EXPECT_TRUE(loop.IsEmpty()) << "each is answered once";
    }
    std::unique_ptr<Database> WithThreads() {
        return std::make_unique<SqliteDatabase>([this](auto work) { loop.Post(std::move(work)); });
    }
    using Answer = std::pair<std::string, DatabaseFault>;

    TestFolder folder;
    Loop loop;
    std::size_t asked = 0;
    std::vector<Answer> answers;
};

enum class Kind { Inline, InlineInMemory, Threads, ThreadsInMemory };

struct DatabaseContract : Listener, testing::TestWithParam<Kind> {
    std::unique_ptr<Database> Make() {
        if (GetParam() <= Kind::InlineInMemory) return std::make_unique<InlineDatabase>();
        return WithThreads();
    }
    bool InMemory() const {
        return GetParam() == Kind::InlineInMemory || GetParam() == Kind::ThreadsInMemory;
    }
};

TEST_P(DatabaseContract, WritesWholeJobsAndReadsThem) {
    using enum DatabaseFault;
    auto database = Make();
    const auto spec = Lines(InMemory() ? "" : folder.Path("ledger.db"));
    const auto sees = [&](const std::vector<std::string>& lines) {
        const auto seen = std::make_shared<std::vector<std::string>>();
        database->Read([seen](Connection& file) { *seen = AllLines(file); }, Noted("read"));
        Settle();
        EXPECT_EQ(*seen, lines);
    };
    database->Write([](Connection&) { FAIL() << "nothing is open"; }, Noted("early"));
    database->Read([](Connection&) { FAIL() << "nothing is open"; }, Noted("early"));
    Settle();
    auto opened = Noted("open");
    database->Open(spec, [&](OpenOutcome outcome, const std::string&) {
        EXPECT_EQ(outcome, OpenOutcome::Created);
        opened({});
    });
    database->Write([](Connection& file) { Say(file, "one"), Say(file, "\xc3\xa9 two"); }, Noted("good"));
    Settle();
    sees({"one", "\xc3\xa9 two"});
    database->Write(
        [](Connection& file) {
            Say(file, "three");
            Say(file, "one");
            EXPECT_TRUE(file.Failed());
            EXPECT_FALSE(file.Execute("DELETE FROM line"));
            EXPECT_FALSE(file.Prepare("SELECT 1").Step());
        },
        Noted("twice one"));
    database->Write([](Connection& file) { file.Prepare("SELEKT").Bind(1, "x").Step(); }, Noted("no SQL"));
    database->Write([](Connection& file) { file.Prepare("SELECT 1").Bind(2, 5); }, Noted("no place"));
    database->Write(
        [](Connection& file) {
            Say(file, "four");
            file.Fail(Full, "by the job");
            file.Fail(Damaged, "too late");
        },
        Noted("by itself"));
    Settle();
    database->Read([](Connection& file) { Say(file, "five"); }, Noted("writing read"));
    Settle();
    sees({"one", "\xc3\xa9 two"});
    database->Maintain([](Connection& file) { file.Execute("VACUUM; BEGIN; DELETE FROM line"); },
                       Noted("left open"));
    database->Write(
        [](Connection& file) {
            auto& half = file.Prepare("SELECT text, id, NULL, x'' FROM line ORDER BY id");
            EXPECT_TRUE(half.Step());
            EXPECT_EQ(half.Text(0) + std::to_string(half.Integer(1)), "one1");
            EXPECT_TRUE(half.IsNull(2) && half.IsNull(4) && !half.IsNull(3));
            EXPECT_EQ(half.Text(4) + half.Blob(3), "");
            Say(file, "six");
            EXPECT_EQ(file.LastRow(), 3);
            EXPECT_EQ(file.Changes(), 1);
        },
        Noted("row left standing"));
    Settle();
    sees({"one", "\xc3\xa9 two", "six"});
    const std::vector<Answer> expected{{"early", Failed},
                                       {"early", Failed},
                                       {"open", None},
                                       {"good", None},
                                       {"read", None},
                                       {"twice one", Failed},
                                       {"no SQL", Failed},
                                       {"no place", Failed},
                                       {"by itself", Full},
                                       {"writing read", NotWritable},
                                       {"read", None},
                                       {"left open", None},
                                       {"row left standing", None},
                                       {"read", None}};
    EXPECT_EQ(answers, expected);
    database->Write([](Connection& file) { Say(file, "last"); },
                    [&](const DatabaseResult&) { database.reset(); });
    while (database) loop.Turn();
    if (InMemory()) return;
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"ledger.db", "ledger.db.lock"})) << "no log is left";
}

INSTANTIATE_TEST_SUITE_P(Kinds, DatabaseContract,
                         testing::Values(Kind::Inline, Kind::InlineInMemory, Kind::Threads,
                                         Kind::ThreadsInMemory));

TEST(Reading, EndsWhereItIsCancelled) {
    const auto opened = OpenConnection(Lines(""), OpenMode::ReadWrite);
    const std::string endless = "WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) ";
    int rows = 0;
    const auto between = RunRead(
        *opened.connection,
        [&](Connection& file) {
            auto& all = file.Prepare(endless + "SELECT n FROM c");
            while (all.Step()) ++rows;
        },
        [&] { return rows == 3; });
    EXPECT_EQ(between.fault, DatabaseFault::Cancelled);
    EXPECT_EQ(rows, 3);
    int looks = 0;
    const auto inside = RunRead(
        *opened.connection,
        [&](Connection& file) { file.Prepare(endless + "SELECT count(*) FROM c").Step(); },
        [&] { return ++looks == 10; });
    EXPECT_EQ(inside.fault, DatabaseFault::Cancelled);
}

struct Threads : Listener, testing::Test {};

TEST_F(Threads, KeepTheLoopFreeAndWriteWhatCameIn) {
    FaultVfs vfs;
    std::atomic<bool> slow = false;
    std::latch syncing(1);
    std::latch synced(1);
    vfs.onSync = [&] {
        if (!slow.exchange(false)) return;
        syncing.count_down();
        synced.wait();
    };
    auto spec = Lines(folder.Path("ledger.db"));
    spec.vfs = FaultVfs::Name;
    auto database = WithThreads();
    database->Open(spec, nullptr);
    database->Write([](Connection& file) { Say(file, "first"); }, Noted("first"));
    Settle();

    slow = true;
    database->Maintain([](Connection& file) { file.Execute("PRAGMA wal_checkpoint"); }, Noted("slow sync"));
    database->Write([](Connection& file) { Say(file, "second"); }, Noted("second"));
    syncing.wait();
    std::latch atRow(1);
    std::latch cancelled(1);
    const auto first = database->Read(
        [&](Connection& file) {
            auto& rows = file.Prepare("SELECT text FROM line UNION ALL SELECT 'more'");
            EXPECT_TRUE(rows.Step());
            atRow.count_down();
            cancelled.wait();
            EXPECT_FALSE(rows.Step());
        },
        Noted("at a row"));
    const auto waiting = database->Read([](Connection&) { FAIL() << "was cancelled"; }, Noted("waiting"));
    atRow.wait();
    first->Cancel();
    waiting->Cancel();
    cancelled.count_down();
    while (answers.size() < 3) loop.Turn();
    const std::vector<Answer> beforeTheSync{{"first", DatabaseFault::None},
                                            {"at a row", DatabaseFault::Cancelled},
                                            {"waiting", DatabaseFault::Cancelled}};
    EXPECT_EQ(answers, beforeTheSync);

    std::latch endless(1);
    database->Read(
        [&](Connection& file) {
            endless.count_down();
            file.Prepare(
                    "WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT count(*) FROM c")
                .Step();
        },
        Noted("endless"));
    endless.wait();
    database->Read([](Connection&) { FAIL() << "came too late"; }, Noted("late read"));
    database->Write([](Connection& file) { Say(file, "third"); }, Noted("third"));
    synced.count_down();
    database.reset();
    while (!loop.IsEmpty()) loop.Turn();
    EXPECT_EQ(answers, beforeTheSync) << "the others are dropped";
    const auto after = OpenConnection(spec, OpenMode::ReadOnly);
    EXPECT_EQ(AllLines(*after.connection), (std::vector<std::string>{"first", "second", "third"}));
}

TEST_F(Threads, KeepTheLogSmallWhileSearchesRun) {
    auto database = WithThreads();
    const auto path = folder.Path("ledger.db");
    database->Open(Lines(path), nullptr);
    std::uintmax_t most = 0;
    for (int batch = 0; batch < 60; ++batch) {
        database->Write(
            [batch](Connection& file) {
                for (int line = 0; line < 200; ++line)
                    Say(file, std::to_string(batch * 200 + line) + std::string(5000, '.'));
            },
            Noted("batch"));
        for (int search = 0; search < 2; ++search)
            database->Read(
                [](Connection& file) {
                    auto& rows = file.Prepare("SELECT text FROM line WHERE text LIKE '%7.%' LIMIT 50");
                    while (rows.Step() && rows.Text(0).size() > 5) {
                    }
                },
                Noted("search"));
    }
    while (answers.size() < asked) {
        loop.Turn();
        std::error_code none;
        const auto size = std::filesystem::file_size(path + "-wal", none);
        if (!none) most = std::max(most, size);
    }
    EXPECT_GT(most, 1U << 20);
    EXPECT_LT(most, 16U << 20);
}

} // namespace halyard
