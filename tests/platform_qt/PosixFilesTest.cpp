#include "tests/platform_qt/Loop.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace halyard {

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

/// Whoever runs the tests, without the rights of root for a while, and with a data folder of its own.
class AsAnybody : public PosixFiles {
  public:
    explicit AsAnybody(const std::string& data) : data(data) { Anybody(); }
    ~AsAnybody() override { Root(); }
    void Anybody() { EXPECT_EQ(seteuid(getuid() == 0 ? Nobody : getuid()), 0); }
    void Root() { EXPECT_EQ(seteuid(getuid()), 0); }
    AsAnybody(const AsAnybody&) = delete;
    AsAnybody& operator=(const AsAnybody&) = delete;
    std::string DataFolder() override { return data; }

  private:
    static constexpr uid_t Nobody = 65534;
    std::string data;
};

TEST_F(PosixFilesTest, WritesAFileByTheWayThatItsPlaceAllows) {
    chmod(Path("").c_str(), 0755);
    for (const auto* name : {"open", "shut", "data"}) {
        ASSERT_TRUE(files.MakeFolder(Path(name)));
        chmod(Path(name).c_str(), 0777);
    }
    AsAnybody anybody(Path("data"));
    const auto names = [&](const char* of) {
        return QDir(folder.path() + QLatin1Char('/') + QLatin1String(of))
            .entryList(QDir::Files | QDir::Hidden | QDir::System)
            .join(QLatin1Char(' '))
            .toStdString();
    };
    struct stat about {};
    ASSERT_TRUE(ReplaceFile(anybody, Path("open/x.hys"), "old"));
    chmod(Path("open/x.hys").c_str(), 0640);
    ASSERT_EQ(symlink("x.hys", Path("open/link").c_str()), 0);
    ASSERT_EQ(symlink(Path("open/link").c_str(), Path("shut/far").c_str()), 0);
    ASSERT_EQ(symlink("round", Path("shut/round").c_str()), 0);
    ASSERT_TRUE(ReplaceFile(anybody, Path("shut/x.hys"), "a longer old one"));
    ASSERT_TRUE(ReplaceFile(anybody, Path("shut/only"), "to be read"));
    ASSERT_EQ(mkfifo(Path("shut/fifo").c_str(), 0600), 0);
    chmod(Path("shut/only").c_str(), 0444);
    ASSERT_EQ(stat(Path("shut/x.hys").c_str(), &about), 0);
    const auto node = about.st_ino;
    anybody.Root();
    chmod(Path("shut").c_str(), 0555);
    anybody.Anybody();

    EXPECT_TRUE(ReplaceFile(anybody, Path("shut/far"), "through links"));
    EXPECT_EQ(anybody.Read(Path("open/x.hys"), 99), "through links");
    ASSERT_EQ(stat(Path("open/x.hys").c_str(), &about), 0);
    EXPECT_EQ(about.st_mode & 07777, 0640U);
    EXPECT_EQ(names("open"), "link x.hys");
    EXPECT_TRUE(ReplaceFile(anybody, Path("shut/x.hys"), "new"));
    EXPECT_EQ(anybody.Read(Path("shut/x.hys"), 99), "new");
    ASSERT_EQ(stat(Path("shut/x.hys").c_str(), &about), 0);
    EXPECT_EQ(about.st_ino, node) << "written in place";
    for (const auto* refused : {"shut/only", "shut/fifo", "shut/round", "shut/absent"})
        EXPECT_FALSE(ReplaceFile(anybody, Path(refused), "new")) << refused;
    EXPECT_EQ(anybody.Read(Path("shut/only"), 99), "to be read");
    EXPECT_EQ(names("data"), "") << "copies go when all is written";
}

TEST_F(PosixFilesTest, KeepsStateWhereTheEnvironmentSays) {
    qputenv("XDG_STATE_HOME", QByteArray::fromStdString(Path("first")));
    EXPECT_EQ(files.StateFolder(), Path("first") + "/halyard");
    EXPECT_TRUE(QDir(QString::fromStdString(Path("first") + "/halyard")).exists());
    for (const auto* unusable : {"", "not/from/the/root"}) {
        qputenv("XDG_STATE_HOME", unusable);
        EXPECT_TRUE(files.StateFolder().ends_with("/.local/state/halyard")) << unusable;
    }
    qunsetenv("XDG_STATE_HOME");
}

TEST_F(PosixFilesTest, NamesTheConfigurationAndKeepsItPrivate) {
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(Path("config")));
    EXPECT_EQ(files.ConfigFolder(), Path("config") + "/halyard");
    EXPECT_FALSE(QDir(QString::fromStdString(Path("config"))).exists()) << "asking makes nothing";
    qputenv("XDG_CONFIG_HOME", "not/from/the/root");
    const auto home = qgetenv("HOME");
    qputenv("HOME", QByteArray::fromStdString(Path("home")));
    EXPECT_EQ(files.ConfigFolder(), Path("home") + "/.config/halyard");
    qunsetenv("HOME");
    EXPECT_TRUE(files.ConfigFolder().ends_with("/.config/halyard"));
    qputenv("HOME", home);
    qunsetenv("XDG_CONFIG_HOME");

    Put("file", "x");
    EXPECT_TRUE(files.IsPrivate(Path("file")) && !files.IsPrivate(Path("absent")));
    for (const auto mode : {0640U, 0604U, 0601U}) {
        chmod(Path("file").c_str(), mode);
        EXPECT_FALSE(files.IsPrivate(Path("file"))) << mode;
    }
    EXPECT_TRUE(files.MakePrivate(Path("file")) && files.IsPrivate(Path("file")));
    EXPECT_FALSE(files.MakePrivate(Path("absent")));
}

TEST_F(PosixFilesTest, NamesOnePlaceByOneName) {
    ASSERT_TRUE(files.MakeFolder(Path("real/deep")));
    ASSERT_EQ(symlink("real", Path("link").c_str()), 0);
    Put("real/deep/file", "x");
    const auto real = files.Canonical(Path("real"));
    for (const auto* name : {"link/deep/file", "real/../link/./deep//file"})
        EXPECT_EQ(files.Canonical(Path(name)), real + "/deep/file") << name;
    EXPECT_EQ(files.Canonical(Path("link/absent")), real + "/absent");
    const auto here = QDir::currentPath();
    QDir::setCurrent(QString::fromStdString(Path("link")));
    EXPECT_EQ(files.Canonical("absent"), real + "/absent");
    QDir::setCurrent(here);
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
    EXPECT_EQ(files.ProgramFolder(), QCoreApplication::applicationDirPath().toStdString());
}

} // namespace halyard
