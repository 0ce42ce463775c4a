#include "surface/bridge/DeskDoors.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "state/OptionReading.h"
#include "surface/frmMain.h"

#include <algorithm>
#include <array>

namespace halyard {

namespace {

using Worker = void (ListWorkers::*)(const std::string&, std::int16_t);

struct ListDoor {
    ListName list;
    IndexedList Options::*entries;
    Worker add; ///< null for the ops, whose permissions come with them
    Worker remove;
};

constexpr std::array<ListDoor, 7> ListDoors{{
    {ListName::Ops, &Options::Ops, nullptr, &ListWorkers::RemoveOp},
    {ListName::Immunes, &Options::Immunes, &ListWorkers::AddImm, &ListWorkers::RemoveImm},
    {ListName::Autobans, &Options::Autobans, &ListWorkers::AddAB, &ListWorkers::RemoveAB},
    {ListName::Autowords, &Options::Autowords, &ListWorkers::AddAW, &ListWorkers::RemoveAW},
    {ListName::LockOps, &Options::LockOps, &ListWorkers::AddLockOp, &ListWorkers::RemoveLockOp},
    {ListName::LockImms, &Options::LockImms, &ListWorkers::AddLockImm, &ListWorkers::RemoveLockImm},
    {ListName::LockBans, &Options::LockBans, &ListWorkers::AddLockBan, &ListWorkers::RemoveLockBan},
}};

const ListDoor* DoorOf(ListName list) {
    const auto found =
        std::ranges::find_if(ListDoors, [&](const ListDoor& door) { return door.list == list; });
    return found == ListDoors.end() ? nullptr : found;
}

constexpr std::string_view PermsKey = "perms ";

} // namespace

bool DeskDoors::AddEntry(ListName list, const std::string& entry) {
    const auto* door = DoorOf(list);
    if (!door) return false;
    auto& lists = main.Engine().Lists();
    const auto& entries = main.options.*door->entries;
    if (entries.Position(entry) == 0)
        door->add ? (lists.*door->add)(entry, 0) : lists.AddOp(entry, 0, main.options.Perms.Item(entry));
    return entries.Position(entry) != 0;
}

bool DeskDoors::RemoveEntry(ListName list, const std::string& entry) {
    const auto* door = DoorOf(list);
    if (!door) return false;
    const auto& entries = main.options.*door->entries;
    if (entries.Position(entry) != 0) (main.Engine().Lists().*door->remove)(entry, 0);
    return entries.Position(entry) == 0;
}

bool DeskDoors::SetOption(const std::string& key, const std::string& value) {
    auto& options = main.options;
    if (key.starts_with(PermsKey)) {
        const auto op = key.substr(PermsKey.size());
        if (options.Ops.Position(op) == 0) return false;
        options.SetPerms(op, value);
        return options.Perms.Item(op) == value;
    }
    static const auto byKey = IndexOptions();
    const auto found = byKey.find(key);
    if (found == byKey.end() || std::holds_alternative<ListOption>(*found->second)) return false;
    std::array<std::string, ChatSendCount> unused; // chatsends are read as a whole
    SettingsReading reading{options, main.Engine().Lists(), unused};
    ReadOption(reading, *found->second, key + ":" + value, value);
    return true;
}

BanOutcome DeskDoors::Ban(std::int16_t room, const std::string& name) {
    return main.Control().BanUser(Replace(name, " ", ""), BanKind::Ban, room);
}

BanOutcome DeskDoors::Unban(std::int16_t room, const std::string& name) {
    return main.Control().UnbanUser(name, BanKind::Unban, room);
}

bool DeskDoors::IsLocked(const std::string& name) const {
    return !main.options.LockBans.FirstMatch(NormalizeName(name)).empty();
}

RuleKind DeskDoors::WouldHit(const std::string& name, const std::string& line,
                             const std::string& without) const {
    const auto& options = main.options;
    const auto key = NormalizeName(name);
    if (CheckCollection(key, options.Immunes)) return RuleKind::None;
    const auto meets = [&](const auto& entries) {
        return std::ranges::any_of(entries, [&](const auto& entry) { return entry != without; });
    };
    if (options.AutobanLevel == 2) return RuleKind::Autoban;
    if (options.AutobanLevel == 1 && meets(options.Autobans.AllMatches(key))) return RuleKind::Autoban;
    if (options.BanAllICQs && IsNumeric(key)) return RuleKind::ICQ;
    if (options.CharBanOn && key.size() == static_cast<std::size_t>(options.CharBanNum))
        return RuleKind::Chars;
    if (line.empty() || !(options.WordBanOn || options.WordBanAll)) return RuleKind::None;
    if (options.WordBanAll) return RuleKind::Autoword;
    const auto said = options.WordBanHTML ? line : StripHTML(line);
    return meets(options.Autowords.AllWordsIn(said)) ? RuleKind::Autoword : RuleKind::None;
}

} // namespace halyard
