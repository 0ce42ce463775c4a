#include "soak/watch/Invariants.h"

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "practice/Journal.h"
#include "practice/PracticeNetwork.h"
#include "rooms/BanRequest.h"
#include "soak/TapDatabase.h"
#include "surface/frmMain.h"

#include <algorithm>
#include <malloc.h>

namespace halyard {

namespace {

// The most that a queue may hold. Ops of a run command at a measured pace; what no pace could fill says that
// an entry isn't taken out.
constexpr std::size_t longestTalk = 2000;
constexpr std::size_t longestBans = 2000;
constexpr std::size_t longestTimeBans = 2000;
/// A request whose reply was lost keeps its entry until its id comes round: ids are 16 bits wide.
constexpr std::size_t longestRequests = 65535;
constexpr int roomTimers = 8;
/// After so long a request without an answer has been swallowed by a rate limit, ms.
constexpr std::int64_t longestAnswer = 180000;

/// Kinds of bans that look at Immunes. "autogban" isn't one of them: who speaks without being listed in the
/// room is banned whoever it is, and only whom the service names for a dice roll is looked up, on purpose.
bool AsksImmunity(const std::string& kind) {
    return kind == "ab" || kind == "aw" || kind == "icq" || kind == "char";
}

int KeptIndex(std::string_view name) {
    int index = Counters::FirstKept;
    while (index + 1 < Counters::StatCount && Counters::StatName(index) != name) ++index;
    return index;
}

std::set<std::string> Normalised(const auto& names) {
    std::set<std::string> all;
    for (const auto& name : names) all.insert(NormalizeName(name));
    return all;
}

} // namespace

Invariants::Invariants(SimWorld& world, TapMachine& machine, PracticeNetwork& network, frmMain& window,
                       std::string botName)
    : world(world), machine(machine), network(network), window(window), botName(std::move(botName)),
      banned(KeptIndex("totalban")), unbanned(KeptIndex("totalunbans")) {
    machine.listener = this;
    actsBefore = ListActs();
}

void Invariants::Violate(const std::string& text) {
    if (violation.empty()) violation = text; // an empty one is none
}

void Invariants::Sent(std::uint64_t stream, std::string_view frame) {
    if (frame.size() < 16 || frame[1] != 2 || frame[7] != 0x0E) return;
    auto subtype = frame[9];
    if (subtype == 0x05) {
        const auto& header =
            window.Control().Settings.FontHeader; // what is said stands behind it, at the end
        auto at = frame.find(header, 16);
        if (at == std::string_view::npos) return;
        auto line = frame.substr(at + header.size());
        if (!pacing.Heard(stream, line, world.Now()))
            Violate("a line came before its pause was over: " + std::string(line));
    }
    if (subtype != 0x24 && subtype != 0x25) return;
    auto id = StrToWord(frame.substr(14)).value_or(0);
    SentBan(stream, id, std::string(frame.substr(20)), subtype == 0x24);
}

void Invariants::SentBan(std::uint64_t stream, int id, const std::string& user, bool ban) {
    auto& control = window.Control();
    auto record = Split(control.RequestIDs.Item(std::to_string(id)), ":", 5);
    if (record.size() != 5) return Violate("a request went out that nobody remembers: " + user);
    auto room = control.Room(ToInt16(record[1]).value_or(0));
    if (!room) return;
    if (record[3] != user) // an older request of this id never got its reply; the new one isn't remembered
        bans.Excuse(NormalizeName(room->ChatName), NormalizeName(record[3]));
    bans.Sent(id, {NormalizeName(room->ChatName), NormalizeName(user), stream, world.Now()});
    doubtful.insert(NormalizeName(room->ChatName));
    if (ledger)
        ledger->acts.Sent({id, NormalizeName(room->ChatName), NormalizeName(user), ban,
                           record[3] == user ? BanKindOf(record[0]) : std::nullopt});
    if (enforced)
        enforced->Asked(NormalizeName(room->ChatName), NormalizeName(user), ban, record[0], world.Now());
    if (!ban) lifts.Asked(NormalizeName(room->ChatName), NormalizeName(user));
    const auto& immunes = window.options.Immunes;
    // A ban that had to wait may have been wanted before its name became immune.
    const bool waited = std::any_of(room->BanQueue.begin(), room->BanQueue.end(), [&](const auto& entry) {
        return entry.find(":" + std::to_string(id) + ":") != std::string::npos;
    });
    if (ban && !waited && AsksImmunity(record[0]) && !immunes.Item(NormalizeName(user)).empty())
        Violate("an immune was banned by auto-moderation (" + record[0] + "): " + user);
}

void Invariants::Received(std::uint64_t stream, std::string_view frame) {
    const bool heard = frame.size() > 16 && frame[1] == 2 && frame[8] == 0 &&
                       ((frame[7] == 0x0E && frame[9] == 0x06) || (frame[7] == 0x04 && frame[9] == 0x07));
    if (ledger && heard) ledger->acts.Heard(machine.CalendarMilliseconds(), frame.substr(16));
    if (frame.size() < 16 || frame[1] != 2 || frame[7] != 0x0E || frame[9] != 0x01) return;
    if (bans.Replied(StrToWord(frame.substr(14)).value_or(0), stream)) ++repliesInEvent;
}

void Invariants::Ended(std::uint64_t stream) {
    pacing.Ended(stream);
    bans.Ended(stream);
}

void Invariants::Happened(const PracticeEvent& event) {
    if (enforced) enforced->Happened(event);
    if (event.what.starts_with("bans ") || event.what.starts_with("unbans "))
        doubtful.insert(NormalizeName(event.room));
}

double Invariants::ListActs() const { return window.counters.Kept(banned) + window.counters.Kept(unbanned); }

void Invariants::Check() {
    CheckTimers();
    CheckQueues();
    if (!enforced) CheckReplies(); // else none tells what is done
    if (guards)
        Violate(guards->Check(world.Now()));
    else
        CheckTimeBans();
    if (ledger) Violate(ledger->Check(world.Now()));
    if (alarms) Violate(alarms->Check(world.Now()));
    if (truth) Violate(truth->Check(world.Now()));
    if (enforced)
        Violate(enforced->Check(world.Now()));
    else if (openServer)
        CheckListsAreEmpty();
    else if (!doubtful.empty())
        CheckLists();
    bans.EventOver();
    if (world.Now() < nextGiveUp) return;
    nextGiveUp = world.Now() + longestAnswer;
    bans.GiveUpBefore(world.Now() - longestAnswer);
}

/// The slots change hands only when a room comes or goes, so a full count is due then, and once in a while.
void Invariants::CheckTimers() {
    const auto& control = window.Control();
    const bool changed = control.Chat.Count() != chatsBefore || control.Timers().Count() != slotsBefore;
    chatsBefore = control.Chat.Count();
    slotsBefore = control.Timers().Count();
    mostRooms = std::max(mostRooms, chatsBefore);
    if (!changed && ++structure % 256 != 0) return;
    std::size_t tagged = 0;
    for (int index = 0; index < slotsBefore; ++index)
        if (!control.Timers().Slot(index)->Tag.empty()) ++tagged;
    if (tagged != chatsBefore * roomTimers + 1)
        Violate(std::to_string(tagged) + " timers for " + std::to_string(chatsBefore) + " rooms");
    for (const auto& room : control.Chat) CheckRoomTimers(*room);
}

void Invariants::CheckRoomTimers(const Chats& room) {
    const auto& timers = window.Control().Timers();
    auto owns = [&](int index, const std::shared_ptr<PoolTimer>& timer, const char* tag) {
        if (!timer || timers.Slot(index) != timer || timer->Tag != tag)
            Violate("the timer \"" + std::string(tag) + "\" of " + room.ChatName + " is not its own");
    };
    owns(room.BanTimerIndex, room.tmrBan, "ban");
    owns(room.FistJoinIndex, room.tmrFirstJoin, "firstjoin");
    owns(room.PingIndex, room.tmrPing, "ping");
    owns(room.UnrateIndex, room.tmrUnrate, "unrate");
    constexpr const char* sends[] = {"msg", "msg1", "msg2", "msg3"};
    for (int slot = 0; slot < 4; ++slot) owns(room.GetTimerIndex(slot), room.GetSendTimer(slot), sends[slot]);
    if (!room.tmrPing || !room.tmrPing->Enabled()) Violate("no ping in " + room.ChatName);
}

void Invariants::CheckQueues() {
    const auto& control = window.Control();
    for (const auto& room : control.Chat) {
        if (room->MsgQueue.Count() > longestTalk) Violate("too many lines wait in " + room->ChatName);
        if (room->BanQueue.Count() > longestBans) Violate("too many bans wait in " + room->ChatName);
    }
    if (control.RequestIDs.Count() > longestRequests) Violate("too many requests wait for a reply");
    if (control.TimeBans.Count() > longestTimeBans) Violate("too many time bans run");
    if (window.reconnection.RejoinQueue.Count() > 1000) Violate("too many rooms to go back to");
    if (window.counters.lstActions.ListCount() > 20) Violate("too many actions are kept");
}

void Invariants::CheckReplies() {
    auto acts = ListActs();
    if (acts - actsBefore > repliesInEvent)
        Violate("more was done to eject lists than replies came for requests");
    actsBefore = acts;
    repliesInEvent = 0;
}

/// A record keeps the slot that its room had. Once the room has been lost, the slot may be nobody's or
/// another room's when the ban ends, and what goes out then lifts nothing; nor is anything sent to a room
/// whose class 1 is rated: both are required.
void Invariants::CheckTimeBans() {
    const auto& control = window.Control();
    if (!lifts.Due(control.TimeBans.Count(), world.Now())) return;
    const auto wrong = lifts.Check(control.TimeBans, world.Now(), [&control](const auto& ban) {
        auto room = control.Room(ban.slot);
        return room && NormalizeName(room->ChatName) == ban.room && !room->IsRated(1);
    });
    if (!wrong.empty()) Violate(wrong);
}

void Invariants::CheckLists() {
    const auto& control = window.Control();
    auto left = std::move(doubtful);
    doubtful.clear();
    for (const auto& name : left) {
        std::shared_ptr<Chats> joined;
        for (const auto& room : control.Chat)
            if (NormalizeName(room->ChatName) == name) joined = room;
        // While a request is under way only one side knows of it.
        if (!joined || bans.Waiting(name) || !joined->tmrPing)
            doubtful.insert(name);
        else
            CheckList(*joined);
    }
}

void Invariants::CheckListsAreEmpty() {
    for (const auto& list : window.Control().EjectLists)
        if (list->GetEjects().Count() > 0)
            Violate("a list holds a name, though nobody was put out: " + list->GetEjects().Item(1));
}

void Invariants::CheckList(const Chats& room) {
    auto name = NormalizeName(room.ChatName);
    std::set<std::string> ours;
    for (const auto& list : window.Control().EjectLists)
        if (list->IsOf(room.ChatName, room.Exchange)) {
            ours = Normalised(list->GetEjects());
            break;
        }
    auto theirs = Normalised(network.Bans(room.ChatName));
    std::vector<std::string> differing;
    std::set_symmetric_difference(ours.begin(), ours.end(), theirs.begin(), theirs.end(),
                                  std::back_inserter(differing));
    // After a list file was loaded a room that the file doesn't name has no list any more, and what is banned
    // there is on none: required. The same holds for a list that was there when the room was joined.
    const bool unlisted = room.EjectListIndex != 0 && !window.Control().EjectLists.Item(room.EjectListIndex);
    for (const auto& user : differing) {
        if (unlisted && !ours.contains(user)) bans.Excuse(name, user);
        if (bans.Excused(name, user)) continue;
        Violate("the eject list of " + name + (ours.contains(user) ? " holds " : " misses ") + user);
    }
}

void Invariants::ListsLoaded(const std::vector<std::string>& rooms) {
    if (enforced) enforced->ListsLoaded();
    for (const auto& room : rooms) {
        for (const auto& user : network.Bans(room)) bans.Excuse(room, NormalizeName(user));
        for (const auto& list : window.Control().EjectLists)
            for (const auto& user : list->GetEjects()) bans.Excuse(room, NormalizeName(user));
    }
}

void Invariants::RequireBack(const std::vector<std::string>& rooms) {
    if (!window.connection.SignedOn) return Violate("the bot has not signed on again");
    std::set<std::string> shown;
    for (int line = 0; line < window.chats.lstChats.ListCount(); ++line)
        shown.insert(NormalizeName(window.chats.lstChats.List(line)));
    for (const auto& room : rooms) {
        if (!network.IsInRoom(room, botName)) Violate("the bot is not back in " + room);
        if (!shown.contains(room)) Violate("the operator does not see that the bot is in " + room);
    }
    if (shown.size() > rooms.size()) Violate("the operator sees rooms that the bot is not in");
    if (alarms) Violate(alarms->CheckWell());
}

void Invariants::RequireNoGrowth(std::size_t rooms) {
    // The main connection, the navigation, one a room; elements below the highest stay for reuse.
    if (machine.Sockets().size() > 2 * (rooms + 2) + 8) Violate("sockets are left behind");
    // A slot below the highest is kept for reuse, so the pool is as large as it once had to be: required. A
    // service that answers late may have let the bot into a room several times over.
    if (window.Control().Timers().Count() > static_cast<int>(roomTimers * mostRooms + 1))
        Violate("timers are left behind");
    // Requests without a reply are kept until their id comes round, and so are the excused names of a run.
    const std::size_t kept = window.Control().RequestIDs.Count() * 512;
    const std::size_t memory = ::mallinfo2().uordblks - (records ? records->Bytes() : 0);
    constexpr int warm = 24;
    constexpr std::size_t slack = 4 << 20;
    if (++quietMoments == warm) memoryBefore = memory;
    if (quietMoments > warm && memory > memoryBefore + slack + kept)
        Violate("memory has grown from " + std::to_string(memoryBefore) + " to " + std::to_string(memory));
}

} // namespace halyard
