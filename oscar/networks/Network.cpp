#include "oscar/networks/Network.h"

#include "base/Text.h"

namespace halyard {

namespace {

constexpr const char* ClassicSalt = "AOL Instant Messenger (SM)";

/// TLS is no habit of these services, but something that the owner of one adds.
Ways OpenServerWays() {
    return WaysOf(Departure::NavigationAnswers, Departure::BareJoinRefusals, Departure::UnenforcedBans,
                  Departure::MainSignOffs, Departure::WholeMessageBlocks, Departure::RoastedPasswordType,
                  Departure::RateClassesAsTold, Departure::OneServiceRequest, Departure::RefusedSecondJoins,
                  Departure::ReachableRedirects, Departure::NamesAreNoCommands);
}

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
        .name = "Open server", .hosts = {"127.0.0.1"}, .secrets = ClassicSecrets(), .ways = OpenServerWays()};
    return {laidDown, classic, open};
}

const Network* FindNetwork(const std::vector<Network>& networks, std::string_view name) {
    for (const auto& network : networks)
        if (SameName(network.name, name)) return &network;
    return nullptr;
}

} // namespace halyard
