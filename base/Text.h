#pragma once

// The text operations of the system. All text is one character a byte (Windows-1252), positions count from 1,
// and a failing conversion yields nothing instead of throwing.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// The `length` characters of `text` from position `start` (from 1); fewer where the text ends, none from
/// start 0.
std::string Mid(std::string_view text, std::size_t start, std::size_t length = std::string::npos);

/// The first `length` characters, or the whole text when it is shorter.
std::string Left(std::string_view text, std::size_t length);

/// Lower case of Windows-1252: A to Z and the accented capitals.
char LowerChar(char c);
std::string Lower(std::string_view text);

/// `text` without blanks (character 32) at both ends.
std::string Trim(std::string_view text);

/// `text` in lower case with every blank removed: the form in which names and command lines are compared.
std::string NormalizeName(std::string_view text);

/// True when NormalizeName of both is the same; without making either.
bool SameName(std::string_view one, std::string_view other);

/// Every occurrence of `what` in `text` replaced by `with`; case matters. An empty `what` changes nothing.
std::string Replace(std::string_view text, std::string_view what, std::string_view with);

/// The parts of `text` between separators. `limit` is the greatest number of parts, the last of which keeps
/// further separators; 0 is no limit. An empty text has no parts; an empty separator parts nothing.
std::vector<std::string> Split(std::string_view text, std::string_view separator, std::size_t limit = 0);

/// True when `what` occurs in `text`, upper and lower case alike. An empty `what` occurs in every text.
bool ContainsNoCase(std::string_view text, std::string_view what);
/// The position of the first such occurrence, from 1; 0 when there is none.
std::size_t FindNoCase(std::string_view text, std::string_view what);

/// `text` without its tags: from the first "<" to the next ">" behind it, again and again; entities stay.
/// Linear in the length of the text.
std::string StripHTML(std::string_view text);

/// The number that `text` begins with, blanks anywhere passed over: sign, digits, one point, exponent ("e" or
/// "d"). 0 when it begins with none; an exponent out of all bounds gives infinity or 0.
double Val(std::string_view text);

/// The whole of `text`, blanks at its ends aside, as such a number; nothing when it isn't one.
std::optional<double> ToNumber(std::string_view text);
/// True when ToNumber gives one.
bool IsNumeric(std::string_view text);

/// The whole of `text` as an integer, a half rounded to the even number; nothing when it is no number or does
/// not fit the type. Both mirror how an assignment to a 16- or 32-bit field behaves: it fails and changes
/// nothing.
std::optional<std::int16_t> ToInt16(std::string_view text);
std::optional<std::int32_t> ToInt32(std::string_view text);
/// `value` rounded, a half to the even number; nothing outside the type.
std::optional<std::int16_t> RoundToInt16(double value);
std::optional<std::int32_t> RoundToInt32(double value);

/// Gives `field` the value when it fits 16 signed bits, and leaves it as it was otherwise.
void AssignInt16(std::int16_t& field, long long value);

/// A number in its shortest decimal form that reads back as the same, ".5" written as "0.5"; no exponent from
/// 0.0000001 up to below 1000000000000000.
std::string NumberText(double value);
std::string NumberText(float value);

/// "True" or "False".
std::string BoolText(bool value);

} // namespace halyard
