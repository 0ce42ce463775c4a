#pragma once

// The runaway fuse: an entry of a rule that acts on too many persons whom the ledger knows from earlier days
// is a mistake, and pauses until the operator says otherwise. Many newcomers are a raid, which it leaves
// alone. Without a ledger nobody is known, and it never goes off. BanGuards owns the one.

#include "bridge/guards/GuardHands.h"
#include "bridge/guards/bans/GuardsFile.h"
#include "commands/RuleFuse.h"
#include "platform/Timer.h"

#include <compare>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace halyard {

class Fuse : public RuleFuse {
  public:
    static constexpr int LookPause = 1000; ///< ms; who was acted on is looked up in the ledger together

    struct Entry {
        RuleKind rule = RuleKind::None;
        std::string text; ///< of the list; empty where the rule has none
        friend bool operator==(const Entry&, const Entry&) = default;
        friend bool operator<(const Entry& one, const Entry& other) {
            return std::tie(one.rule, one.text) < std::tie(other.rule, other.text);
        }
    };

    /// All outlive it.
    Fuse(const GuardHands& hands, GuardsFile& file);

    int persons = 5;  ///< it pauses when it acts on more than so many
    int minutes = 10; ///< within so many

    /// With the moment since when it had acted on those, ms since 1970.
    const std::map<Entry, std::int64_t>& Paused() const { return paused; }
    /// The entry acts again from now on; its count begins anew.
    void Resume(const Entry& entry);
    /// The paused ones have changed.
    std::function<void()> onChanged;
    /// What stood in the file.
    void Restore(const GuardsFile::Rows& rows);

    bool LetsAct(RuleKind rule, const std::string& entry, std::int16_t intChatIndex,
                 const std::string& name) override;

  private:
    using Names = std::map<std::string, std::int64_t>; ///< normalised, and when they were acted on, ms
    struct Looked {
        Entry entry;
        std::string name;
        std::int64_t at = 0;
    };
    void LookUp();
    void Count(const std::vector<Looked>& acted, const std::set<std::string>& known);
    void GoOff(const Entry& entry, std::size_t count);

    GuardHands hands;
    GuardsFile& file;
    std::map<Entry, std::int64_t> paused;
    std::map<Entry, Names> counts; ///< of persons known before today
    std::vector<Looked> asked;     ///< not looked up yet
    std::unique_ptr<Timer> timer;  ///< runs while there are
    std::shared_ptr<int> life = std::make_shared<int>();
};

/// As the operator is told of it, such as 'the autoban "spam*"'.
std::string WordsOf(const Fuse::Entry& entry);

} // namespace halyard
