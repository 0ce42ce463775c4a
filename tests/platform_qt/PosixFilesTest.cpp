#include "tests/platform_qt/Loop.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace halyard {
namespace {

class PosixFilesTest : public testing::Test {
  protected:
    std::string Path(const std::string& name) { return folder.path().toStdString() + "/" + name; }
    void Put(const std::string& name, std::string_view bytes) {
        ASSERT_TRUE(ReplaceFile(files, Path(name), bytes));
    }

    QTemporaryDir folder;
    PosixFiles files;
};

TEST_F(PosixFilesTest, ReplacesAFileAndLeavesNoNeighbour) {
    std::string bytes("caf\xe9\0\r\n", 7);
    Put("caf\xe9.txt", "old");
    Put("caf\xe9.txt", bytes);
    EXPECT_EQ(files.Read(Path("caf\xe9.txt"), 100), bytes);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{QStringLiteral("café.txt")});
    EXPECT_FALSE(ReplaceFile(files, Path("absent/file"), "x"));
    EXPECT_TRUE(files.Remove(Path("caf\xe9.txt")));
    EXPECT_FALSE(files.Remove(Path("caf\xe9.txt")));
}

TEST_F(PosixFilesTest, ReadsNothingButPlainFilesWithinTheLimit) {
    Put("ten", "0123456789");
    Put("empty", "");
    ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);
    ASSERT_EQ(symlink("/dev/zero", Path("link").c_str()), 0);
    const std::tuple<std::string, std::size_t, std::optional<std::string>> cases[] = {
        {Path("ten"), 10, "0123456789"}, {Path("ten"), 9, {}},   {Path("empty"), 0, ""},
        {Path("fifo"), 10, {}},          {Path("link"), 10, {}}, {Path(""), 10, {}},
        {Path("absent"), 10, {}},        {"/dev/zero", 10, {}},  {"", 10, {}}};
    for (const auto& [path, limit, content] : cases) {
        EXPECT_EQ(files.Read(path, limit), content) << path;
        EXPECT_EQ(files.Exists(path), content || path == Path("ten")) << path;
    }
}

TEST_F(PosixFilesTest, CreatesOnlyPlainFiles) {
    ASSERT_EQ(mkfifo(Path("fifo").c_str(), 0600), 0);
    EXPECT_EQ(files.Create(Path("fifo")), nullptr);
    EXPECT_EQ(files.Create(folder.path().toStdString()), nullptr);
    EXPECT_EQ(files.Create("/dev/full"), nullptr);
    auto file = files.Create(Path("new"));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->Write("abc") && file->Write("") && file->Write("def") && file->Sync() && file->Close());
    EXPECT_FALSE(file->Write("closed"));
    EXPECT_EQ(files.Read(Path("new"), 6), "abcdef");
}

TEST_F(PosixFilesTest, MakesFoldersOnTheWay) {
    EXPECT_TRUE(files.MakeFolder(Path("a/b/c")));
    EXPECT_TRUE(files.MakeFolder(Path("a/b/c")));
    EXPECT_TRUE(files.SyncFolder(Path("a/b/c")));
    Put("file", "x");
    EXPECT_FALSE(files.MakeFolder(Path("file")));
    EXPECT_FALSE(files.MakeFolder(Path("file/below")));
    EXPECT_FALSE(files.SyncFolder(Path("file")));
    EXPECT_TRUE(files.Rename(Path("file"), Path("a/b/c/moved")));
    EXPECT_FALSE(files.Rename(Path("file"), Path("again")));
    EXPECT_EQ(files.Read(Path("a/b/c/moved"), 1), "x");
}

TEST_F(PosixFilesTest, KnowsTheProgramsOwnFolder) {
    EXPECT_EQ(files.ProgramFolder(), QCoreApplication::applicationDirPath().toStdString());
}

} // namespace
} // namespace halyard
