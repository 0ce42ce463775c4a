#pragma once

// The ledger at this desk, and all that works on it: who is answered from it, and what is taken back by it.
// With the ledger switched off, or open in another window, there is none of them. The bridge owns the one.

#include "bridge/ledger/Ledger.h"
#include "bridge/ledger/answers/Answers.h"
#include "bridge/ledger/answers/Appeals.h"
#include "bridge/ledger/answers/PacedMessages.h"
#include "bridge/ledger/keeping/Keeper.h"
#include "bridge/ledger/undo/UndoRun.h"
#include "platform/Files.h"
#include "surface/bridge/DeskDoors.h"

#include <functional>
#include <memory>
#include <string>

namespace halyard {

class NewsFan;
class frmMain;

class LedgerHost {
  public:
    /// All outlive it. Nothing is kept before Start.
    LedgerHost(frmMain& main, NewsFan& heard, std::function<void(const std::string&)> tell);
    ~LedgerHost();
    LedgerHost(const LedgerHost&) = delete;
    LedgerHost& operator=(const LedgerHost&) = delete;

    /// What there is while a ledger is kept. It hears each fact before who acts upon one.
    struct Parts {
        Parts(frmMain& main, Doors& doors);
        Ledger ledger;
        Keeper keeper;
        PacedMessages messages;
        UndoRun undo;
        Answers answers;
        Appeals appeals;
    };

    /// Whether the ledger can be written, told where that changes.
    std::function<void(bool works, const std::string& words)> onHealth;

    /// Begins, goes on, or ends by the terms. The file is ledger.db in the bridge's data folder, which one
    /// program at a time has.
    void Take(const LedgerTerms& terms);
    /// Null while none is kept.
    Parts* Open() { return parts.get(); }
    /// On which the bot signs on from here on, as the operator names it.
    void SetNetwork(const std::string& name);
    Doors& DoorsOfDesk() { return doors; }
    /// The ledger's file; empty when the machine has no folder for it.
    std::string Path() const;

  private:
    void Begin();
    void End();
    std::string Health() const;

    frmMain& main;
    NewsFan& heard;
    std::function<void(const std::string&)> tell;
    DeskDoors doors;
    std::string network;
    std::unique_ptr<HeldFile> folder;
    std::unique_ptr<Parts> parts;
};

} // namespace halyard
