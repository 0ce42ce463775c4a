#pragma once

// Ties the window Ledger to the ledger and the desk: what it reads, which doors its buttons are, who carries
// out an undo. The bridge owns the one.

#include "base/Cause.h"
#include "surface/bridge/ledger/LedgerWindow.h"

#include <memory>
#include <string>

namespace halyard {

class LedgerHost;
class frmMain;

class LedgerWiring {
  public:
    /// All outlive it. The window's hooks are filled here, once.
    LedgerWiring(frmMain& main, LedgerHost& desk, LedgerWindow& window);

    /// Another ledger is open, or none any more.
    void Reopened();

    /// Takes back what an entry of a rule did since a moment, ms UTC, at once; the entry stays. What hinders
    /// it, in words, or empty; what comes later is told where undo tells.
    std::string TakeBack(RuleKind rule, const std::string& entry, std::int64_t since);

  private:
    void FillReading();
    void FillDoors();
    void FillUndo();
    std::string CarryOut(const UndoPlan& plan, const UndoAsk& ask, bool tell);
    void ShowProgress();
    /// Runs `then` with the name of a row of persons, empty when it has none any more.
    void WithName(std::int64_t person, std::function<void(const std::string&)> then);

    frmMain& main;
    LedgerHost& desk;
    LedgerWindow& window;
    std::shared_ptr<int> life = std::make_shared<int>();
};

} // namespace halyard
