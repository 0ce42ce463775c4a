// A real process is killed at random moments while it saves its settings, two hundred times over: what lies
// on the disk is always one whole file, the old one or the new.

#include "platform/qt/PosixFiles.h"
#include "state/Options.h"
#include "state/SettingsWriter.h"
#include "tests/oscar/Wire.h"

#include <csignal>
#include <filesystem>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace halyard {

namespace {

/// The real disk, with one byte into a pipe before each step of a save.
class TellingFiles : public PosixFiles {
  public:
    explicit TellingFiles(int pipe) : pipe(pipe) {}
    std::unique_ptr<OutputFile> Create(const std::string& path) override {
        return Tell(), PosixFiles::Create(path);
    }
    bool Rename(const std::string& from, const std::string& to) override {
        return Tell(), PosixFiles::Rename(from, to);
    }
    bool SyncFolder(const std::string& folder) override { return Tell(), PosixFiles::SyncFolder(folder); }

  private:
    void Tell() const {
        if (write(pipe, "x", 1) != 1) _exit(1);
    }
    int pipe;
};

struct Desk : EventLog {
    explicit Desk(int pipe) : machine(world, pipe), control(machine, shared, *this, *this) {
        for (int n = 0; n < 2000; ++n) options.Autobans.Add("bad" + std::to_string(n));
    }
    struct Machine : SimPlatform {
        Machine(SimWorld& world, int pipe) : SimPlatform(world), files(pipe) {}
        Files& FileSystem() override { return files; }
        TellingFiles files;
    };

    SimWorld world;
    Machine machine;
    OscarSettings shared;
    TillerSock control;
    Options options{machine, control, shared};
};

std::string TextOfTurn(Desk& desk, int turn) {
    desk.options.Controls.txtSN.SetText(turn % 2 != 0 ? "Odd" : "Even with a longer name");
    return SettingsText(desk.options);
}

} // namespace

TEST(Kill, TwoHundredKillsLeaveOneWholeFileEach) {
    auto folder = std::filesystem::temp_directory_path() / ("halyard-kill-" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    auto path = (folder / "Saved.hys").string();
    Desk parent(-1);
    const std::set<std::string> whole{TextOfTurn(parent, 0), TextOfTurn(parent, 1)};
    SimRandom chance(20);
    for (int kill = 0; kill < 200; ++kill) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        auto child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            Desk desk(ends[1]);
            for (int turn = 0;; ++turn) {
                TextOfTurn(desk, turn);
                WriteSettings(desk.machine, desk.options, path);
            }
        }
        close(ends[1]);
        char byte;
        // Past one whole save at first, so that there is a file; then at any of its steps.
        for (auto steps = (kill == 0 ? 4 : 0) + chance.Between(1, 7); steps > 0; --steps)
            ASSERT_EQ(read(ends[0], &byte, 1), 1);
        ::kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(ends[0]);
        auto found = PosixFiles().Read(path, 1 << 20);
        ASSERT_TRUE(found) << kill;
        ASSERT_TRUE(whole.contains(*found)) << "kill " << kill << " left " << found->size() << " bytes";
    }
    std::filesystem::remove_all(folder);
}

} // namespace halyard
