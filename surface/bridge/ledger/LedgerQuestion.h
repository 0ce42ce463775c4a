#pragma once

// How the window Ledger reads: jobs for the ledger's reader, whose answers come on the loop. Each part of the
// window owns the one question that it may have under way.

#include "platform/Database.h"

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace halyard {

/// As Database::Read; empty while no ledger is open.
using LedgerRead = std::function<std::shared_ptr<ReadTicket>(Database::Job job, Database::Done done)>;

/// A newer question cancels the older, whose answer is told to nobody any more; so does the end of its owner.
class LedgerQuestion {
  public:
    /// `read` outlives it and may be filled and emptied at any time.
    explicit LedgerQuestion(const LedgerRead& read) : read(read) {}
    ~LedgerQuestion() { Drop(); }
    LedgerQuestion(const LedgerQuestion&) = delete;
    LedgerQuestion& operator=(const LedgerQuestion&) = delete;

    bool UnderWay() const { return asked != nullptr; }
    void Drop() {
        if (!asked) return;
        asked->dropped = true;
        if (asked->ticket) asked->ticket->Cancel();
        asked.reset();
    }

    /// `find(Connection&)` runs on the reader; what it returns is handed to `told(const DatabaseResult&,
    /// answer)`. False, and nothing is asked, while no ledger is open.
    template <typename Find, typename Told>
    bool Ask(Find find, Told told) {
        using Answer = std::invoke_result_t<Find&, Connection&>;
        Drop();
        if (!read) return false;
        const auto one = std::make_shared<Asked>();
        const auto answer = std::make_shared<Answer>();
        asked = one;
        one->ticket = read([answer, find](Connection& connection) { *answer = find(connection); },
                           [this, one, answer, told](const DatabaseResult& result) {
                               if (one->dropped) return;
                               asked.reset();
                               told(result, std::move(*answer));
                           });
        return true;
    }

  private:
    struct Asked {
        bool dropped = false;
        std::shared_ptr<ReadTicket> ticket; ///< null until the call has returned
    };

    const LedgerRead& read;
    std::shared_ptr<Asked> asked;
};

} // namespace halyard
