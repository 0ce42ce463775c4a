#pragma once

// What the window Ledger asks of others: of the ledger, of the desk by its doors, of who carries out an undo.
// What is empty can't be done, and its button takes no press. Texts are Windows-1252.

#include "bridge/ledger/reading/UndoPlan.h"
#include "surface/bridge/ledger/LedgerQuestion.h"

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

struct LedgerHooks {
    /// What came of it, in words; empty when there is nothing to say.
    using Told = std::function<void(const std::string& words)>;

    LedgerRead read;
    /// The open rooms: socket slot and name.
    std::function<std::vector<std::pair<std::int16_t, std::string>>()> rooms;
    /// The names of those in which the person is now.
    std::function<std::vector<std::string>(const std::string& name)> roomsOf;
    /// By the desk's doors; they return why it was not done, empty when it was.
    std::function<std::string(std::int16_t room, const std::string&name)> ban, unban;
    std::function<std::string(const std::string& name)> immune;
    /// `person` is a row of persons.
    std::function<void(std::int64_t person, Told told)> forget;
    std::function<void(std::int64_t person, const std::string& text, Told told)> addNote;
    /// Writes the whole ledger into another file.
    std::function<void(const std::string& path, Told told)> backUp;
    /// A copy of the desk for a plan.
    std::function<DeskNow()> desk;
    /// Begins to take back what is ticked in the plan. `tell`: the persons are told by IM. Returns why not.
    std::function<std::string(const UndoPlan& plan, const UndoAsk& ask, bool tell)> carryOut;
    std::function<void()> stop;
};

} // namespace halyard
