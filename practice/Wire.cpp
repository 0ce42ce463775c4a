#include "practice/Wire.h"

#include "oscar/wire/ModOscarFunctions.h"

namespace halyard {

int Reader::Byte() {
    auto taken = Bytes(1);
    return taken.empty() ? 0 : static_cast<unsigned char>(taken[0]);
}

int Reader::Word() {
    auto high = Byte();
    return high * 256 + Byte();
}

std::uint32_t Reader::Long() {
    auto high = static_cast<std::uint32_t>(Word());
    return high * 65536 + static_cast<std::uint32_t>(Word());
}

std::string_view Reader::Bytes(std::size_t count) {
    if (count > left.size()) {
        ok = false;
        left = {};
        return {};
    }
    auto taken = left.substr(0, count);
    left.remove_prefix(count);
    return taken;
}

std::optional<Snac> ParseSnac(std::string_view frameBody) {
    Reader reader(frameBody);
    Snac snac;
    snac.family = reader.Word();
    snac.subtype = reader.Word();
    auto flags = reader.Word();
    snac.id = reader.Long();
    if (flags & 0x8000) reader.Bytes(static_cast<std::size_t>(reader.Word()));
    if (!reader.Ok()) return std::nullopt;
    snac.body = reader.Rest();
    return snac;
}

std::string SnacBytes(int family, int subtype, std::uint32_t id, std::string_view body) {
    return WordToStr(family) + WordToStr(subtype) + WordToStr(0) + LongToStr(id) + std::string(body);
}

std::optional<TlvList> ReadTlvs(std::string_view bytes) {
    TlvList list;
    Reader reader(bytes);
    while (!reader.Rest().empty()) {
        auto type = reader.Word();
        auto value = reader.Bytes(static_cast<std::size_t>(reader.Word()));
        if (!reader.Ok()) return std::nullopt;
        list.emplace_back(type, value);
    }
    return list;
}

const std::string* FindTlv(const TlvList& list, int type) {
    for (const auto& [itemType, value] : list)
        if (itemType == type) return &value;
    return nullptr;
}

std::string Tlv(int type, std::string_view value) { return MakeTLV(StrToHex(WordToStr(type)), 2, value); }

std::string WordTlv(int type, int value) { return Tlv(type, WordToStr(value)); }

std::string ShortString(std::string_view text) { return MakeTLV("", 1, text); }

std::string ErrorBody(int code, int detail) { return WordToStr(code) + WordTlv(0x0008, detail); }

} // namespace halyard
