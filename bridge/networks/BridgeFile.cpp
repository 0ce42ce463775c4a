#include "bridge/networks/BridgeFile.h"

#include "base/Text.h"
#include "bridge/networks/BridgeHalves.h"
#include "bridge/networks/NetworkTables.h"
#include "platform/Files.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::size_t LargestFile = std::size_t{1} << 20;

void Append(std::vector<std::string>& all, const std::vector<std::string>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

/// What `read` makes of a text of the file; nothing when its form is wrong already.
template <typename Read>
auto ReadPart(std::string_view text, TomlMistakes& mistakes, Read read) {
    const auto toml = ReadToml(text);
    if (const auto* table = std::get_if<TomlValue>(&toml)) return read(*table, mistakes);
    const auto& [place, what] = std::get<TomlMistake>(toml);
    mistakes.Add(place, ShownText(what));
    return decltype(read(TomlValue(), mistakes))();
}

} // namespace

BridgeFile::BridgeFile(Files& files) : files(files) {}

void BridgeFile::Load() {
    networks = BuiltInNetworks();
    problems.clear();
    own = {};
    ownText.clear();
    ownWrong = false;
    folder = files.ConfigFolder();
    path = folder.empty() ? "" : folder + files.Separator() + "bridge.toml";
    const auto bytes = Bytes();
    if (!bytes) {
        problems.push_back(path + " can't be read, or is larger than 1 MiB.");
        return;
    }
    TomlMistakes mistakes;
    const auto read = ReadPart(HalvesOf(*bytes).operators, mistakes, ReadNetworkTables);
    if (!mistakes.Any()) networks.insert(networks.end(), read.begin(), read.end());
    Append(problems, mistakes.Texts());
    TakeOwn(*bytes, problems);
}

std::string BridgeFile::ChosenFor(const std::string& settingsPath, const std::string& account) const {
    if (settingsPath.empty()) return own.last.empty() ? LaidDownNetwork : own.last;
    const auto file = files.Canonical(settingsPath);
    const auto name = NormalizeName(account);
    for (const auto& choice : own.chosen)
        if (choice.file == file && choice.account == name) return choice.network;
    return LaidDownNetwork;
}

bool BridgeFile::Choose(const std::string& network, const std::string& settingsPath,
                        const std::string& account) {
    const auto file = settingsPath.empty() ? "" : files.Canonical(settingsPath);
    return Change([&](OwnPart& part) { return part.Choose({file, NormalizeName(account), network}); });
}

ManagementTerms BridgeFile::Management(std::string_view network) const {
    for (const auto& management : own.management) {
        if (!SameName(management.network, network)) continue;
        auto terms = management.terms;
        if (management.refused) terms.header.clear();
        return terms;
    }
    return {};
}

bool BridgeFile::SetManagement(std::string_view network, const ManagementTerms& terms) {
    return Change([&](OwnPart& part) { return part.SetManagement({std::string(network), terms}); });
}

bool BridgeFile::MayRoast(std::string_view network, std::string_view host) const {
    return std::ranges::any_of(own.roasting, [&](const RoastingPermit& permit) {
        return SameName(permit.network, network) && permit.host == Lower(host);
    });
}

bool BridgeFile::AllowRoasting(std::string_view network, std::string_view host) {
    return Change([&](OwnPart& part) { return part.Permit({std::string(network), std::string(host)}); });
}

bool BridgeFile::SetLedger(const LedgerTerms& terms) {
    return Change([&](OwnPart& part) { return part.SetLedger(terms); });
}

bool BridgeFile::SetAlarms(const AlarmTerms& terms) {
    return Change([&](OwnPart& part) { return part.SetAlarms(terms); });
}

bool BridgeFile::SetGuards(const GuardTerms& terms) {
    return Change([&](OwnPart& part) { return part.guards = terms, true; });
}

bool BridgeFile::SetWatch(const WatchTerms& terms) {
    return Change([&](OwnPart& part) { return part.watch = terms, true; });
}

std::optional<std::string> BridgeFile::Bytes() {
    if (path.empty() || !files.Exists(path)) return "";
    return files.Read(path, LargestFile);
}

void BridgeFile::TakeOwn(std::string_view bytes, std::vector<std::string>& wrong) {
    const auto halves = HalvesOf(bytes);
    if (halves.own == ownText) return;
    ownText = halves.own;
    TomlMistakes mistakes;
    // Its lines count from the head of the file.
    own = ReadPart(std::string(halves.ownLine, '\n') + ownText, mistakes, ReadOwnPart);
    ownWrong = mistakes.Any();
    Append(wrong, mistakes.Texts());
    if (files.IsPrivate(path)) return;
    for (auto& management : own.management) {
        management.refused = !management.terms.header.empty();
        if (management.refused)
            wrong.push_back("The header for " + management.network + " is refused: others can read " + path +
                            ". Take that right away (chmod 600) and read the file again.");
    }
}

bool BridgeFile::Change(const std::function<bool(OwnPart&)>& change) {
    const auto bytes = Bytes();
    std::vector<std::string> told; // at the next Load
    if (bytes) TakeOwn(*bytes, told);
    if (!change(own)) return false;
    if (!bytes || path.empty() || ownWrong) return false;
    const auto operators = HalvesOf(*bytes).operators;
    const auto empty = JoinedHalves(operators, "");
    if (empty.size() > LargestFile) return false;
    const auto text = OwnPartText(own, LargestFile - empty.size());
    if (!text || !Write(JoinedHalves(operators, *text))) return false;
    ownText = *text;
    return true;
}

bool BridgeFile::Write(std::string_view bytes) {
    if (!files.MakeFolder(folder)) return false;
    files.MakePrivate(folder);
    // Before the new bytes: what takes the place of a file gets its mode.
    if (files.Exists(path) && !files.MakePrivate(path)) return false;
    return ReplaceFile(files, path, bytes);
}

} // namespace halyard
