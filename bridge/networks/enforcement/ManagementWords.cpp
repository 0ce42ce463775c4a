#include "bridge/networks/enforcement/ManagementWords.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "platform/Http.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace halyard {

namespace {

using Json = nlohmann::json;

constexpr std::size_t MostSessions = 100;
constexpr std::size_t LongestAddress = 64;

std::string EncodedName(std::string_view name) { return PercentEncoded(ToUtf8(NormalizeName(name))); }

/// The text of a member; empty when there is none.
std::string TextOf(const Json& object, const char* key) {
    const auto found = object.find(key);
    const auto* text = found == object.end() ? nullptr : found->get_ptr<const std::string*>();
    return text ? *text : std::string();
}

/// Of "address", "address:port" and "[address]:port", the address.
std::string BareAddress(std::string text) {
    if (text.starts_with('[')) text = text.substr(1, text.find(']') - 1);
    if (std::count(text.begin(), text.end(), ':') == 1) text.resize(text.find(':'));
    text.resize(std::min(text.find('%'), text.size()));
    constexpr std::string_view mapped = "::ffff:";
    if (text.starts_with(mapped) && text.find('.') != text.npos) text.erase(0, mapped.size());
    return Lower(text);
}

/// True when the session names nobody, or this one.
bool IsOf(const Json& session, std::string_view name) {
    for (const char* key : {"screen_name", "id"})
        if (const auto told = FromUtf8(TextOf(session, key)); !told.empty()) return SameName(told, name);
    return true;
}

} // namespace

std::optional<std::string> ManagementBase(std::string_view address) {
    auto url = address.find("://") == address.npos ? "http://" + std::string(address) : std::string(address);
    while (url.ends_with('/')) url.pop_back();
    if (!PlaceOf(url) || url.find('?') != url.npos) return std::nullopt;
    return url;
}

std::optional<std::pair<std::string, std::string>> ManagementHeader(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == text.npos) return std::nullopt;
    std::pair header{Trim(text.substr(0, colon)), Trim(text.substr(colon + 1))};
    if (!ProblemOf({.url = "http://localhost/", .headers = {header}, .body = {}}).empty())
        return std::nullopt;
    return header;
}

bool CanBeManaged(std::string_view name) {
    const auto normal = NormalizeName(name);
    const bool breaks = std::any_of(normal.begin(), normal.end(), [](char c) {
        return static_cast<unsigned char>(c) < 32 ||
               std::string_view("/\\:\x7F").find(c) != std::string_view::npos;
    });
    return !breaks && normal.find_first_not_of('.') != normal.npos;
}

std::string SessionPath(std::string_view name) { return "/session/" + EncodedName(name); }

std::string AccountPath(std::string_view name) { return "/user/" + EncodedName(name) + "/account"; }

std::string SuspensionBody(bool suspended) {
    return suspended ? R"({"suspended_status":"suspended"})" : R"({"suspended_status":null})";
}

std::string WordsOf(const HttpAnswer& answer) {
    return answer.status == 0 ? answer.problem : "the management answered " + std::to_string(answer.status);
}

std::vector<std::string> SessionAddresses(std::string_view body, std::string_view name) {
    const auto answer = Json::parse(body, nullptr, false);
    const auto* sessions = &answer;
    if (answer.is_object() && answer.contains("sessions")) sessions = &answer["sessions"];
    std::vector<std::string> addresses;
    const auto take = [&](const Json& session) {
        if (!session.is_object() || !IsOf(session, name)) return;
        auto address = BareAddress(TextOf(session, "remote_addr"));
        if (address.empty() || address.size() > LongestAddress) return;
        if (std::find(addresses.begin(), addresses.end(), address) == addresses.end())
            addresses.push_back(std::move(address));
    };
    if (sessions->is_object()) take(*sessions);
    if (sessions->is_array())
        for (std::size_t at = 0; at < std::min(sessions->size(), MostSessions); ++at) take((*sessions)[at]);
    return addresses;
}

} // namespace halyard
