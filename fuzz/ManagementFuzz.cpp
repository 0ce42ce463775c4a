// What a server's management answers and what enforcement.json holds, both of any bytes.

#include "bridge/networks/enforcement/EnforcementNames.h"
#include "bridge/networks/enforcement/ManagementWords.h"
#include "fuzz/FedPlatform.h"
#include "fuzz/Input.h"
#include "platform/Http.h"
#include "platform/HttpReader.h"

#include <algorithm>

namespace {

using namespace halyard;

/// A URL leads to one place, whatever the name and the operator's address.
void CheckPath(const std::string& base, std::string_view name) {
    if (!CanBeManaged(name)) return;
    const auto bare = PlaceOf(base)->target;
    const auto place = PlaceOf(base + AccountPath(name));
    fuzz::Require(place.has_value());
    const auto slashes = [](const std::string& text) { return std::count(text.begin(), text.end(), '/'); };
    fuzz::Require(slashes(place->target) == 3 + (bare == "/" ? 0 : slashes(bare)));
    fuzz::Require(place->target.ends_with("/account") && place->target.find('?') == std::string::npos);
}

void CheckFile(std::string_view bytes) {
    EnforcementNames names, again;
    ReadEnforcementNames(bytes, names);
    fuzz::Require(ReadEnforcementNames(WriteEnforcementNames(names), again));
    fuzz::Require(names == again);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto address = input.Line();
    const auto name = input.Line();
    if (const auto base = ManagementBase(address)) CheckPath(*base, name);
    if (const auto header = ManagementHeader(address))
        fuzz::Require((header->first + header->second).find_first_of("\r\n") == std::string::npos);
    const auto rest = input.Rest();
    for (const auto& found : SessionAddresses(rest, name))
        fuzz::Require(!found.empty() && found.size() <= 64);
    CheckFile(rest);

    HttpReader whole(HttpReader::Kind::Answer), parts(HttpReader::Kind::Answer);
    whole.Add(rest);
    for (std::size_t at = 0; at < rest.size(); at += 5) parts.Add(rest.substr(at, 5));
    fuzz::Require(whole.End() == parts.End());
    if (whole.Now() == HttpReader::State::Whole)
        fuzz::Require(whole.Body() == parts.Body() && whole.Status() >= 200);
    return 0;
}
