#pragma once

// The small routines from which every OSCAR packet is composed and taken apart. They hold no state and know
// two kinds of text: byte strings, one character a wire byte, and hex-digit strings, two upper-case digits a
// byte. Positions count from 1; numbers on the wire are big-endian.

#include "base/Collection.h"
#include "base/Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

class Random;

/// One character of code `value` (0 to 255); empty for any other value.
std::string ByteToStr(long long value);
/// 2 bytes: value divided by 256, value modulo 256. Empty outside 0 to 65535.
std::string WordToStr(long long value);
/// The number in bytes 1 and 2, 0 to 65535; nothing when there are fewer.
std::optional<std::int32_t> StrToWord(std::string_view text);
/// 4 bytes of `value` (0 to 4294967295, fractions cut); empty outside.
std::string LongToStr(double value);
/// The number in bytes 1 to 4; nothing when there are fewer.
std::optional<double> StrToLong(std::string_view text);
/// `a` minus `b` times the integer part of `a` / `b`.
double FloatMod(double a, double b);
/// Bytes of a hex-digit string, pair by pair; a pair that isn't hexadecimal contributes nothing.
std::string HexToStr(std::string_view digits);
/// Two upper-case hex digits a byte.
std::string StrToHex(std::string_view bytes);
/// The eight hex digits by which a SNAC is dispatched, from its 4 bytes of family and subtype.
std::string SnacKey(std::string_view bytes);

/// Type (a hex-digit string), length of the value in `width` bytes (1, 2 or 4), value. With an empty type
/// this is a length-prefixed string. Any other width, or a value too long for it, gives an empty string.
std::string MakeTLV(std::string_view strType, int width, std::string_view strValue);
/// A TLV as it lies in what it was read from.
struct TLV {
    std::string_view type; ///< two bytes, or what there is of them
    std::string_view value;
    std::size_t size = 0; ///< all bytes that it takes
};
/// The TLV at the front of `input`. A value that the input cuts short is taken as far as it goes; fewer than
/// four bytes are a type alone.
inline TLV FirstTLV(std::string_view input) {
    if (input.size() < 4) return {input.substr(0, 2), {}, input.size()};
    const auto byte = [&input](std::size_t at) { return static_cast<unsigned char>(input[at]); };
    const auto value = input.substr(4, static_cast<std::size_t>(byte(2)) << 8 | byte(3));
    return {input.substr(0, 2), value, 4 + value.size()};
}
/// Adds the TLVs at the front of `input` to `list`, flat: type, value, type, value; at most 101 of them, and
/// takes them off the input. An input of exactly two zero bytes adds an empty type and an empty value and
/// stays as it is: that is how a ban reply (000E 0001) says yes. A value that the input cuts short is taken
/// as far as it goes.
void ParseTLVs(std::string& input, Collection<std::string>& list);
/// The same for exactly `count` TLVs, at most 100, without the two-zero-bytes rule. A count that promises
/// more than there is adds empty types and values.
void ParseTLVCount(std::string& input, int count, Collection<std::string>& list);

/// The display tag of a 2-byte family, such as "[Chat]".
std::string FamilyTag(std::string_view family);

/// A whole number from `lower` to `upper`, from a generator seeded anew.
double RandomInRange(Random& random, double upper, double lower);

} // namespace halyard
