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

/// What stands behind `head`; nothing for a key that doesn't begin so.
std::optional<std::string> Behind(const std::string& key, std::string_view head) {
    if (!key.starts_with(head)) return std::nullopt;
    return key.substr(head.size());
}

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
    if (const auto op = Behind(key, "perms:")) return SetPerms(*op, value);
    if (const auto number = Behind(key, "ccom:")) return SetCcom(ToInt16(*number).value_or(-1), value);
    if (const auto number = Behind(key, "chatsend:"))
        return SetChatSend(ToInt16(*number).value_or(-1), value);
    static const auto byKey = IndexOptions();
    const auto found = byKey.find(key);
    if (found == byKey.end() || std::holds_alternative<ListOption>(*found->second)) return false;
    std::array<std::string, ChatSendCount> unused; // those are set above
    SettingsReading reading{main.options, main.Engine().Lists(), unused};
    ReadOption(reading, *found->second, key + ":" + value, value);
    return true;
}

bool DeskDoors::SetPerms(const std::string& op, const std::string& perms) {
    if (main.options.Ops.Position(op) == 0) return false;
    main.options.SetPerms(op, perms);
    return main.options.Perms.Item(op) == perms;
}

bool DeskDoors::SetCcom(int index, const std::string& word) {
    auto& ccoms = main.options.Ccoms;
    if (index < 0 || index >= CcomCount) return false;
    Collection<std::string> words;
    for (int each = 0; each < CcomCount; ++each) words.Add(each == index ? word : ccoms.GetCcom(each));
    ccoms.SetCcoms(words, ccoms.GetTrigger(), ccoms.GetCcomComments());
    return true;
}

/// `index` from 0.
bool DeskDoors::SetChatSend(int index, const std::string& text) {
    auto& texts = main.Control().ChatSends;
    if (index < 0 || index >= static_cast<int>(texts.Count())) return false;
    Collection<std::string> changed;
    for (int place = 0; const auto& each : texts) changed.Add(place++ == index ? text : each);
    texts = std::move(changed);
    return true;
}

BanOutcome DeskDoors::Ban(std::int16_t room, const std::string& name) {
    return main.Control().BanUser(Replace(name, " ", ""), BanKind::Ban, room);
}

BanOutcome DeskDoors::Unban(std::int16_t room, const std::string& name) {
    return main.Control().UnbanUser(name, BanKind::Unban, room);
}

} // namespace halyard
