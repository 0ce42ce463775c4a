#pragma once

// A list of normalised texts, each its own key, that can be asked which entry a line or a name meets first.
// The lists of ops, immunes, autobans, lock bans and autowords are of this kind; their owner says at the
// start which question will be asked, so that no list pays for the other's index. Answers are those of trying
// all in order.

#include "base/Collection.h"
#include "base/News.h"
#include "base/OccurrenceIndex.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

enum class Matching {
    whole, // only look-ups by key
    words, // FirstWordIn
    masks, // FirstMatch and AllMatches
};

class IndexedList {
  public:
    explicit IndexedList(Matching matching = Matching::whole, ListName name = ListName::None);
    IndexedList(const IndexedList&) = delete; // the index points into the list
    IndexedList& operator=(const IndexedList&) = delete;

    /// Tells its changes from now on to who listens there; `through` outlives it.
    void Tell(Telling& through) { telling = &through; }

    /// Appends `text`, which is normalised already. False, and no change, when it is empty or there already.
    bool Add(std::string_view text);
    /// Removes `text`. False when it is absent.
    bool Remove(std::string_view text);
    /// Removes the entry at `position`, from 1. False when there is none.
    bool Remove(std::ptrdiff_t position);
    void Clear();

    std::size_t Count() const { return list.Count(); }
    /// The entry at `position`, from 1, or the one equal to `text`; empty when there is none.
    const std::string& Item(std::ptrdiff_t position) const { return list.Item(position); }
    const std::string& Item(std::string_view text) const { return list.Item(text); }
    /// The position of `text`, from 1; 0 when it is absent.
    std::ptrdiff_t Position(std::string_view text) const { return list.Position(text); }

    /// Of a list of words: the first entry that occurs in `text`, case ignored; empty when none does.
    std::string FirstWordIn(std::string_view text) const;

    /// Of a list of words: every entry that occurs in `text`, in the order of the list.
    std::vector<std::string> AllWordsIn(std::string_view text) const;

    /// Of a list of masks: the first entry that `name` meets; empty when it meets none. An entry with "*" is
    /// met when, all its asterisks removed, it occurs anywhere in `name`, case ignored: where the asterisk
    /// stands has no meaning, on purpose, and one of asterisks only is met by every name. Any other entry
    /// must equal `name`.
    std::string FirstMatch(std::string_view name) const;
    /// Of a list of masks: every entry that `name` meets, in the order of the list.
    std::vector<std::string> AllMatches(std::string_view name) const;

    auto begin() const { return list.begin(); }
    auto end() const { return list.end(); }

  private:
    bool IsIndexed(std::string_view text) const;
    const std::string& EqualEntry(std::string_view name) const;

    Matching matching;
    ListName name;
    Telling* telling = nullptr;
    Collection<std::string> list; // its entries stay where they are
    OccurrenceIndex index;        // of all words, or of the masks that hold an asterisk
};

} // namespace halyard
