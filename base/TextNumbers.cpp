// The conversions between texts and numbers declared in base/Text.h. They never look at the locale.

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace halyard {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The number at the head of a text, in the form that std::from_chars reads, and how much of the text it
/// took.
struct Number {
    std::string form;        // without a plus sign, exponent letter "e"; empty when there are no digits
    std::size_t length = 0;  // characters of the text
    long long magnitude = 0; // ten to this power is above the absolute value and at most ten times it
};

std::string_view DigitsAt(std::string_view text, std::size_t at) {
    auto end = at;
    while (end < text.size() && IsDigit(text[end])) ++end;
    return text.substr(at, end - at);
}

/// The exponent at `at`, letter included; nothing when no digit follows the letter and its sign.
std::string_view ExponentAt(std::string_view text, std::size_t at) {
    if (at >= text.size() || std::string_view("eEdD").find(text[at]) == std::string_view::npos) return {};
    auto digitsAt = at + 1;
    if (digitsAt < text.size() && (text[digitsAt] == '+' || text[digitsAt] == '-')) ++digitsAt;
    auto digits = DigitsAt(text, digitsAt);
    return digits.empty() ? digits : text.substr(at, digitsAt + digits.size() - at);
}

/// The value of an exponent's sign and digits, held within a billion either way.
long long ExponentValue(std::string_view exponent) {
    constexpr long long limit = 1'000'000'000;
    auto negative = exponent[0] == '-';
    if (negative || exponent[0] == '+') exponent.remove_prefix(1);
    long long value = 0;
    for (char digit : exponent) value = std::min(limit, value * 10 + (digit - '0'));
    return negative ? -value : value;
}

Number ReadNumber(std::string_view text) {
    std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    auto whole = DigitsAt(text, at);
    auto end = at + whole.size();
    std::string_view fraction;
    if (end < text.size() && text[end] == '.') {
        fraction = DigitsAt(text, end + 1);
        end += 1 + fraction.size();
    }
    if (whole.empty() && fraction.empty()) return {};

    Number number;
    auto digits = std::string(whole).append(fraction);
    auto zeros = digits.find_first_not_of('0');
    if (zeros == std::string::npos) zeros = digits.size();
    number.magnitude = static_cast<long long>(whole.size()) - static_cast<long long>(zeros);
    if (text[0] == '-') number.form.push_back('-');
    number.form.append(whole.empty() ? "0" : whole).append(".").append(fraction.empty() ? "0" : fraction);
    if (auto exponent = ExponentAt(text, end); !exponent.empty()) {
        auto power = ExponentValue(exponent.substr(1));
        number.magnitude += power;
        number.form.append("e").append(std::to_string(power));
        end += exponent.size();
    }
    number.length = end;
    return number;
}

double ValueOf(const Number& number) {
    double value = 0;
    const auto& form = number.form;
    auto result = std::from_chars(form.data(), form.data() + form.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    value = number.magnitude > 0 ? std::numeric_limits<double>::infinity() : 0;
    return form[0] == '-' ? -value : value;
}

template <typename Integer>
std::optional<Integer> RoundTo(double value) {
    auto rounded = std::nearbyint(value);
    constexpr double lowest = std::numeric_limits<Integer>::min();
    constexpr double highest = std::numeric_limits<Integer>::max();
    if (!(rounded >= lowest && rounded <= highest)) return std::nullopt; // also what is not a number at all
    return static_cast<Integer>(rounded);
}

template <typename Real>
std::string RealText(Real value) {
    if (value == 0) return "0"; // minus zero too
    auto size = std::fabs(value);
    if (size <= Real(1 << 24) && value == std::trunc(value)) return std::to_string(static_cast<int>(value));
    auto everyday = size >= Real(1e-7) && size < Real(1e15);
    char buffer[64];
    auto end = std::to_chars(buffer, buffer + sizeof buffer, value,
                             everyday ? std::chars_format::fixed : std::chars_format::general);
    return std::string(buffer, end.ptr);
}

} // namespace

double Val(std::string_view text) {
    std::string packed(text);
    std::erase(packed, ' ');
    return ValueOf(ReadNumber(packed));
}

std::optional<double> ToNumber(std::string_view text) {
    auto trimmed = Trim(text);
    auto number = ReadNumber(trimmed);
    if (number.form.empty() || number.length != trimmed.size()) return std::nullopt;
    return ValueOf(number);
}

bool IsNumeric(std::string_view text) { return ToNumber(text).has_value(); }

std::optional<std::int16_t> ToInt16(std::string_view text) {
    auto number = ToNumber(text);
    return number ? RoundToInt16(*number) : std::nullopt;
}

std::optional<std::int32_t> ToInt32(std::string_view text) {
    auto number = ToNumber(text);
    return number ? RoundToInt32(*number) : std::nullopt;
}

std::optional<std::int16_t> RoundToInt16(double value) { return RoundTo<std::int16_t>(value); }

std::optional<std::int32_t> RoundToInt32(double value) { return RoundTo<std::int32_t>(value); }

void AssignInt16(std::int16_t& field, long long value) {
    if (value >= std::numeric_limits<std::int16_t>::min() &&
        value <= std::numeric_limits<std::int16_t>::max())
        field = static_cast<std::int16_t>(value);
}

std::string NumberText(double value) { return RealText(value); }

std::string NumberText(float value) { return RealText(value); }

} // namespace halyard
