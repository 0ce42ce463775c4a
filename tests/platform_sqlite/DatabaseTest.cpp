// What holds for every database, on one that answers at once and on one with threads; then what threads add.

#include "platform/sqlite/InlineDatabase.h"
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

Database::Job Never() {
    return [](Connection&) { FAIL() << "not to be run"; };
}

/// Hears the answers of databases.
struct Listener {
    /// Notes an answer, and that it is given and let go on this thread.
    Database::Done Noted() {
        ++asked;
        const auto isHere = [here = std::this_thread::get_id()] {
            EXPECT_EQ(std::this_thread::get_id(), here);
        };
        const std::shared_ptr<void> held(nullptr, [isHere](void*) { isHere(); });
        return [this, held, isHere](const DatabaseResult& result) {
            isHere();
            EXPECT_EQ(result.words.empty(), result.Ok());
            answers.push_back(result.fault);
        };
    }
    void Settle() {
        while (answers.size() < asked) loop.Turn();
        EXPECT_TRUE(loop.IsEmpty()) << "each is answered once";
    }
    std::unique_ptr<Database> WithThreads() {
        return std::make_unique<SqliteDatabase>([this](auto work) { loop.Post(std::move(work)); });
    }

    TestFolder folder;
    Loop loop;
    std::size_t asked = 0;
    std::vector<DatabaseFault> answers;
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
    const auto answered = [&](const std::vector<DatabaseFault>& faults) {
        Settle();
        EXPECT_EQ(std::exchange(answers, {}), faults);
        asked = 0;
    };
    const auto sees = [&](const std::vector<std::string>& lines) {
        const auto seen = std::make_shared<std::vector<std::string>>();
        database->Read([seen](Connection& file) { *seen = AllLines(file); }, Noted());
        answered({None});
        EXPECT_EQ(*seen, lines);
    };
    database->Write(Never(), Noted());
    answered({Failed});
    database->Read(Never(), Noted());
    answered({Failed});
    database->Open(Lines(InMemory() ? "" : folder.Path("ledger.db")),
                   [noted = Noted()](OpenOutcome outcome, const std::string&) {
                       EXPECT_EQ(outcome, OpenOutcome::Created);
                       noted({});
                   });
    database->Write(Says({"one", "\xc3\xa9 two"}), Noted());
    answered({None, None});
    database->Write(
        [](Connection& file) {
            auto& rows = file.Prepare("SELECT 1");
            Says({"three", "one"})(file);
            EXPECT_TRUE(file.Failed()) << "there was one already";
            EXPECT_FALSE(file.Execute("DELETE FROM line"));
            EXPECT_FALSE(rows.Step() || file.Prepare("SELECT 2").Step());
        },
        Noted());
    database->Write([](Connection& file) { file.Prepare("SELEKT").Bind(1, "x").Step(); }, Noted());
    database->Write([](Connection& file) { file.Prepare("SELECT 1").Bind(2, 5); }, Noted());
    database->Write(
        [](Connection& file) {
            Says({"four"})(file);
            file.Fail(Full, "by the job");
            file.Fail(Damaged, "too late");
        },
        Noted());
    answered({Failed, Failed, Failed, Full});
    database->Read(Says({"five"}), Noted());
    answered({NotWritable});
    sees({"one", "\xc3\xa9 two"});
    database->Maintain(Runs("VACUUM; BEGIN; DELETE FROM line"), Noted());
    database->Write(
        [](Connection& file) {
            auto& half = file.Prepare("SELECT text, id, NULL, x'' FROM line ORDER BY id");
            EXPECT_TRUE(half.Step());
            EXPECT_EQ(half.Text(0) + std::to_string(half.Integer(1)), "one1");
            EXPECT_TRUE(half.IsNull(2) && half.IsNull(4) && !half.IsNull(3));
            EXPECT_EQ(half.Text(4) + half.Blob(3), "");
            Says({"six"})(file);
            EXPECT_EQ(file.LastRow(), 3);
            EXPECT_EQ(file.Changes(), 1);
        },
        Noted());
    answered({None, None});
    sees({"one", "\xc3\xa9 two", "six"});
    database->Write(Says({"last"}), [&](const DatabaseResult&) { database.reset(); });
    while (database) loop.Turn();
    if (InMemory()) return;
    EXPECT_EQ(folder.Names(), (std::set<std::string>{"ledger.db", "ledger.db.lock"})) << "no log is left";
}

INSTANTIATE_TEST_SUITE_P(Kinds, DatabaseContract,
                         testing::Values(Kind::Inline, Kind::InlineInMemory, Kind::Threads,
                                         Kind::ThreadsInMemory));

struct Threads : Listener, testing::Test {};

TEST_F(Threads, KeepTheLoopFreeAndWriteWhatCameIn) {
    using enum DatabaseFault;
    FaultVfs vfs;
    std::atomic<bool> slow = false;
    std::latch syncing(1), synced(1), atRow(1), cancelled(1), counting(1);
    vfs.onSync = [&] {
        if (!slow.exchange(false)) return;
        syncing.count_down();
        synced.wait();
    };
    const auto spec = Lines(folder.Path("ledger.db"), 1, FaultVfs::Name);
    auto database = WithThreads();
    database->Open(spec, nullptr);
    database->Write(Says({"first"}), Noted());
    Settle();

    slow = true;
    database->Maintain(Runs("PRAGMA wal_checkpoint"), Noted());
    database->Write(Says({"second"}), Noted());
    syncing.wait();
    const auto first = database->Read(
        [&](Connection& file) {
            auto& rows = file.Prepare("SELECT text FROM line UNION ALL SELECT 'more'");
            EXPECT_TRUE(rows.Step());
            atRow.count_down();
            cancelled.wait();
            EXPECT_FALSE(rows.Step());
        },
        Noted());
    const auto waiting = database->Read(Never(), Noted());
    atRow.wait();
    first->Cancel();
    waiting->Cancel();
    cancelled.count_down();
    while (answers.size() < 3) loop.Turn();
    const std::vector<DatabaseFault> beforeTheSync{None, Cancelled, Cancelled};
    EXPECT_EQ(answers, beforeTheSync);

    database->Read(
        [&](Connection& file) {
            counting.count_down();
            file.Execute(
                "WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT count(*) FROM c");
        },
        Noted());
    counting.wait();
    database->Read(Never(), Noted());
    database->Write(Says({"third"}), Noted());
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
    for (int batch = 0; batch < 60; ++batch) {
        std::vector<std::string> lines;
        for (int line = 0; line < 200; ++line)
            lines.push_back(std::to_string(batch * 200 + line) + std::string(5000, '.'));
        database->Write(Says(lines), Noted());
        for (int search = 0; search < 2; ++search)
            database->Read(Runs("SELECT text FROM line WHERE text LIKE '%7.%' LIMIT 50"), Noted());
    }
    std::uintmax_t most = 0;
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
