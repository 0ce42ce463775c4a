#include "practice/service/Bos.h"

#include "oscar/wire/ModOscarFunctions.h"

namespace halyard {

namespace {

bool KeepProfile(World& world, ClientConnection& connection, const Snac& snac) {
    auto tlvs = ReadTlvs(snac.body);
    auto person = world.people.Find(connection.name);
    if (!tlvs) return false;
    if (!person) return true;
    if (auto encoding = FindTlv(*tlvs, 0x0001)) person->encoding = *encoding;
    if (auto profile = FindTlv(*tlvs, 0x0002)) {
        person->profile = *profile;
        world.Note("", connection.name, "sets a profile");
    }
    if (auto capabilities = FindTlv(*tlvs, 0x0005)) person->capabilities = *capabilities;
    return true;
}

/// One success word for every item of a change of the list (0013 000E).
bool AnswerListChange(ClientConnection& connection, const Snac& snac) {
    std::string words;
    Reader reader(snac.body);
    while (!reader.Rest().empty()) {
        reader.Bytes(static_cast<std::size_t>(reader.Word())); // name
        reader.Bytes(6);                                       // group, item, type
        reader.Bytes(static_cast<std::size_t>(reader.Word())); // TLVs
        words += WordToStr(0);
    }
    if (!reader.Ok()) return false;
    connection.SendSnac(0x0013, 0x000E, snac.id, words);
    return true;
}

/// What a client may do at most, and the list, by the request's family and subtype.
std::string RightsAnswer(World& world, int key) {
    switch (key) {
    case 0x00020002: return WordTlv(0x0001, 4096) + WordTlv(0x0002, 18) + WordTlv(0x0005, 128);
    case 0x00030002: return WordTlv(0x0001, 500) + WordTlv(0x0002, 3000) + WordTlv(0x0003, 512);
    case 0x00040004: // channel, flags, longest message, warning levels, interval
        return HexToStr("0002") + HexToStr("00000003") + HexToStr("1F40") + HexToStr("03E7") +
               HexToStr("03E7") + HexToStr("00000000");
    case 0x00090002: return WordTlv(0x0001, 500) + WordTlv(0x0002, 500);
    case 0x00130002: return Tlv(0x0004, HexToStr("01F4003D01F400010001"));
    default: return ByteToStr(0) + WordToStr(0) + LongToStr(static_cast<double>(world.options.startedAt));
    }
}

} // namespace

bool HandleBos(World& world, ClientConnection& connection, const Snac& snac) {
    auto key = snac.family * 0x10000 + snac.subtype;
    auto answer = [&](int subtype) {
        connection.SendSnac(snac.family, subtype, snac.id, RightsAnswer(world, key));
        return true;
    };
    switch (key) {
    case 0x00020002:
    case 0x00030002:
    case 0x00090002:
    case 0x00130002: return answer(0x0003);
    case 0x00040004: return answer(0x0005);
    case 0x00130004:
    case 0x00130005: return answer(0x0006);
    case 0x00130008:
    case 0x00130009:
    case 0x0013000A: return AnswerListChange(connection, snac);
    case 0x00020004: return KeepProfile(world, connection, snac);
    default: return true;
    }
}

} // namespace halyard
