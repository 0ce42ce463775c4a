// halyardctl as a program: what it tells the shell, and what it writes.

#include "platform/sqlite/Beside.h"
#include "tests/bridge/ledger/FilledLedger.h"
#include "tests/platform_sqlite/TestFolder.h"

#include <cstdio>
#include <sys/wait.h>

namespace halyard {
namespace {

struct Ran {
    int status = -1;
    std::string said; ///< on both outputs
};

Ran RunCtl(const std::string& arguments) {
    const auto command = "TZ=CET-1 " HALYARD_CTL " " + arguments + " 2>&1";
    Ran ran;
    auto* pipe = popen(command.c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) ran.said += static_cast<char>(c);
    const int status = pclose(pipe);
    ran.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return ran;
}

TEST(LedgerCtlTest, TellsTheShellWhatCameOfIt) {
    const TestFolder folder;
    const auto path = folder.Path("ledger.db");
    TestFolder::Put(folder.Path("text"), "no database at all, though long enough to be looked at as one\n");
    {
        FilledLedger ledger(path);
        ledger.Ban("Bob\x1B", "The Den", FilledLedger::Op("anna", "ban bob/rude", "rude"));
        ledger.Ban("eve", "lobby", FilledLedger::By(RuleKind::Autoword, "*sp4m*", "=sp4m"));
        ledger.Whole(ListName::Autowords, {}, "*sp4m*\nnever");
    }
    const auto file = " --file " + path;
    const std::tuple<std::string, int, const char*> table[] = {
        {"", 64, "A subcommand is required"},
        {"--help", 0, "Subcommands:"},
        {"ledger --help", 0, "halyardctl ledger rule --never"},
        {"ledger person" + file, 64, "NAME is required"},
        {"ledger list --since 5y" + file, 64, "\"5y\" is no time"},
        {"ledger list --limit -1" + file, 64, "not in range"},
        {"ledger list --file " + folder.Path("none"), 69, "There is no ledger"},
        {"ledger list --file " + folder.Path("text"), 74, "halyardctl: "},
        {"ledger list" + file, 0,
         "#2  2025-11-24 17:00:02 CET  ban  eve      lobby    accepted  autoword *sp4m*\n"
         "#1  2025-11-24 17:00:01 CET  ban  Bob\\x1B  The Den  accepted  anna: ban bob/rude\n"},
        {"ledger list --limit 1 --json" + file, 0, "{\"act\":2,"},
        {"ledger list 'room:the den' reason:rude" + file, 0, "#1"},
        {"ledger list --room lobby reason:rude" + file, 1, ""},
        {"ledger person 'B O B\x1B'" + file, 0, "eject list  The Den"},
        {"ledger person nobody" + file, 1, "There is no person \"nobody\""},
        {"ledger op anna" + file, 0, "2025-11-24  1     0           0"},
        {"ledger op eve" + file, 1, "There is no op"},
        {"ledger rule sp4m" + file, 0,
         "autoword *sp4m*: 1 act, 0 taken back, the last 2025-11-24 17:00:02 CET; its"},
        {"ledger rule --never" + file, 0, "autoword never\n"},
        {"ledger export" + file, 0, ",autoword *sp4m*,autoword *sp4m*,'=sp4m,"},
        {"ledger export --jsonl bob\x1B" + file, 0, "\"person\":\"Bob\\u001b\""},
        {"ledger export > /dev/full" + file, 74, ""},
        {"ledger backup " + folder.Path("copy") + file, 0, "Backed up"},
        {"ledger backup " + folder.Path("copy") + file, 74, ""},
        {"ledger list --file " + folder.Path("copy"), 0, "#2"},
        {"ledger prune --texts 1" + file, 0, "pruned"},
        {"ledger list rude" + file, 1, ""},
    };
    for (const auto& [arguments, status, words] : table) {
        const auto ran = RunCtl(arguments);
        EXPECT_EQ(ran.status, status) << arguments << "\n" << ran.said;
        EXPECT_NE(ran.said.find(words), std::string::npos) << arguments << "\n" << ran.said;
    }

    // A bot holds the folder: what is only read goes on.
    bool busy = false;
    const auto bot = FileLock::Take(folder.Path("halyard"), busy);
    EXPECT_EQ(RunCtl("ledger prune" + file).status, 74);
    EXPECT_EQ(RunCtl("ledger list" + file).status, 0);
}

} // namespace
} // namespace halyard
