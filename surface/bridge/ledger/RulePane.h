#pragma once

// A rule, whom it hit, and which rules there are; on request, the entries that never hit anybody. The window
// Ledger owns the one.

#include "bridge/ledger/reading/Views.h"
#include "platform/Table.h"
#include "surface/bridge/ledger/LedgerQuestion.h"

#include <functional>
#include <string>
#include <vector>

namespace halyard {

class RulePane {
  public:
    /// `read` outlives it.
    explicit RulePane(const LedgerRead& read);

    Frame FrameRule{"FrameRule", "Rule"};
    TextBox txtRule{"txtRule"}; ///< read only
    TableBox tblRules{"tblRules", {{"Rule", 0}, {"Acts", 9}, {"Last", 11}}};
    CheckBox chkNeverHit{"chkNeverHit", "Entries that never hit anybody"};

    /// Another rule is to be looked at: row of rules, and its name (UTF-8).
    std::function<void(std::int64_t row, const std::string& name)> onGo;
    /// `row` of rules, or when that is 0 those that `name` is (RuleName, or a part of an entry; UTF-8); all
    /// rules for an empty one.
    void Show(std::int64_t row, const std::string& name);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameRule), visit(txtRule), visit(tblRules), visit(chkNeverHit);
    }

  private:
    LedgerQuestion question;
    std::int64_t row = 0;
    std::string name;
    std::vector<ActsOf> rules; ///< as listed; rows of 0 for entries that never hit
};

/// What a search's "rule:" takes of the name of a rule: its entry, or the kind of one without.
std::string RuleSearch(const std::string& name);

} // namespace halyard
