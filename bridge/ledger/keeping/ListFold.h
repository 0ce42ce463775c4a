#pragma once

// The rows of changes folded: each list begins with a whole content and becomes another with every change.
// What the rows say of a list is the same as what it was, wherever no gap is.

#include "base/News.h"
#include "platform/Database.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace halyard {

/// One list's content, in its order; texts as the file has them.
class FoldedList {
  public:
    FoldedList() = default;
    /// `entries` one a line; of options "key", a tab, the value.
    explicit FoldedList(std::string_view entries);

    /// False, and no change, when that can't be.
    bool Add(const std::string& entry);
    bool Remove(const std::string& entry) { return places.erase(entry) > 0; }
    void Clear() { places.clear(); }
    bool Holds(const std::string& entry) const { return places.contains(entry); }
    /// An option's value goes from one to the other; null for none.
    bool Change(const std::string& key, const std::string* before, const std::string* after);
    std::vector<std::string> Entries() const;
    std::size_t Count() const { return places.size(); }

  private:
    std::map<std::string, std::int64_t> places;
    std::int64_t next = 0;
};

/// A list by the number of its name and the row of its room, 0 for none.
using ListPlace = std::pair<std::int64_t, std::int64_t>;

class ListFold {
  public:
    /// What doesn't fit, in words. Its changes after it are passed over until a whole content comes.
    std::function<void(const std::string&)> onFinding;

    /// Goes through the rows up to and with the change of this number, from where it came to the last time.
    void Run(Connection& file, std::int64_t upTo = std::numeric_limits<std::int64_t>::max());

    /// Those whose content is known then.
    std::map<ListPlace, FoldedList> Lists() const;
    /// One of them; null for one whose content isn't known.
    const FoldedList* Find(ListPlace place) const;
    std::int64_t LastRun() const { return run; }

  private:
    struct State {
        FoldedList list;
        std::int64_t run = 0;
        bool known = false;
    };

    void TakeWhole(Statement& whole);
    void TakeChange(Statement& change);
    State& StateOf(ListPlace place, std::int64_t ofRun);
    void Found(State& state, const std::string& words);

    std::map<ListPlace, State> states;
    std::int64_t lastWhole = std::numeric_limits<std::int64_t>::min(); ///< rows behind which it goes on
    std::int64_t lastChange = 0, lastGap = 0;
    std::int64_t run = 0;
    std::int64_t begun = 0; ///< the run whose whole contents were seen: what it names no content for is empty
};

/// "eject list of room 3", "list 2".
std::string PlaceWords(ListPlace place);

} // namespace halyard
