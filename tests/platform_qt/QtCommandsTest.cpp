// Programs of the real machine: what they find, and that none outlives its time.

#include "tests/platform_qt/Loop.h"

#include <QDir>
#include <QFile>
#include <QSocketNotifier>
#include <QTemporaryDir>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <optional>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace halyard {
namespace {

CommandLine Plain(std::vector<std::string> arguments) {
    CommandLine line;
    line.arguments = std::move(arguments);
    return line;
}

class QtCommandsTest : public testing::Test {
  protected:
    /// What became of a run of the shell's words, which get `folder` as $1.
    CommandEnd Run(const std::string& words, int timeout = 60'000) {
        std::optional<CommandEnd> end;
        EXPECT_TRUE(
            commands->Run({.arguments = {"/bin/sh", "-c", words, "sh", Folder(), "two words", "$HOME;*"},
                           .environment = {{"HALYARD_WORDS", "a\xE2\x82\xAC; $(rm -r x) \\x0A"}},
                           .timeout = timeout},
                          [&](const CommandEnd& told) { end = told; }));
        EXPECT_FALSE(commands->Run(Plain({"/bin/true"}), [](const CommandEnd&) { ADD_FAILURE(); }));
        EXPECT_TRUE(RunUntil([&] { return end.has_value(); }));
        return end.value_or(CommandEnd{});
    }
    std::string Folder() const { return folder.path().toStdString(); }
    std::string Written() const {
        QFile file(folder.filePath("out"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string("nothing");
    }

    QTemporaryDir folder;
    QtPlatform platform;
    std::unique_ptr<Commands> commands = platform.NewCommands();
};

TEST_F(QtCommandsTest, FindWhatTheyAreGivenAndNothingElse) {
    ASSERT_EQ(::setenv("HALYARD_SECRET", "key", 1), 0);
    const auto end =
        Run("{ read line || echo nothing to read; echo \"$2|$3\"; env | grep HALYARD; "
            "env | grep -v '^HALYARD\\|^PATH=\\|^HOME=\\|^LANG=\\|^PWD=\\|^SHLVL=\\|^_='; } > $1/out; "
            "echo loud; exit 7");
    ::unsetenv("HALYARD_SECRET");
    EXPECT_EQ(end.problem, "");
    EXPECT_EQ(end.status, 7);
    EXPECT_EQ(Written(),
              "nothing to read\ntwo words|$HOME;*\nHALYARD_WORDS=a\xE2\x82\xAC; $(rm -r x) \\x0A\n");
    std::optional<CommandEnd> missing;
    EXPECT_TRUE(commands->Run(Plain({Folder() + "/none"}), [&](const auto& told) { missing = told; }));
    EXPECT_FALSE(missing) << "not before the call returns";
    ASSERT_TRUE(RunUntil([&] { return missing.has_value(); }));
    EXPECT_EQ(missing->status, -1);
    EXPECT_NE(missing->problem, "");
    EXPECT_FALSE(commands->Run(Plain({}), [](const CommandEnd&) { ADD_FAILURE(); }));
    EXPECT_EQ(Run("kill -9 $$").problem, "it was ended by a signal");
}

/// Whoever holds the pipe's other end lives: its end is read when all are gone.
TEST_F(QtCommandsTest, EndWithTheirWholeGroup) {
    const auto pipe = Folder() + "/pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int end = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(end, 0);
    const auto gone = [end] {
        pollfd asked{end, 0, 0};
        return ::poll(&asked, 1, 30'000) == 1 && (asked.revents & POLLHUP) != 0;
    };
    EXPECT_EQ(Run("exec > $1/pipe; trap '' TERM HUP; sleep 1000 & wait", 200).problem, "it took too long");
    EXPECT_TRUE(gone());
    EXPECT_EQ(Run("exec > $1/pipe; sleep 1000 & exit 0").status, 0);
    EXPECT_TRUE(gone()) << "whom it left behind";
    bool begun = false;
    QSocketNotifier wakes(end, QSocketNotifier::Read);
    QObject::connect(&wakes, &QSocketNotifier::activated, &wakes, [&] {
        char byte = 0;
        if (::read(end, &byte, 1) == 1) begun = true, wakes.setEnabled(false);
    });
    EXPECT_TRUE(commands->Run(Plain({"/bin/sh", "-c", "exec > $0; echo; sleep 1000", pipe}),
                              [](const CommandEnd&) { ADD_FAILURE(); }));
    ASSERT_TRUE(RunUntil([&] { return begun; }));
    commands.reset();
    EXPECT_TRUE(gone()) << "ended with what started it";
    ::close(end);
}

} // namespace
} // namespace halyard
