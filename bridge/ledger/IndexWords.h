#pragma once

// The words of the ledger's search index. Beside the words of an act's texts it holds field words, which
// begin with a character that no text of the desk has: "of room 7", "by op 12". The writer and the search
// make them by the functions here, so that they are the same.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

enum class WordField : char {
    Room = 'r',
    Op = 'o',
    Rule = 'u',
    RuleKind = 'x',
    Kind = 'k',
    Person = 'p',
    Reason = 'q'
};

/// The field word of a row's number, of an ActKind's for Kind, of halyard::RuleKind's for RuleKind.
std::string FieldWord(WordField field, std::int64_t number);
/// That of one word of a reason.
std::string FieldWord(WordField field, std::string_view word);

/// The words of `utf8` as the index takes them apart: letters and digits, all else separates. Characters
/// outside of Windows-1252 separate too, which no text of the desk has.
std::vector<std::string> WordsOf(std::string_view utf8);

} // namespace halyard
