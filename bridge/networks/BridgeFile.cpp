#include "bridge/networks/BridgeFile.h"

#include "base/Text.h"
#include "platform/Files.h"

#include <algorithm>

namespace halyard {

BridgeFile::BridgeFile(Files& files) : files(files) {}

void BridgeFile::Load() {}

std::string BridgeFile::ChosenFor(const std::string& settingsPath, const std::string& account) const {
    if (settingsPath.empty()) return own.last.empty() ? LaidDownNetwork : own.last;
    const auto path = files.Behind(settingsPath);
    for (const auto& choice : own.chosen)
        if (choice.file == path && choice.account == NormalizeName(account)) return choice.network;
    return LaidDownNetwork;
}

bool BridgeFile::Choose(const std::string& network, const std::string& settingsPath,
                        const std::string& account) {
    own.last = network;
    if (settingsPath.empty()) return true;
    const NetworkChoice choice{files.Behind(settingsPath), NormalizeName(account), network};
    std::erase_if(own.chosen, [&](const auto& other) {
        return other.file == choice.file && other.account == choice.account;
    });
    own.chosen.push_back(choice);
    return true;
}

ManagementTerms BridgeFile::Management(std::string_view network) const {
    for (const auto& [name, terms] : own.management)
        if (SameName(name, network)) return terms;
    return {};
}

bool BridgeFile::SetManagement(std::string_view network, const ManagementTerms& terms) {
    std::erase_if(own.management, [&](const auto& other) { return SameName(other.network, network); });
    own.management.push_back({std::string(network), terms});
    return true;
}

bool BridgeFile::MayRoast(std::string_view network, std::string_view host) const {
    return std::ranges::any_of(own.roasting, [&](const auto& permit) {
        return SameName(permit.network, network) && Lower(permit.host) == Lower(host);
    });
}

bool BridgeFile::AllowRoasting(std::string_view network, std::string_view host) {
    if (!MayRoast(network, host)) own.roasting.push_back({std::string(network), std::string(host)});
    return true;
}

} // namespace halyard
