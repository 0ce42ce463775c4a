#include "bridge/networks/enforcement/EnforcementNames.h"

#include "base/Latin1.h"
#include "base/Text.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

namespace halyard {

namespace {

using Json = nlohmann::json;

constexpr std::size_t LongestText = 1000;
constexpr std::size_t HashDigits = 64;

/// A text of the file, when it is one that would be written the same.
std::optional<std::string> KeptText(const Json& entry, const char* key) {
    const auto found = entry.find(key);
    const auto* text = found == entry.end() ? nullptr : found->get_ptr<const std::string*>();
    if (!text || text->empty() || text->size() > LongestText) return std::nullopt;
    auto inside = FromUtf8(*text);
    if (ToUtf8(inside) != *text) return std::nullopt;
    return inside;
}

std::optional<std::int64_t> KeptMoment(const Json& entry, const char* key) {
    const auto found = entry.find(key);
    if (found == entry.end() || !found->is_number_integer()) return std::nullopt;
    if (found->is_number_unsigned() && found->get<std::uint64_t>() > INT64_MAX) return std::nullopt;
    const auto moment = found->get<std::int64_t>();
    return moment >= 0 ? std::optional(moment) : std::nullopt;
}

std::optional<EnforcementNames::Suspension> SuspensionOf(const Json& entry) {
    if (!entry.is_object()) return std::nullopt;
    auto name = KeptText(entry, "name");
    auto at = KeptText(entry, "at");
    const auto since = KeptMoment(entry, "since");
    if (!name || *name != NormalizeName(*name) || !at || !since) return std::nullopt;
    return EnforcementNames::Suspension{*name, *at, *since};
}

std::optional<EnforcementNames::Seen> SeenOf(const Json& entry) {
    if (!entry.is_object()) return std::nullopt;
    auto name = KeptText(entry, "name");
    auto at = KeptText(entry, "at");
    auto hash = KeptText(entry, "hash");
    const auto when = KeptMoment(entry, "when");
    if (!name || *name != NormalizeName(*name) || !at || !hash || !when) return std::nullopt;
    if (hash->size() != HashDigits || hash->find_first_not_of("0123456789abcdef") != hash->npos)
        return std::nullopt;
    return EnforcementNames::Seen{*name, *at, *hash, *when};
}

/// False when the list is no list or had an entry that makes no sense. A missing one is empty.
template <typename Entry>
bool ReadList(const Json& file, const char* key, std::vector<Entry>& list,
              std::optional<Entry> (*entryOf)(const Json&)) {
    const auto found = file.find(key);
    if (found == file.end()) return true;
    if (!found->is_array()) return false;
    bool whole = true;
    for (const auto& each : *found) {
        if (auto entry = entryOf(each))
            list.push_back(std::move(*entry));
        else
            whole = false;
    }
    return whole;
}

} // namespace

bool ReadEnforcementNames(std::string_view bytes, EnforcementNames& names) {
    names = {};
    const auto file = Json::parse(bytes, nullptr, false);
    if (!file.is_object()) return false;
    const bool suspensions = ReadList(file, "suspensions", names.suspensions, SuspensionOf);
    const bool seen = ReadList(file, "addresses", names.seen, SeenOf);
    return suspensions && seen;
}

std::string WriteEnforcementNames(const EnforcementNames& names) {
    auto suspensions = Json::array();
    for (const auto& each : names.suspensions)
        suspensions.push_back({{"name", ToUtf8(each.name)}, {"at", ToUtf8(each.at)}, {"since", each.since}});
    auto seen = Json::array();
    for (const auto& each : names.seen)
        seen.push_back(
            {{"name", ToUtf8(each.name)}, {"at", ToUtf8(each.at)}, {"hash", each.hash}, {"when", each.when}});
    const Json file = {{"suspensions", suspensions}, {"addresses", seen}};
    return file.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace halyard
