#include "practice/service/Messages.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"

namespace halyard {

namespace {

constexpr int codeNotThere = 0x0004;
constexpr int charsetUtf16 = 0x0002;

/// What the journal tells of a message: its text when it is a plain one.
std::string Spoken(const TlvList& tlvs) {
    auto block = FindTlv(tlvs, 0x0002);
    auto inner = block ? ReadTlvs(*block) : std::nullopt;
    auto text = inner ? FindTlv(*inner, 0x0101) : nullptr;
    if (!text) return "something that is no text";
    Reader reader(*text);
    const bool wide = reader.Word() == charsetUtf16;
    reader.Word(); // the charset's subset
    return StripHTML(wide ? FromUtf16(reader.Rest()) : std::string(reader.Rest()));
}

} // namespace

bool HandleMessage(World& world, ClientConnection& connection, const Snac& snac) {
    Reader reader(snac.body);
    auto head = std::string(reader.Bytes(10)); // cookie and channel
    auto to = std::string(reader.Name());
    auto tlvs = ReadTlvs(reader.Rest());
    if (!reader.Ok() || !tlvs) return false;
    auto person = world.people.Find(to);
    if (!person || (!person->bos && !person->scripted)) {
        world.Note("", connection.name, "sends a message to " + to + ", who is not there");
        connection.SendSnac(0x0004, 0x0001, snac.id, WordToStr(codeNotThere));
        return true;
    }
    world.Note("", connection.name, "sends " + person->name + " the message " + Spoken(*tlvs));
    std::string passed;
    for (const auto& [type, value] : *tlvs)
        if (type != 0x0003 && type != 0x0006) passed += Tlv(type, value); // those two speak to the service
    if (person->bos) person->bos->SendSnac(0x0004, 0x0007, 0, head + world.InfoOf(connection.name) + passed);
    if (FindTlv(*tlvs, 0x0003)) connection.SendSnac(0x0004, 0x000C, snac.id, head + ShortString(to));
    return true;
}

bool HandleUserInfo(World& world, ClientConnection& connection, const Snac& snac) {
    Reader reader(snac.body);
    auto wide = snac.subtype == 0x0015;
    auto wanted = wide ? reader.Long() : static_cast<std::uint32_t>(reader.Word());
    auto name = std::string(reader.Name());
    if (!reader.Ok()) return false;
    auto person = world.people.Find(name);
    world.Note("", connection.name, "asks about " + name + (person ? "" : ", who is not there"));
    if (!person) return connection.SendSnac(0x0002, 0x0001, snac.id, WordToStr(codeNotThere)), true;
    // The short form names one thing, the long form has a bit for each; a question for nothing gets
    // everything.
    auto profile = wanted == 0 || (wide ? (wanted & 1) != 0 : wanted == 1);
    auto capabilities = wanted == 0 || (wide ? (wanted & 4) != 0 : wanted == 4);
    auto answer = world.InfoOf(person->name);
    if (profile) answer += Tlv(0x0001, person->encoding) + Tlv(0x0002, person->profile);
    if (capabilities) answer += Tlv(0x0005, person->capabilities);
    connection.SendSnac(0x0002, 0x0006, snac.id, answer);
    return true;
}

void DeliverText(World& world, const std::string& from, const std::string& to, std::string_view text) {
    auto person = world.people.Find(to);
    world.Note("", from, "sends " + to + " the message " + std::string(text));
    if (!person || !person->bos) return;
    auto block = Tlv(0x0501, HexToStr("010102")) + Tlv(0x0101, HexToStr("00000000") + std::string(text));
    person->bos->SendSnac(0x0004, 0x0007, 0,
                          HexToStr("0000000000000001") + WordToStr(1) + world.InfoOf(from) +
                              Tlv(0x0002, block));
}

} // namespace halyard
