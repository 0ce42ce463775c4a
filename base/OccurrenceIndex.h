#pragma once

// Answers which entries of a list occur in a text, upper and lower case alike, without trying them one by
// one. Kept beside a list by its owner, who adds and removes entries as the list does; the oldest entry is
// the first.
//
// How: a position where no entry's first characters stand (StartFilter) is done with at once. For the others
// the pieces of those lengths that some entry has are hashed and looked for in a bit filter, and only what
// passes it is looked up. Pieces of up to eight characters are hashed on the way; for longer ones the text is
// hashed once, so that the hash of every piece costs one multiplication. Entries longer than a head's length
// leave a mark for their head too, so that most positions are done with before the long lengths are tried. No
// step depends on how many entries start alike.

#include "base/HashSlots.h"
#include "base/NodePool.h"
#include "base/StartFilter.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

class OccurrenceIndex {
  public:
    /// Makes of an entry the lower-case text that has to occur. An empty one occurs in every text.
    using PatternOf = std::string (*)(std::string_view entry);

    explicit OccurrenceIndex(PatternOf patternOf);

    /// Adds `entry` behind all others. The owner does not add one that is there already, and keeps it
    /// where it is until it is removed.
    void Add(const std::string& entry);
    /// Removes `entry`, which is still where it was; one that is not in the index changes nothing.
    void Remove(std::string_view entry);
    void Clear();

    /// The oldest entry that occurs in `text`; empty when none does.
    std::string FirstIn(std::string_view text) const;
    /// Every entry that occurs in `text`, once each, the oldest first.
    std::vector<std::string> AllIn(std::string_view text) const;

  private:
    struct Entry {
        const std::string* text = nullptr;
        std::uint64_t order = 0;
    };
    using Id = HashSlots::Id;
    struct Length {
        std::size_t length;
        std::size_t entries;
    };

    template <typename Visit>
    void VisitCandidates(std::string_view text, Visit visit) const;
    void CountLength(std::size_t length);
    void UncountLength(std::size_t length);
    void Mark(std::uint64_t hash);
    void MarkEntry(std::string_view pattern);
    bool IsMarked(std::uint64_t hash) const;
    void RebuildFilter();

    PatternOf patternOf;
    NodePool<Entry> entries;
    HashSlots byHash;            // the entries by the hashes of their patterns
    std::vector<Length> lengths; // of the patterns, the shortest first
    StartFilter starts;
    std::vector<std::uint64_t> filter; // a power of two of words; removed entries stay marked
    std::size_t marks = 0;
    std::uint64_t lastOrder = 0;
};

} // namespace halyard
