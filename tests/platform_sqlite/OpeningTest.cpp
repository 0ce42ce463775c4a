// What comes of each kind of file that can stand where the database is to be.

#include "platform/sqlite/Opening.h"

#include "platform/sqlite/Jobs.h"
#include "tests/platform_sqlite/Scene.h"

#include <sys/stat.h>

namespace halyard {

using Prepare = std::function<void(const std::string& path)>;

struct Found {
    const char* what;
    OpenOutcome outcome;
    Prepare prepare;
    std::size_t version = 2;
    std::vector<std::string> lines = {}; ///< afterwards
    std::set<std::string> beside = {};   ///< with the bytes from before, or a copy
};

/// A file of that version with a line in it, to which `sql` is done.
Prepare Made(std::size_t version, const std::string& sql = "") {
    return [=](const std::string& path) {
        const auto made = OpenConnection(Lines(path, version), OpenMode::ReadWrite);
        ASSERT_TRUE(made.connection) << made.result.words;
        EXPECT_TRUE(RunWrite(*made.connection, Says({"old"})).Ok());
        EXPECT_TRUE(RunWrite(*made.connection, Runs(sql)).Ok());
    };
}

void BreakThePageOfTheTable(const std::string& path) {
    Made(1)(path);
    auto bytes = TestFolder::Bytes(path);
    TestFolder::Put(path, bytes.replace(4096, 200, std::string(200, '\x7f')));
}

void PutADiaryThere(const std::string& path) {
    TestFolder::Put(path, "Dear diary, " + std::string(4096, '.'));
    TestFolder::Put(path + "-wal", "its log");
}

TEST(Opening, TellsWhatItFound) {
    const std::string copy = ".v1-2026-11-24";
    const std::string aside = ".damaged-2026-11-24";
    using enum OpenOutcome;
    const Found table[] = {
        {"nothing", Created, [](const std::string&) {}},
        {"an empty file", Created, [](const std::string& path) { TestFolder::Put(path, ""); }},
        {"this version", Opened, Made(1), 1, {"old"}},
        {"an older one", Upgraded, Made(1), 2, {"old"}, {copy}},
        {"a newer one", Newer, Made(2), 1},
        {"another program's", Foreign, Made(1, "PRAGMA application_id=7")},
        {"one without a mark", Foreign, Made(1, "PRAGMA application_id=0")},
        {"no database", Damaged, PutADiaryThere, 2, {}, {aside, aside + "-wal", aside + "-shm"}},
        {"a broken page", Damaged, BreakThePageOfTheTable, 2, {}, {aside}},
        {"a failing upgrade", Failed, Made(1, "CREATE TABLE person (name)"), 2, {}, {copy}},
        {"a table gone", Failed, Made(1, "DROP TABLE line"), 1},
        {"a folder", Failed, [](const std::string& path) { std::filesystem::create_directory(path); }},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.what);
        TestFolder folder;
        const auto path = folder.Path("ledger.db");
        row.prepare(path);
        const auto before = TestFolder::Bytes(path);
        auto opened = OpenConnection(Lines(path, row.version), OpenMode::ReadWrite);
        EXPECT_EQ(opened.outcome, row.outcome) << opened.result.words;
        EXPECT_EQ(opened.result.words.empty(), row.outcome < Damaged);
        ASSERT_EQ(opened.connection != nullptr, IsOpen(row.outcome));
        if (opened.connection) {
            EXPECT_EQ(AllLines(*opened.connection), row.lines);
        } else {
            EXPECT_EQ(TestFolder::Bytes(path), before) << "left alone";
        }
        opened.connection.reset();
        std::set<std::string> names{"ledger.db", "ledger.db.lock"};
        for (const auto& name : row.beside) names.insert("ledger.db" + name);
        EXPECT_EQ(folder.Names(), names);
        if (row.outcome == Damaged) {
            EXPECT_EQ(TestFolder::Bytes(path + aside), before);
        } else if (!row.beside.empty()) {
            const auto copied = OpenConnection(Lines(path + copy), OpenMode::ReadOnly);
            ASSERT_TRUE(copied.connection) << copied.result.words;
            EXPECT_EQ(AllLines(*copied.connection), std::vector<std::string>{"old"});
        }
    }
}

TEST(Opening, KeepsCopiesForAMonthAndFilesToTheirOwner) {
    TestFolder folder;
    const auto path = folder.Path("deep/er/ledger.db");
    Made(1)(path);
    for (const auto& [place, mode] : {std::pair(folder.Path("deep"), 0700U), std::pair(path, 0600U)}) {
        struct stat about {};
        EXPECT_EQ(stat(place.c_str(), &about), 0);
        EXPECT_EQ(about.st_mode & 07777, mode) << place;
    }
    std::set<std::string> kept{"ledger.db.v1-2026-10-25", "ledger.db.v1-2027-01-01",
                               "ledger.db.v1-2026-02-31", "ledger.db.vx-2020-01-01",
                               "other.db.v1-2020-01-01",  "ledger.db.v1-2020-01-01.txt"};
    auto all = kept;
    all.insert({"ledger.db.v1-2026-10-24", "ledger.db.v12-2020-01-01", "ledger.db.v1-2020-01-01.part"});
    for (const auto& name : all) TestFolder::Put(folder.Path("deep/er/" + name), "");
    auto again = OpenConnection(Lines(path), OpenMode::ReadWrite);
    EXPECT_TRUE(RunWrite(*again.connection, Runs("DELETE FROM line")).Ok());
    again.connection.reset();
    kept.insert({"ledger.db", "ledger.db.lock"});
    EXPECT_EQ(folder.Names("deep/er"), kept);
    EXPECT_EQ(TestFolder::Bytes(path).find("old"), std::string::npos) << "what is deleted is overwritten";
}

TEST(Opening, IsForOneWriterAndAnyReaders) {
    TestFolder folder;
    const auto spec = Lines(folder.Path("ledger.db"));
    const auto next = Lines(spec.path, 2);
    EXPECT_EQ(OpenConnection(spec, OpenMode::ReadOnly).result.fault, DatabaseFault::NotWritable);
    auto writer = OpenConnection(spec, OpenMode::ReadWrite);
    auto reader = OpenConnection(spec, OpenMode::ReadOnly);
    ASSERT_TRUE(writer.connection && reader.connection) << reader.result.words;
    EXPECT_EQ(OpenConnection(spec, OpenMode::ReadWrite).outcome, OpenOutcome::Locked);
    EXPECT_TRUE(RunWrite(*writer.connection, Says({"hello"})).Ok());
    EXPECT_EQ(AllLines(*reader.connection), std::vector<std::string>{"hello"});
    EXPECT_EQ(RunRead(*reader.connection, Says({"me"})).fault, DatabaseFault::NotWritable);
    EXPECT_EQ(OpenConnection(next, OpenMode::ReadOnly).outcome, OpenOutcome::Failed);
    reader = {};
    writer = {};
    writer = OpenConnection(next, OpenMode::ReadWrite);
    ASSERT_TRUE(writer.connection) << writer.result.words;
    const auto astray = RunWrite(*writer.connection, Runs("UPDATE line SET who = 'nobody'"));
    EXPECT_EQ(astray.fault, DatabaseFault::Failed) << "a reference that leads nowhere";
}

} // namespace halyard
