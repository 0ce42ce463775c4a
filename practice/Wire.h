#pragma once

// Taking apart what clients send, with every length checked against what is there, and the few compositions
// that the whole practice network shares. Composing otherwise goes through oscar/ModOscarFunctions.h.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace halyard {

/// The body of a channel 2 frame.
struct Snac {
    int family = 0;
    int subtype = 0;
    std::uint32_t id = 0; ///< the request id, which the answer carries back
    std::string body;     ///< without the prefix of a flagged SNAC
};

/// Nothing when the ten bytes of the head, or the prefix that the flags announce, are not all there.
std::optional<Snac> ParseSnac(std::string_view frameBody);
std::string SnacBytes(int family, int subtype, std::uint32_t id, std::string_view body);

/// Reads a body from the front. Past the end everything reads as 0 or empty, and Ok() is false from then on.
class Reader {
  public:
    explicit Reader(std::string_view bytes) : left(bytes) {}

    int Byte();
    int Word();
    std::uint32_t Long();
    std::string_view Bytes(std::size_t count);
    /// A length in one byte, and that many bytes.
    std::string_view Name() { return Bytes(static_cast<std::size_t>(Byte())); }
    std::string_view Rest() const { return left; }
    bool Ok() const { return ok; }

  private:
    std::string_view left;
    bool ok = true;
};

using TlvList = std::vector<std::pair<int, std::string>>;

/// All TLVs of `bytes`; nothing when a length lies or a fragment is left over.
std::optional<TlvList> ReadTlvs(std::string_view bytes);
/// The value of the first TLV of that type; null when there is none.
const std::string* FindTlv(const TlvList& list, int type);
/// Type, 2-byte length, value.
std::string Tlv(int type, std::string_view value);
/// A TLV whose value is a number of 2 bytes.
std::string WordTlv(int type, int value);
/// A length in one byte, and the text.
std::string ShortString(std::string_view text);
inline constexpr int codeDenied = 0x000D; ///< of refusals, "request denied"

/// The body of an error SNAC (subtype 0001 of every family): an error code and in TLV 0008 what exactly is
/// wrong.
std::string ErrorBody(int code, int detail);

} // namespace halyard
