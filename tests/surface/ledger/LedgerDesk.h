#pragma once

// The window Ledger over a small ledger, with everything around it that it asks: each wish is written down.

#include "surface/bridge/ledger/LedgerWindow.h"
#include "tests/bridge/ledger/FilledLedger.h"

#include <deque>

namespace halyard {

class LedgerDesk {
  public:
    using L = FilledLedger;
    using Lines = std::vector<std::string>;

    L ledger;
    Lines wishes; ///< of the window, oldest first
    std::vector<std::pair<std::int16_t, std::string>> rooms{{2, "lobby"}, {3, "den"}};
    std::string whyNot;                        ///< what the doors answer
    std::deque<std::function<void()>> waiting; ///< questions, while `later`
    bool later = false;
    std::string rule = "*sp4m*"; ///< the one autoword that stands

    /// A room's chat goes wrong by one bad word: #1 is the word, the others are bans by it.
    void BadWord(const Lines& names) {
        ledger.Whole(ListName::Autowords, "", "");
        ledger.Enter(ListName::Autowords, rule, L::Op("roomboss", "addword " + rule));
        for (const auto& name : names) ledger.Ban(name, "lobby", L::By(RuleKind::Autoword, rule, "buy sp4m"));
    }

    void Fill(LedgerHooks& hooks) {
        hooks.read = [this](Database::Job job, Database::Done done) {
            auto ticket = std::make_shared<ReadTicket>();
            auto run = [this, job, done, ticket] {
                if (!ticket->Cancelled()) job(ledger.File());
                done(ticket->Cancelled() ? DatabaseResult{DatabaseFault::Cancelled, "cancelled"}
                                         : ledger.File().Result());
            };
            later ? waiting.push_back(run) : run();
            return ticket;
        };
        const auto wish = [this](const std::string& words) { return wishes.push_back(words), whyNot; };
        hooks.rooms = [this] { return rooms; };
        hooks.roomsOf = [](const std::string& name) { return Lines{name == "alice" ? "den" : "lobby"}; };
        hooks.ban = [wish](std::int16_t room, const std::string& name) {
            return wish("ban " + name + " in " + std::to_string(room));
        };
        hooks.unban = [wish](std::int16_t room, const std::string& name) {
            return wish("unban " + name + " in " + std::to_string(room));
        };
        hooks.immune = [wish](const std::string& name) { return wish("immune " + name); };
        hooks.forget = [this, wish](std::int64_t person, const LedgerHooks::Told& told) {
            const auto words = wish("forget " + std::to_string(person));
            if (words.empty())
                ledger.File().Execute("UPDATE persons SET key = NULL, spelled = NULL WHERE key = 'alice'");
            told(words);
        };
        hooks.addNote = [this, wish](std::int64_t person, const std::string& text,
                                     const LedgerHooks::Told& told) {
            ledger.File()
                .Prepare("INSERT INTO notes(person, at, kind, text) VALUES(?, 0, 1, ?)")
                .Bind(1, person)
                .Bind(2, text)
                .Step();
            told(wish("note " + text));
        };
        hooks.backUp = [wish](const std::string& path, const LedgerHooks::Told& told) {
            told(wish("back up " + path));
        };
        hooks.desk = [this] {
            DeskNow now;
            now.holds = [this](const ListEntry& entry) { return entry.entry == rule; };
            now.isOut = [](const std::string&, std::int16_t, const std::string&) { return true; };
            now.isLocked = [](const std::string&) { return false; };
            now.hits = [](const std::string&, const std::vector<ListEntry>&) { return std::string(); };
            now.option = [](const std::string&) { return std::optional<std::string>(); };
            return now;
        };
        hooks.carryOut = [wish](const UndoPlan& plan, const UndoAsk&, bool tell) {
            std::string words = tell ? "undo and tell" : "undo";
            for (const auto* items : {&plan.first, &plan.items})
                for (const auto& item : *items)
                    if (item.ticked) words += " " + (item.name.empty() ? item.entries.front() : item.name);
            return wish(words);
        };
        hooks.stop = [wish] { wish("stop"); };
    }
};

} // namespace halyard
