#pragma once

// What people type to find acts: words and fields, "room:lobby op:roomboss kind:ban since:2d reason:rude
// bob". Window, terminal program and answers read it here; Acts.h looks it up. Texts are UTF-8.

#include "bridge/ledger/Schema.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace halyard {

/// One word to be found, as WordsOf makes them.
struct SearchWord {
    std::string word;
    bool begins = false; ///< "rud*": any word that begins so, two characters at least
    bool operator==(const SearchWord&) const = default;
};

/// All of it has to hold. What is empty or absent asks nothing.
struct Search {
    std::vector<SearchWord> words;  ///< of the act's texts and names
    std::vector<SearchWord> reason; ///< of its reason
    std::string room;               ///< case and blanks don't count
    std::string op;                 ///< the same
    std::string person;             ///< the same
    std::string rule; ///< the kind of a rule ("autoword") or a part of an entry; case doesn't count
    std::optional<ActKind> kind;
    std::optional<std::int64_t> since; ///< ms UTC, at this moment or later
    std::optional<std::int64_t> until; ///< before this moment
    std::optional<std::int64_t> act;   ///< the number of the one act
    // What no text asks for: rows that are known, two of persons and one of rules; 0 asks nothing.
    std::int64_t personRow = 0;
    std::int64_t opRow = 0;
    std::int64_t ruleRow = 0;
};

struct SearchMistake {
    std::size_t place = 0; ///< byte of the text, from 0
    std::string words;     ///< what is wrong there
};

/// `now` in ms UTC is what "since:2d" counts from. Fields are room, op, person, rule, kind, since, until and
/// reason; a blank in a value or word wants quotes, "room:\"the den\"", in which a quote is doubled. "#1234"
/// is one act. A field said twice, reason aside, is a mistake.
std::variant<Search, SearchMistake> ReadSearch(std::string_view text, std::int64_t now);

/// The text by which ReadSearch finds `value` in the field.
std::string FieldText(std::string_view field, std::string_view value);

/// A search out of words that a shell has taken apart: a blank inside of one belongs to it.
std::string SearchOfArguments(const std::vector<std::string>& arguments);

} // namespace halyard
