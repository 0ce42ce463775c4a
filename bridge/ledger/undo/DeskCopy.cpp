#include "bridge/ledger/undo/DeskCopy.h"

#include "base/IndexedList.h"
#include "base/Text.h"
#include "bridge/ledger/DeskLists.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <set>
#include <utility>

namespace halyard {

namespace {

/// One of the seven lists. Its index is made at the first question, beside the loop.
class ListCopy {
  public:
    ListCopy(const IndexedList& list, Matching matching)
        : entries(list.begin(), list.end()), matching(matching) {}

    const IndexedList& Indexed() {
        if (!indexed) {
            indexed = std::make_unique<IndexedList>(matching);
            for (const auto& entry : entries) indexed->Add(entry);
        }
        return *indexed;
    }

  private:
    std::vector<std::string> entries;
    Matching matching;
    std::unique_ptr<IndexedList> indexed;
};

struct DeskState {
    std::map<ListName, ListCopy> lists;
    std::map<std::pair<std::string, std::int16_t>, std::set<std::string>> out;
    std::map<std::string, std::string> options;
    std::int16_t autobanLevel = 0;
    bool icqs = false;
    bool chars = false;
    std::size_t charCount = 0;

    bool Holds(ListName list, const std::string& entry) {
        const auto found = lists.find(list);
        return found != lists.end() && found->second.Indexed().Position(entry) != 0;
    }
    std::string Hits(const std::string& name, const std::vector<ListEntry>& without);
};

std::string DeskState::Hits(const std::string& name, const std::vector<ListEntry>& without) {
    if (Holds(ListName::Immunes, name)) return {};
    if (autobanLevel == 2) return "everybody is banned";
    if (autobanLevel == 1)
        for (const auto& entry : lists.at(ListName::Autobans).Indexed().AllMatches(name))
            if (std::ranges::find(without, ListEntry{ListName::Autobans, entry}) == without.end())
                return "autoban " + entry;
    if (icqs && IsNumeric(name)) return "names of digits are banned";
    if (chars && name.size() == charCount)
        return "names of " + std::to_string(charCount) + " characters are banned";
    return {};
}

} // namespace

DeskNow CopyDesk(Options& options, const TillerSock& control) {
    constexpr std::array names{ListName::Ops,     ListName::Immunes,  ListName::Autobans, ListName::Autowords,
                               ListName::LockOps, ListName::LockImms, ListName::LockBans};
    auto state = std::make_shared<DeskState>();
    const auto lists = options.Lists();
    for (std::size_t index = 0; index < names.size(); ++index) {
        const bool masks = names[index] == ListName::Autobans || names[index] == ListName::LockBans;
        state->lists.emplace(names[index],
                             ListCopy(*lists[index], masks ? Matching::masks : Matching::whole));
    }
    for (const auto& list : control.EjectLists)
        for (const auto& name : list->GetEjects())
            state->out[{NormalizeName(list->ChatName), list->Exchange}].insert(name);
    const auto texts = OptionWatch(options).Whole();
    for (std::string_view rest = texts.text; const auto length : texts.lengths) {
        const auto pair = rest.substr(0, length);
        const auto tab = std::min(pair.find('\t'), pair.size());
        state->options.emplace(pair.substr(0, tab), pair.substr(std::min(tab + 1, pair.size())));
        rest.remove_prefix(length);
    }
    state->autobanLevel = options.AutobanLevel;
    state->icqs = options.BanAllICQs;
    state->chars = options.CharBanOn;
    state->charCount = static_cast<std::size_t>(options.CharBanNum);

    DeskNow now;
    now.holds = [state](const ListEntry& entry) { return state->Holds(entry.list, entry.entry); };
    now.isOut = [state](const std::string& room, std::int16_t exchange, const std::string& name) {
        const auto found = state->out.find({NormalizeName(room), exchange});
        return found != state->out.end() && found->second.contains(name);
    };
    now.isLocked = [state](const std::string& name) {
        return !state->lists.at(ListName::LockBans).Indexed().FirstMatch(name).empty();
    };
    now.hits = [state](const std::string& name, const std::vector<ListEntry>& without) {
        return state->Hits(name, without);
    };
    now.option = [state](const std::string& key) -> std::optional<std::string> {
        const auto found = state->options.find(key);
        if (found == state->options.end()) return std::nullopt;
        return found->second;
    };
    return now;
}

} // namespace halyard
