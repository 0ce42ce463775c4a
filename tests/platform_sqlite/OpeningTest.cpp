// What comes of each kind of file that can stand where the database is to be.

#include "platform/sqlite/InlineDatabase.h"
#include "platform/sqlite/Jobs.h"
#include "tests/platform_sqlite/Scene.h"

#include <sys/stat.h>

namespace halyard {

struct Found {
    const char* what;
    OpenOutcome outcome;
    std::function<void(const std::string& path)> prepare;
    std::size_t version = 2;
    std::vector<std::string> lines = {}; ///< afterwards
    std::set<std::string> beside = {};   ///< with the bytes from before, or a copy
};

void Make(const DatabaseSpec& spec, const std::string& sql) {
    auto made = OpenConnection(spec, OpenMode::ReadWrite);
    ASSERT_TRUE(IsOpen(made.outcome)) << made.result.words;
    EXPECT_TRUE(RunWrite(*made.connection, [&](Connection& file) { file.Execute(sql); }).Ok());
}

const std::string oneLine = "INSERT INTO line (text) VALUES ('old')";

TEST(Opening, TellsWhatItFound) {
    const auto old = [](const std::string& path) { Make(Lines(path), oneLine); };
    // The page of the table, in the middle of a good file.
    const auto breakInside = [&](const std::string& path) {
        old(path);
        auto bytes = TestFolder::Bytes(path);
        bytes.replace(4096, 200, std::string(200, '\x7f'));
        TestFolder::Put(path, bytes);
    };
    const auto none = [](const std::string&) {};
    const auto make = [&](const DatabaseSpec& spec, const std::string& sql) {
        Make(spec, oneLine);
        Make(spec, sql);
    };
    const std::string copy = ".v1-2026-11-24";
    const std::string aside = ".damaged-2026-11-24";
    using enum OpenOutcome;
    const Found table[] = {
        {"nothing", Created, none},
        {"an empty file", Created, [](const std::string& path) { TestFolder::Put(path, ""); }},
        {"this version", Opened, old, 1, {"old"}},
        {"an older one", Upgraded, old, 2, {"old"}, {copy}},
        {"a newer one", Newer, [](const std::string& path) { Make(Lines(path, 2), oneLine); }, 1},
        {"another program's", Foreign,
         [&](const std::string& path) { make(Lines(path), "PRAGMA application_id=7"); }},
        {"one without a name", Foreign,
         [&](const std::string& path) { make(Lines(path), "PRAGMA application_id=0"); }},
        {"no database",
         Damaged,
         [](const std::string& path) {
             TestFolder::Put(path, "Dear diary, " + std::string(4096, '.'));
             TestFolder::Put(path + "-wal", "its log");
         },
         2,
         {},
         {aside, aside + "-wal", aside + "-shm"}},
        {"a broken page", Damaged, breakInside, 2, {}, {aside}},
        {"an upgrade that fails",
         Failed,
         [&](const std::string& path) { make(Lines(path), "CREATE TABLE person (name)"); },
         2,
         {},
         {copy}},
        {"a table gone", Failed, [&](const std::string& path) { make(Lines(path), "DROP TABLE line"); }, 1},
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

TEST(Opening, KeepsCopiesForAMonthAndFilesToItsOwner) {
    TestFolder folder;
    const auto path = folder.Path("deep/er/ledger.db");
    Make(Lines(path), oneLine);
    for (const auto& [place, mode] : {std::pair(folder.Path("deep"), 0700U), std::pair(path, 0600U)}) {
        struct stat about {};
        EXPECT_EQ(stat(place.c_str(), &about), 0);
        EXPECT_EQ(about.st_mode & 07777, mode) << place;
    }
    const std::set<std::string> kept{"ledger.db.v1-2026-10-25", "ledger.db.v1-2027-01-01",
                                     "ledger.db.v1-2026-02-31", "ledger.db.vx-2020-01-01",
                                     "other.db.v1-2020-01-01",  "ledger.db.v1-2020-01-01.txt"};
    for (const auto& name : kept) TestFolder::Put(folder.Path("deep/er/" + name), "");
    for (const auto* name :
         {"ledger.db.v1-2026-10-24", "ledger.db.v12-2020-01-01", "ledger.db.v1-2020-01-01.part"})
        TestFolder::Put(folder.Path(std::string("deep/er/") + name), "");
    Make(Lines(path), "DELETE FROM line");
    std::set<std::string> names;
    for (const auto& each : std::filesystem::directory_iterator(folder.path / "deep/er"))
        names.insert(each.path().filename());
    auto all = kept;
    all.insert({"ledger.db", "ledger.db.lock"});
    EXPECT_EQ(names, all);
    EXPECT_EQ(TestFolder::Bytes(path).find("old"), std::string::npos) << "what is deleted is overwritten";
}

TEST(Opening, IsForOneWriterAndAnyReaders) {
    TestFolder folder;
    const auto spec = Lines(folder.Path("ledger.db"));
    EXPECT_EQ(OpenConnection(spec, OpenMode::ReadOnly).result.fault, DatabaseFault::NotWritable);
    auto writer = OpenConnection(spec, OpenMode::ReadWrite);
    EXPECT_EQ(OpenConnection(spec, OpenMode::ReadWrite).outcome, OpenOutcome::Locked);
    auto reader = OpenConnection(spec, OpenMode::ReadOnly);
    ASSERT_TRUE(reader.connection) << reader.result.words;
    EXPECT_TRUE(RunWrite(*writer.connection, [](Connection& file) { Say(file, "hello"); }).Ok());
    const auto read = RunRead(*reader.connection, [](Connection& file) {
        EXPECT_EQ(AllLines(file), std::vector<std::string>{"hello"});
        Say(file, "me too");
    });
    EXPECT_EQ(read.fault, DatabaseFault::NotWritable);
    const auto next = Lines(spec.path, 2);
    EXPECT_EQ(OpenConnection(next, OpenMode::ReadOnly).outcome, OpenOutcome::Failed);
    reader = {};
    writer = {};
    writer = OpenConnection(next, OpenMode::ReadWrite);
    ASSERT_TRUE(writer.connection) << writer.result.words;
    EXPECT_FALSE(
        RunWrite(*writer.connection, [](Connection& file) { file.Execute("UPDATE line SET who = 'nobody'"); })
            .Ok())
        << "a reference that leads nowhere";
}

} // namespace halyard
