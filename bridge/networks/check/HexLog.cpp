#include "bridge/networks/check/HexLog.h"

#include "oscar/wire/ModOscarFunctions.h"

#include <algorithm>
#include <optional>

namespace halyard {

namespace {

constexpr std::string_view Blank = "\xB7\xB7";
constexpr std::size_t SnacHead = 10; // family, subtype, flags, request id
constexpr std::string_view CookieTLV("\0\6", 2);

std::string HexBytes(std::string_view bytes) {
    const auto digits = StrToHex(bytes);
    std::string spaced;
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        if (at > 0) spaced += ' ';
        spaced.append(digits, at, 2);
    }
    return spaced;
}

struct Blanked {
    std::string text;
    bool cookie = false; ///< there was one
};

/// The TLVs without their cookies; nothing when the bytes aren't TLVs to the end, so that a cookie might
/// stand anywhere in them.
std::optional<Blanked> Cookieless(std::string_view tlvs) {
    Blanked result;
    while (!tlvs.empty()) {
        const auto tlv = FirstTLV(tlvs);
        if (tlvs.size() < 4 || StrToWord(tlvs.substr(2)) != static_cast<std::int32_t>(tlv.value.size()))
            return std::nullopt;
        const bool cookie = tlv.type == CookieTLV;
        result.cookie = result.cookie || cookie;
        if (!result.text.empty()) result.text += ' ';
        result.text += HexBytes(tlvs.substr(0, cookie ? 4 : tlv.size));
        if (cookie) result.text.append(" ").append(Blank);
        tlvs.remove_prefix(tlv.size);
    }
    return result;
}

/// A redirect or a migration: its TLVs stand behind the head, or behind a word, or behind a prefix that some
/// services put there. Where no such reading finds the cookie, nothing of the body is shown.
std::string WithoutItsCookie(std::string_view body) {
    for (const std::size_t start : {SnacHead, SnacHead + 2, SnacHead + 8, SnacHead + 10})
        if (start < body.size())
            if (const auto rest = Cookieless(body.substr(start)); rest && rest->cookie)
                return HexBytes(body.substr(0, start)) + " " + rest->text;
    return HexBytes(body.substr(0, SnacHead)).append(" ").append(Blank);
}

std::string Shown(int channel, std::string_view body) {
    constexpr std::size_t bareReason = 4; // a type and a value, too little for a cookie
    if (channel == 1) return std::string(Blank);
    if (channel == 4) {
        if (body.size() <= bareReason) return HexBytes(body);
        const auto rest = Cookieless(body);
        return rest ? rest->text : std::string(Blank);
    }
    const auto key = body.size() < 4 ? std::string() : SnacKey(body);
    if (key.starts_with("0017")) return HexBytes(body.substr(0, SnacHead)).append(" ").append(Blank);
    return key == "00010005" || key == "00010012" ? WithoutItsCookie(body) : HexBytes(body);
}

} // namespace

void HexLog::Add(std::int64_t milliseconds, int socket, bool sent, int channel, std::string_view body) {
    auto line = std::to_string(milliseconds) + " ms, socket " + std::to_string(socket) +
                (sent ? ", sent" : ", came") + " on channel " + std::to_string(channel);
    if (channel != 1 && channel != 4 && body.size() >= 4)
        line += ", " + StrToHex(body.substr(0, 2)) + " " + StrToHex(body.substr(2, 2));
    lines += line + ": " + Shown(channel, body) + "\n";
    if (lines.size() > Most) DropOlderHalf();
}

void HexLog::DropOlderHalf() {
    const auto end = lines.find('\n', lines.size() / 2);
    const auto dropped = end == std::string::npos ? lines.size() : end + 1;
    gone += static_cast<std::size_t>(
        std::count(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(dropped), '\n'));
    lines.erase(0, dropped);
}

void HexLog::Clear() {
    lines.clear();
    gone = 0;
}

std::string HexLog::Text() const {
    return gone == 0 ? lines : std::to_string(gone) + " older lines were left out.\n" + lines;
}

} // namespace halyard
