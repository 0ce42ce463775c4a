#include "bridge/networks/NetworkTables.h"

#include "base/Text.h"
#include "bridge/networks/OwnPart.h"

#include <algorithm>
#include <unordered_set>

namespace halyard {

namespace {

constexpr std::size_t MostNetworks = 200;
constexpr std::size_t MostHosts = 100;
constexpr std::size_t FingerprintDigits = 64;

/// A host is what a resolver takes: no blanks in it.
bool IsHost(std::string_view text) { return text.find(' ') == std::string_view::npos; }

/// The fingerprint in small letters, without the colons that some programs put between its bytes; nothing
/// when it is none.
std::optional<std::string> Fingerprint(std::string_view text) {
    auto digits = Lower(Replace(text, ":", ""));
    if (digits.size() != FingerprintDigits) return std::nullopt;
    if (digits.find_first_not_of("0123456789abcdef") != std::string::npos) return std::nullopt;
    return digits;
}

void ReadHosts(TomlFields& fields, Network& network) {
    const auto* hosts = fields.List("hosts", MostHosts);
    if (!hosts) return;
    network.hosts.clear();
    for (const auto& item : *hosts) {
        auto host = fields.TextOf(item, "hosts", {});
        if (host && !IsHost(*host)) fields.Tell(item.place, "hosts", "has a blank in a host");
        if (host) network.hosts.push_back(*host);
    }
}

void ReadRoasting(TomlFields& fields, Network& network) {
    auto& roasting = network.secrets.roasting;
    const auto* numbers = fields.List("roasting", roasting.size());
    if (!numbers) return;
    if (numbers->size() < roasting.size()) fields.Tell("roasting", "must have 16 numbers");
    for (std::size_t at = 0; at < numbers->size(); ++at)
        if (const auto number = fields.NumberOf((*numbers)[at], "roasting", 0, 255))
            roasting[at] = static_cast<std::uint8_t>(*number);
}

void ReadWays(TomlFields& fields, Network& network) {
    const auto* ways = fields.List("ways", WayCount);
    if (!ways) return;
    for (const auto& item : *ways) {
        const auto name = fields.TextOf(item, "ways", {});
        if (!name) continue;
        if (const auto departure = WayNamed(*name))
            network.ways.set(static_cast<std::size_t>(*departure));
        else
            fields.Tell(item.place, "ways", "has no way \"" + ShownText(item.text) + "\"");
    }
}

Network ReadNetwork(const std::string& name, const TomlMember& member, const std::vector<Network>& builtIn,
                    TomlMistakes& mistakes) {
    TomlFields fields(member.value, "networks." + ShownText(member.key), mistakes);
    Network network;
    if (const auto like = fields.Text("like", NetworkNameBounds)) {
        if (const auto* found = FindNetwork(builtIn, *like))
            network = *found;
        else
            fields.Tell("like", "must name a built-in network");
    }
    network.name = name;
    ReadHosts(fields, network);
    if (const auto port = fields.Number("port", 1, 65535)) network.port = static_cast<std::int32_t>(*port);
    if (const auto salt = fields.Text("salt", {.controls = true})) network.secrets.salt = *salt;
    ReadRoasting(fields, network);
    ReadWays(fields, network);
    if (const auto pin = fields.Text("pin")) {
        const auto digits = Fingerprint(*pin);
        if (!digits) fields.Tell("pin", "must be the 64 hex digits of a SHA-256");
        if (!network.ways.test(static_cast<std::size_t>(Departure::Tls)))
            fields.Tell("pin", "has no use without the way \"tls\"");
        network.pin = digits.value_or("");
    }
    fields.TellUnknown();
    return network;
}

} // namespace

std::vector<Network> ReadNetworkTables(const TomlValue& file, TomlMistakes& mistakes) {
    std::vector<Network> networks;
    const auto builtIn = BuiltInNetworks();
    std::unordered_set<std::string> taken;
    TomlFields fields(file, {}, mistakes);
    if (const auto* tables = fields.Table("networks")) {
        if (tables->members.size() > MostNetworks)
            fields.Tell("networks", "may be at most " + std::to_string(MostNetworks));
        for (const auto& member : tables->members) {
            const auto tell = [&](std::string_view what) {
                mistakes.Add(member.place, "networks." + ShownText(member.key) + " " + std::string(what));
            };
            const auto name = WholeFromUtf8(member.key);
            if (!name || !IsNetworkName(*name))
                tell("must have a name of 1 to 100 characters of Windows-1252");
            else if (FindNetwork(builtIn, *name))
                tell("is built in and can't be defined anew");
            else if (!taken.insert(NormalizeName(*name)).second)
                tell("is defined twice: case and blanks don't count");
            if (member.value.kind != TomlValue::Kind::Table)
                tell("must be a table");
            else
                networks.push_back(ReadNetwork(name.value_or(""), member, builtIn, mistakes));
        }
    }
    fields.TellUnknown();
    return networks;
}

} // namespace halyard
