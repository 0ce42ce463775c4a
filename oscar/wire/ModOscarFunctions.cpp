#include "oscar/wire/ModOscarFunctions.h"

#include "platform/Random.h"

#include <algorithm>
#include <cmath>

namespace halyard {

namespace {

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

/// Adds the TLV that begins at `at` to `list`; where the next one begins, at most the end of `input`.
std::size_t TakeTLV(const std::string& input, std::size_t at, Collection<std::string>& list) {
    const auto tlv = FirstTLV(std::string_view(input).substr(at));
    list.Add(std::string(tlv.type));
    list.Add(std::string(tlv.value));
    return at + tlv.size;
}

} // namespace

std::string ByteToStr(long long value) {
    return value >= 0 && value <= 255 ? std::string(1, static_cast<char>(value)) : std::string();
}

std::string WordToStr(long long value) {
    if (value < 0 || value > 65535) return {};
    return {static_cast<char>(value / 256), static_cast<char>(value % 256)};
}

std::optional<std::int32_t> StrToWord(std::string_view text) {
    if (text.size() < 2) return std::nullopt;
    return static_cast<unsigned char>(text[0]) * 256 + static_cast<unsigned char>(text[1]);
}

std::string LongToStr(double value) {
    if (!(value >= 0 && value < 4294967296.0)) return {};
    return WordToStr(static_cast<long long>(value / 65536)) +
           WordToStr(static_cast<long long>(FloatMod(value, 65536)));
}

std::optional<double> StrToLong(std::string_view text) {
    auto high = StrToWord(text);
    auto low = text.size() >= 4 ? StrToWord(text.substr(2)) : std::nullopt;
    if (!high || !low) return std::nullopt;
    return *high * 65536.0 + *low;
}

double FloatMod(double a, double b) { return a - b * std::trunc(a / b); }

std::string HexToStr(std::string_view digits) {
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
        int high = HexDigit(digits[at]);
        int low = HexDigit(digits[at + 1]);
        if (high >= 0 && low >= 0) bytes += static_cast<char>(high * 16 + low);
    }
    return bytes;
}

std::string StrToHex(std::string_view bytes) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (unsigned char byte : bytes) {
        hex += digits[byte / 16];
        hex += digits[byte % 16];
    }
    return hex;
}

std::string SnacKey(std::string_view bytes) { return StrToHex(bytes.substr(0, 4)); }

std::string MakeTLV(std::string_view strType, int width, std::string_view strValue) {
    auto size = static_cast<long long>(strValue.size());
    std::string length;
    if (width == 1) length = ByteToStr(size);
    if (width == 2) length = WordToStr(size);
    if (width == 4) length = LongToStr(static_cast<double>(size));
    if (length.empty()) return {};
    return HexToStr(strType).append(length).append(strValue);
}

void ParseTLVs(std::string& input, Collection<std::string>& list) {
    if (input == std::string_view("\0\0", 2)) {
        list.Add("");
        list.Add("");
        return;
    }
    std::size_t at = 0;
    for (int taken = 0; taken < 101 && at < input.size(); ++taken) at = TakeTLV(input, at, list);
    input.erase(0, at);
}

void ParseTLVCount(std::string& input, int count, Collection<std::string>& list) {
    std::size_t at = 0;
    for (int taken = 0; taken < std::min(count, 100); ++taken) at = TakeTLV(input, at, list);
    input.erase(0, at);
}

std::string FamilyTag(std::string_view family) {
    static constexpr std::string_view names[] = {"Generic",
                                                 "Location",
                                                 "Buddy_List",
                                                 "ICBM_Messages",
                                                 "Depreciated(advertisments)",
                                                 "Invitation",
                                                 "Admin",
                                                 "Popup",
                                                 "Privacy",
                                                 "User_Lookup",
                                                 "Stats",
                                                 "Depricated(translation)",
                                                 "Chat_Navigation",
                                                 "Chat",
                                                 "Directory_Search",
                                                 "Buddy_Icons",
                                                 "Unknown[0011]",
                                                 "Unknown[0012]",
                                                 "SSI",
                                                 "Unknown[0014]",
                                                 "ICQ_Meta",
                                                 "Unknown[0016]",
                                                 "Authorization",
                                                 "Email",
                                                 "Unknown[0019]"};
    auto digits = StrToHex(family);
    auto number = family.size() == 2 ? StrToWord(family).value_or(0) : 0;
    if (number >= 1 && number <= 0x19) return "[" + std::string(names[number - 1]) + "]";
    if (digits == "00A0") return "[Unknown[00A0]]";
    return "Unknown[" + digits + "]"; // no outer brackets here, on purpose
}

double RandomInRange(Random& random, double upper, double lower) {
    random.Reseed();
    return std::trunc(random.Fraction() * (upper - lower + 1)) + lower;
}

} // namespace halyard
