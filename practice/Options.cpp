#include "practice/Options.h"

#include "base/Text.h"
#include "oscar/networks/Network.h"

namespace halyard {

namespace {

std::string EveryWay() {
    std::string names = "open-server";
    for (std::size_t index = 0; index < WayCount; ++index)
        names += std::string(", ") + TextOf(static_cast<Departure>(index)).name;
    return names;
}

/// A built-in network by its name with a hyphen in the blank's place; null when there is none.
const Network* BuiltIn(std::string_view name) {
    static const auto networks = BuiltInNetworks();
    return FindNetwork(networks, Replace(name, "-", " "));
}

} // namespace

std::optional<Ways> WaysNamed(std::string_view names, std::string& problem) {
    Ways ways;
    for (const auto& name : Split(names, ",")) {
        if (name == "open-server") {
            ways |= BuiltIn(name)->ways;
        } else if (const auto departure = WayNamed(name)) {
            ways |= WaysOf(*departure);
        } else {
            problem = "there is no way \"" + name + "\", only " + EveryWay();
            return std::nullopt;
        }
    }
    return ways;
}

std::string SaltNamed(std::string_view name) {
    if (name == "laid-down") return BuiltIn(name)->secrets.salt;
    return name == "classic" ? BuiltIn("classic-salt")->secrets.salt : "";
}

} // namespace halyard
