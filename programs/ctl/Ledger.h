#pragma once

// "halyardctl ledger": the commands on a ledger's file. It is opened to be read, beside a running bot too;
// only prune writes.

#include "bridge/ledger/keeping/Keeping.h"
#include "programs/ctl/ExitStatus.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

struct LedgerCall {
    enum class Command { List, Person, Op, Rule, Export, Verify, Prune, BackUp };
    Command command = Command::List;
    std::vector<std::string> words; ///< what stands behind the command; UTF-8
    std::string room;               ///< empty: every room
    std::string since;              ///< empty: always
    std::string until;
    std::int64_t limit = 50; ///< acts; 0: all
    bool json = false;
    bool neverHit = false;  ///< of Rule
    bool jsonLines = false; ///< of Export
    KeepDays days;          ///< of Prune
    std::string file;       ///< Windows-1252
    std::int64_t now = 0;   ///< ms UTC
};

/// Writes its answer to the standard output and what went wrong to the error output.
ExitStatus RunLedger(const LedgerCall& call);

} // namespace halyard
