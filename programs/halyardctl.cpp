// The program for terminals: what the bot remembers, asked for without a window.

#include "base/Latin1.h"
#include "platform/qt/PosixFiles.h"
#include "programs/ctl/Ledger.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>

namespace {

using namespace halyard;

constexpr const char* LedgerExamples = R"(Examples:
  halyardctl ledger list bob                      every act with that word
  halyardctl ledger list room:lobby kind:ban --since 2d
  halyardctl ledger list op:roomboss reason:rude  words and fields as in the window
  halyardctl ledger person bob                    where bob stands, since when, and why
  halyardctl ledger op roomboss --since 2026-11-23
  halyardctl ledger rule --never                  entries that never hit anybody
  halyardctl ledger export --since 7d > week.csv
  halyardctl ledger prune --texts 180

Times: 2d, 3h, 90m, 2026-11-23, 2026-11-23T14:05 in this machine's zone, 2026-11-23T14:05Z.
Exit status: 0 done; 1 done, and the answer is no (nothing found, verify failed);
64 misuse; 69 no file there; 74 something could not be read or written.)";

void AddLedger(CLI::App& app, LedgerCall& call, std::string& file) {
    using Command = LedgerCall::Command;
    auto* ledger = app.add_subcommand("ledger", "Who was banned when, on whose word, by which rule");
    ledger->require_subcommand(1);
    ledger->fallthrough();
    ledger->footer(LedgerExamples);
    ledger->add_option("--file", file, "The ledger; the bot's own when not given");
    ledger->add_flag("--json", call.json, "One JSON object a line, for programs");
    ledger->add_option("--room", call.room, "Only this room");
    ledger->add_option("--since", call.since, "Only what was done then or later");
    ledger->add_option("--until", call.until, "Only what was done before");
    const auto* limit = ledger->add_option("--limit", call.limit, "At most so many acts, 0 for all")
                            ->check(CLI::Range(std::int64_t{0}, std::int64_t{1} << 40))
                            ->default_str("50, all of an export");
    const auto add = [&](const char* name, Command command, const char* what) {
        auto* made = ledger->add_subcommand(name, what);
        made->callback([&call, command, limit] {
            call.command = command;
            if (command == Command::Export && limit->count() == 0) call.limit = 0;
        });
        return made;
    };
    const auto name = [&call](CLI::App* made, const char* what, bool required) {
        made->add_option(what, call.words)->expected(1)->required(required);
    };
    add("list", Command::List, "Acts, the newest first")->add_option("WORD", call.words, "Words and fields");
    name(add("person", Command::Person, "All about a person"), "NAME", true);
    name(add("op", Command::Op, "What an op did, by day; without a name all ops"), "NAME", false);
    auto* rule = add("rule", Command::Rule, "Whom a rule hit; without a word all rules");
    name(rule, "ENTRY", false);
    rule->add_flag("--never", call.neverHit, "Autobans and autowords that never hit anybody");
    auto* toFile = add("export", Command::Export, "Acts as CSV");
    toFile->add_option("WORD", call.words, "Words and fields");
    toFile->add_flag("--jsonl", call.jsonLines, "As JSON Lines");
    add("verify", Command::Verify,
        "Whether the file is whole and its lists are what their changes make of them");
    auto* prune = add("prune", Command::Prune, "Takes old texts and acts out; only when no bot runs");
    const auto days = CLI::Range(0, 36500);
    prune->add_option("--texts", call.days.texts, "Days for which texts stay, 0 for ever")
        ->check(days)
        ->capture_default_str();
    prune->add_option("--acts", call.days.acts, "Days for which acts stay, 0 for ever")
        ->check(days)
        ->capture_default_str();
    name(add("backup", Command::BackUp, "One whole file, while the bot runs"), "PATH", true);
}

int Run(int count, char** words) {
    LedgerCall call;
    std::string file;
    CLI::App app("Asks Halyard, and what it remembers.", "halyardctl");
    app.require_subcommand(1);
    AddLedger(app, call, file);
    try {
        app.parse(count, words);
    } catch (const CLI::ParseError& end) {
        // Help ends the reading of arguments as a mistake does.
        return app.exit(end) == 0 ? 0 : static_cast<int>(ExitStatus::Misuse);
    }
    PosixFiles files;
    const auto folder = files.BridgeFolder();
    call.file = !file.empty() ? FromUtf8(file) : folder.empty() ? std::string() : folder + "/ledger.db";
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    call.now = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    return static_cast<int>(RunLedger(call));
}

} // namespace

int main(int count, char** words) {
    try {
        return Run(count, words);
    } catch (const std::exception& wrong) { // of the libraries for arguments and JSON
        std::fprintf(stderr, "halyardctl: %s\n", wrong.what());
        return static_cast<int>(ExitStatus::InOut);
    }
}
