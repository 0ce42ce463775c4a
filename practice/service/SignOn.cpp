#include "practice/service/SignOn.h"

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "platform/Md5.h"
#include "practice/service/Services.h"

#include <cstdio>

namespace halyard {

namespace {

constexpr int codeBadName = 4;
constexpr int codeBadPassword = 5;
constexpr int codeSuspended = 0x11;
constexpr std::size_t longestLoginName = 97;

bool IsName(std::string_view name) { return !NormalizeName(name).empty() && name.size() <= longestLoginName; }

/// True for the hash of this password in any of its forms: each salt, with the password or its raw MD5.
bool IsHashOf(const std::string& password, const World& world, const std::string& key,
              const std::string& hash) {
    for (const auto& salt : world.options.salts)
        if (hash == Md5(key + Md5(password) + salt) || hash == Md5(key + password + salt)) return true;
    return false;
}

bool IsGoodHash(const World& world, const std::string& key, const std::string& hash) {
    if (key.empty() || hash.size() != 16) return false;
    const auto& wanted = world.options.password;
    return IsHashOf(wanted, world, key, hash) == !wanted.empty(); // any is welcome but the empty one
}

bool IsGoodRoast(const World& world, const std::string& roasted) {
    const auto& wanted = world.options.password;
    return wanted.empty() ? !roasted.empty() : roasted == DefaultSecrets().Roast(wanted);
}

/// The TLVs that answer a sign-on; `code` 0 lets the person in.
std::string Answer(World& world, const std::string& name, int code) {
    auto answer = Tlv(0x0001, name);
    if (code == 0 && world.suspended.contains(NormalizeName(name))) code = codeSuspended;
    if (world.refusals.signOn != 0) code = world.refusals.signOn;
    world.refusals.signOn = 0;
    if (code != 0) {
        world.Note("", name, "is refused at sign-on, code " + std::to_string(code));
        return answer + WordTlv(0x0008, code);
    }
    return answer + Tlv(0x0005, world.RedirectAddress()) +
           Tlv(0x0006, world.NewCookie({.name = name, .service = Service::Bos})) +
           Tlv(0x0011, NormalizeName(name) + "@localhost");
}

bool RoastedSignOn(World& world, ClientConnection& connection, const TlvList& tlvs) {
    auto name = FindTlv(tlvs, 0x0001);
    auto password = FindTlv(tlvs, 0x0002); // public clients; the bot sends its roasted password as 0025
    if (!password && !world.options.Has(Departure::RoastedPasswordType)) password = FindTlv(tlvs, 0x0025);
    if (!name) return false;
    auto code = !IsName(*name)                                ? codeBadName
                : !password || !IsGoodRoast(world, *password) ? codeBadPassword
                                                              : 0;
    world.Dismiss(connection, Answer(world, *name, code));
    return true;
}

} // namespace

bool HandleHello(World& world, ClientConnection& connection, std::string_view body) {
    if (connection.service != Service::None) return true;
    Reader reader(body);
    if (reader.Long() != 1 || !reader.Ok()) return false;
    auto tlvs = ReadTlvs(reader.Rest());
    if (!tlvs) return false;
    if (auto cookie = FindTlv(*tlvs, 0x0006)) return BeginService(world, connection, *cookie);
    if (FindTlv(*tlvs, 0x0001)) return RoastedSignOn(world, connection, *tlvs);
    return true; // only the hello: the hashed sign-on follows
}

bool HandleSignOn(World& world, ClientConnection& connection, const Snac& snac) {
    auto tlvs = ReadTlvs(snac.body);
    auto name = tlvs ? FindTlv(*tlvs, 0x0001) : nullptr;
    if (!name) return false;
    if (snac.subtype == 0x0006) {
        char key[11];
        std::snprintf(key, sizeof key, "%010.0f", world.platform.RandomSource().Fraction() * 9999999999.0);
        connection.authKey = key;
        connection.SendSnac(0x0017, 0x0007, snac.id, MakeTLV("", 2, connection.authKey));
        return true;
    }
    if (snac.subtype != 0x0002) return true;
    auto hash = FindTlv(*tlvs, 0x0025);
    auto good = hash && IsGoodHash(world, connection.authKey, *hash);
    auto code = !IsName(*name) ? codeBadName : !good ? codeBadPassword : 0;
    connection.SendSnac(0x0017, 0x0003, snac.id, Answer(world, *name, code));
    connection.authKey.clear(); // a key is good for one try
    return true;
}

} // namespace halyard
