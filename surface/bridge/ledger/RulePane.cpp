#include "surface/bridge/ledger/RulePane.h"

#include "base/Text.h"
#include "surface/bridge/ledger/ActText.h"
#include "surface/bridge/ledger/OpPane.h"

namespace halyard {

RulePane::RulePane(const LedgerRead& read) : question(read) {
    chkNeverHit.Click = [this] { Show(row, name); };
    tblRules.DblClick = [this] {
        if (tblRules.Index() < 0 || !onGo) return;
        const auto rule = rules[static_cast<std::size_t>(tblRules.Index())];
        if (rule.row != 0) onGo(rule.row, rule.name);
    };
}

void RulePane::Show(std::int64_t wanted, const std::string& text) {
    row = wanted;
    name = text;
    txtRule.SetText("");
    struct Found {
        std::optional<RulePage> page;
        std::vector<ActsOf> rules;
        std::vector<NeverHit> never;
    };
    question.Ask(
        [wanted, text, never = chkNeverHit.Value() == 1](Connection& connection) {
            Found found;
            found.rules = ReadRules(connection, wanted != 0 ? std::string() : RuleSearch(text));
            auto rule = wanted;
            for (const auto& one : found.rules)
                if (wanted == 0 && (one.name == text || (!text.empty() && found.rules.size() == 1)))
                    rule = one.row;
            if (rule != 0) found.page = ReadRule(connection, rule);
            if (never) found.never = ReadNeverHit(connection);
            return found;
        },
        [this, never = chkNeverHit.Value() == 1](const DatabaseResult& result, const Found& found) {
            if (!result.Ok()) return txtRule.SetText(Readable(result.words));
            rules = found.rules;
            if (never) {
                rules.clear();
                for (const auto& entry : found.never) rules.push_back({0, RuleName(entry.kind, entry.entry)});
            }
            std::vector<TableBox::Line> lines;
            for (const auto& rule : rules)
                lines.push_back(rule.row != 0 ? ActsLine(rule)
                                              : TableBox::Line{{Readable(rule.name), "none", ""}});
            tblRules.SetAll(std::move(lines));
            if (!found.page) {
                const auto* none = never ? "Every entry has hit somebody." : "The ledger knows no such rule.";
                return txtRule.SetText(rules.empty() ? none
                                       : never       ? "Entries below."
                                                     : "Choose a rule below.");
            }
            txtRule.SetText(RuleWords(*found.page));
        });
}

std::string RuleSearch(const std::string& name) {
    const auto blank = name.find(' ');
    if (blank == std::string::npos || RuleOfWord(Lower(name.substr(0, blank))) == RuleKind::None) return name;
    return name.substr(blank + 1);
}

} // namespace halyard
