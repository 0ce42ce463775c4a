#include "bridge/networks/enforcement/EnforcementRecord.h"

#include "base/Text.h"
#include "platform/Hmac.h"
#include "platform/Platform.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr std::size_t LargestRecord = 1 << 24;
constexpr std::size_t KeyLength = 32;
constexpr int MostAside = 1000;

std::string HexDigits(const std::string& bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text.append({digits[byte >> 4], digits[byte & 15]});
    }
    return text;
}

} // namespace

EnforcementRecord::EnforcementRecord(Platform& platform, std::string folder,
                                     std::function<void(const std::string&)> tell)
    : platform(platform), files(platform.FileSystem()), folder(std::move(folder)), tell(std::move(tell)) {}

std::string EnforcementRecord::PathOf(const char* file) const { return folder + files.Separator() + file; }

void EnforcementRecord::Load() {
    if (std::exchange(loaded, true) || folder.empty()) return;
    const auto path = PathOf("enforcement.json");
    if (!files.Exists(path)) return;
    const auto bytes = files.Read(path, LargestRecord);
    const bool whole = bytes && ReadEnforcementNames(*bytes, names);
    Shorten();
    if (whole) return;
    PutAside(path, "is damaged");
    if (!names.suspensions.empty() || !names.seen.empty()) Write();
}

/// Nothing is ever written over what can't be read: somebody may still mend it.
void EnforcementRecord::PutAside(const std::string& path, const std::string& why) {
    for (int number = 1; number <= MostAside; ++number) {
        const auto aside = path + ".damaged-" + std::to_string(number);
        if (files.Exists(aside)) continue;
        if (!files.Rename(path, aside)) break;
        return tell(path + " " + why + " and was put aside as " + aside);
    }
    blocked = true;
    tell(path + " " + why + " and can't be put aside: nothing is kept");
}

bool EnforcementRecord::IsSuspended(const std::string& name, const std::string& at) const {
    return std::any_of(names.suspensions.begin(), names.suspensions.end(),
                       [&](const auto& each) { return each.at == at && SameName(each.name, name); });
}

bool EnforcementRecord::AddSuspension(const std::string& name, const std::string& at) {
    if (IsSuspended(name, at)) return true;
    names.suspensions.push_back({NormalizeName(name), at, platform.CalendarSeconds()});
    Shorten();
    if (Write()) return true;
    if (!names.suspensions.empty()) names.suspensions.pop_back();
    return false;
}

void EnforcementRecord::RemoveSuspension(const std::string& name, const std::string& at) {
    const auto gone = std::erase_if(
        names.suspensions, [&](const auto& each) { return each.at == at && SameName(each.name, name); });
    if (gone > 0) Write();
}

std::string EnforcementRecord::HashOf(const std::string& address) {
    if (folder.empty() || blocked) return {};
    if (key.empty()) {
        const auto path = PathOf("enforcement.key");
        auto read = files.Read(path, KeyLength);
        const bool ours = read && read->size() == KeyLength && files.IsPrivate(path);
        if (!ours && files.Exists(path)) PutAside(path, "is no key or can be read by others");
        if (ours) key = std::move(*read);
        if (key.empty() && (blocked || !MakeKey(path))) return {};
    }
    return HexDigits(HmacSha256(key, address));
}

/// Hashes under another key say nothing any more.
bool EnforcementRecord::MakeKey(const std::string& path) {
    auto made = platform.RandomSource().Secret(KeyLength);
    if (!files.MakeFolder(folder) || !files.MakePrivate(folder) || !ReplaceFile(files, path, made))
        return false;
    key = std::move(made);
    unwritten = unwritten || !names.seen.empty();
    names.seen.clear();
    return true;
}

std::vector<std::string> EnforcementRecord::NamesFrom(const std::string& hash, const std::string& at) const {
    const auto oldest = platform.CalendarSeconds() - KeptSeconds;
    std::vector<std::string> found;
    for (const auto& each : names.seen)
        if (each.hash == hash && each.at == at && each.when >= oldest) found.push_back(each.name);
    return found;
}

void EnforcementRecord::AddSeen(const std::string& name, const std::string& at, const std::string& hash) {
    const auto normal = NormalizeName(name);
    std::erase_if(names.seen, [&](const auto& each) {
        return each.hash == hash && each.at == at && each.name == normal;
    });
    names.seen.push_back({normal, at, hash, platform.CalendarSeconds()});
    Shorten();
    unwritten = true;
}

/// Moments that are still to come, as after the clock was set back, count as now.
void EnforcementRecord::Shorten() {
    const auto now = platform.CalendarSeconds();
    for (auto& each : names.seen) each.when = std::min(each.when, now);
    std::erase_if(names.seen, [&](const auto& each) { return each.when < now - KeptSeconds; });
    auto& suspensions = names.suspensions;
    if (suspensions.size() > Most) {
        const auto lost = suspensions.size() - Most;
        tell("too many suspended accounts are kept: " + suspensions.front().name +
             " can't be lifted by unban any more");
        suspensions.erase(suspensions.begin(), suspensions.begin() + static_cast<std::ptrdiff_t>(lost));
    }
    const auto room = Most - suspensions.size();
    if (names.seen.size() > room)
        names.seen.erase(names.seen.begin(), names.seen.end() - static_cast<std::ptrdiff_t>(room));
}

bool EnforcementRecord::Flush() { return !unwritten || Write(); }

bool EnforcementRecord::Write() {
    const auto path = PathOf("enforcement.json");
    const bool written = !folder.empty() && !blocked && files.MakeFolder(folder) &&
                         files.MakePrivate(folder) && (!files.Exists(path) || files.MakePrivate(path)) &&
                         ReplaceFile(files, path, WriteEnforcementNames(names));
    unwritten = !written;
    if (!written && !std::exchange(failed, true)) tell(path + " can't be written");
    if (written) failed = false;
    return written;
}

} // namespace halyard
