#include "oscar/networks/Network.h"

#include "base/Text.h"

namespace halyard {

namespace {

constexpr const char* ClassicSalt = "AOL Instant Messenger (SM)";

NetworkSecrets ClassicSecrets() {
    auto secrets = DefaultSecrets(); // the roasting table is the same
    secrets.salt = ClassicSalt;
    return secrets;
}

} // namespace

std::vector<Network> BuiltInNetworks() {
    Network laidDown{.name = LaidDownNetwork, .hosts = {}, .secrets = DefaultSecrets(), .ways = {}};
    Network classic{.name = "Classic salt",
                    .hosts = {},
                    .secrets = ClassicSecrets(),
                    .ways = WaysOf(Departure::NamesAreNoCommands)};
    Network open{
        .name = "Open server", .hosts = {"127.0.0.1"}, .secrets = ClassicSecrets(), .ways = Ways().set()};
    return {laidDown, classic, open};
}

const Network* FindNetwork(const std::vector<Network>& networks, std::string_view name) {
    for (const auto& network : networks)
        if (SameName(network.name, name)) return &network;
    return nullptr;
}

} // namespace halyard
