#include "bridge/guards/RoomsAgain.h"

#include "base/Collection.h"
#include "base/Text.h"
#include "bridge/guards/GuardScope.h"
#include "bridge/networks/Refusals.h"
#include "bridge/watch/alarms/AlarmOrders.h"
#include "platform/Platform.h"
#include "state/Options.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

// Codes of the service, of TLV 0008 behind a refusal.
constexpr int AlreadyInside = 0x2E;
constexpr int RatedJoins = 0x30;
constexpr int ImproperName = 0x32;
constexpr int WrongName = 0x33;
constexpr int PutOut = 0x4A;

/// True where no later time helps. A code without words as a room's reason is the word of a bare refusal.
bool IsHopeless(int code) {
    constexpr int NoSuchService = 0x06, GivenUp = 0x07, Unsupported = 0x08, NotThere = 0x14;
    return code == ImproperName || code == WrongName || code == NoSuchService || code == GivenUp ||
           code == Unsupported || code == NotThere;
}

} // namespace

RoomsAgain::RoomsAgain(const GuardHands& hands) : hands(hands), timer(hands.platform.NewTimer()) {
    timer->onTick = [this] { Tick(); };
}

bool RoomsAgain::On() const { return hands.control.Departs(Departure::RoomsAreAskedForAgain); }

RoomsAgain::Key RoomsAgain::KeyOf(const std::string& name, std::int16_t exchange) {
    return {NormalizeName(name), exchange};
}

std::vector<RoomsAgain::Wanted> RoomsAgain::List() const {
    std::vector<Wanted> list;
    for (const auto& [key, room] : rooms)
        list.push_back({room.name, key.second, room.inside, room.nextAt, room.tries});
    return list;
}

/// While it is off, the list holds the rooms that stand, and the desk has its own way back.
void RoomsAgain::SwitchesChanged() {
    if (!On()) ForgetWanted();
    Arm();
}

void RoomsAgain::ForgetWanted() {
    std::erase_if(rooms, [](const auto& each) { return !each.second.inside; });
    askedAt = -1;
    timer->SetEnabled(false);
    if (On() || toldAny) TellAwaited();
}

void RoomsAgain::SignedOn(const std::string&) {
    onLine = true;
    elsewhere = signingOn = false;
    askedAt = -1;
    if (!On()) return;
    if (!hands.options.RejoinError) return ForgetWanted(); // nor would the desk come back to them
    for (auto& [key, room] : rooms)
        if (!room.inside) AskAtOnce(room);
    TellAwaited();
}

/// By the operator, who leaves all rooms by it; or a sign-on that was begun is given up for another reason.
void RoomsAgain::SignedOff() {
    onLine = false;
    const bool byOther = std::exchange(signingOn, false) && !IsOrderedByHand(hands.control.Tell());
    if (!std::exchange(elsewhere, false) && !byOther) rooms.clear();
    ForgetWhatStands();
}

void RoomsAgain::SignedOffElsewhere(int, const std::string&) { elsewhere = true; }

void RoomsAgain::ConnectionsReset() {
    onLine = false;
    ForgetWhatStands();
}

void RoomsAgain::ForgetWhatStands() {
    for (auto& [key, room] : rooms) room.inside = false, room.nextAt = -1;
    slots.clear();
    closing.clear();
    askedAt = -1;
    timer->SetEnabled(false);
    if (On())
        TellAwaited();
    else
        rooms.clear();
}

void RoomsAgain::ConnectionEnded(int socket, const std::string&) {
    if (socket != 0) return;
    onLine = false;
    askedAt = -1;
    for (auto& [key, room] : rooms) room.nextAt = -1;
}

/// The operator has ended the way back.
void RoomsAgain::ComebackPlanned(int milliseconds) {
    if (milliseconds < 0 && On() && IsOrderedByHand(hands.control.Tell())) ForgetWanted();
}

/// The desk's own queue is empty while this is on, and to tell so would hide the rooms that wait here.
void RoomsAgain::RoomsAwaited(const Collection<std::string>&) {
    if (!telling && On()) TellAwaited();
}

void RoomsAgain::TellAwaited() {
    auto* news = hands.control.Tell().news;
    if (!news) return;
    Collection<std::string> entries;
    for (const auto& [key, room] : rooms)
        if (!room.inside) entries.Add(room.name + ":" + std::to_string(key.second) + ":0");
    telling = true;
    toldAny = entries.Count() > 0;
    news->RoomsAwaited(entries);
    telling = false;
}

void RoomsAgain::RoomWanted(const std::string& name, std::int16_t exchange) {
    if (!On() || name.empty() || rooms.size() >= MostRooms) return;
    if (rooms.try_emplace(KeyOf(name, exchange), Room{.name = name}).second) TellAwaited();
}

/// The control asks for one at a time: what it asked for before this one has come to an end.
void RoomsAgain::RoomAsked(const std::string& name, std::int16_t exchange) {
    if (const auto before = rooms.find(asked); askedAt >= 0 && asked != KeyOf(name, exchange))
        if (before != rooms.end() && !before->second.inside && before->second.nextAt < 0)
            AskLater(before->second, 0);
    asked = KeyOf(name, exchange);
    askedAt = hands.platform.Milliseconds();
    if (const auto found = rooms.find(asked); found != rooms.end()) found->second.nextAt = -1;
    if (On()) Arm();
}

void RoomsAgain::RoomCloseAsked(std::int16_t room) { closing[room] = hands.platform.Milliseconds(); }

void RoomsAgain::RoomOpened(std::int16_t slot, const std::string& name, std::int16_t exchange) {
    slots[slot] = KeyOf(name, exchange);
}

void RoomsAgain::RoomEntered(std::int16_t slot, const std::string& name, std::int16_t exchange) {
    const auto key = KeyOf(name, exchange);
    // The service may give another name to what was asked for.
    if (askedAt >= 0 && !rooms.contains(key))
        if (const auto other = rooms.find(asked); other != rooms.end() && !other->second.inside)
            rooms.erase(other);
    if (askedAt >= 0 && (asked == key || !rooms.contains(key))) askedAt = -1;
    auto& room = rooms[key];
    room.name = name;
    room.inside = true;
    room.nextAt = -1;
    room.tries = room.wrongNames = 0;
    room.enteredAt = hands.platform.Milliseconds();
    slots[slot] = key;
    closing.erase(slot);
    if (rung.erase(key) > 0)
        hands.raise({Departure::RoomsAreAskedForAgain, name, "The bot is in " + name + ".", true});
    if (!On()) return;
    TellAwaited();
    Arm();
}

void RoomsAgain::RoomLeft(std::int16_t slot, const std::string&, const std::string& reason) {
    const auto place = slots.find(slot);
    if (place == slots.end()) return;
    const auto found = rooms.find(place->second);
    slots.erase(place);
    const auto closed = closing.find(slot);
    const auto now = hands.platform.Milliseconds();
    const bool byPerson = reason == "manual" || (closed != closing.end() && now - closed->second < Settled);
    if (closed != closing.end()) closing.erase(closed);
    if (found == rooms.end()) return;
    auto& room = found->second;
    const auto& options = hands.options;
    if (byPerson || !On() || (!options.RejoinError && !options.RejoinKicked)) {
        rooms.erase(found);
    } else {
        const bool stood = room.inside && now - room.enteredAt >= Settled;
        room.inside = false;
        if (stood) room.pause = 0;
        if (room.pause == 0)
            AskAtOnce(room);
        else
            AskLater(room, 0);
    }
    if (On()) TellAwaited();
}

/// The control asks for one room at a time, so that a refusal is that of the last one asked for.
void RoomsAgain::RoomRefused(int code, const std::string& family, const std::string&) {
    if (!On() || askedAt < 0 || family == "000E") return;
    Failed(code);
}

void RoomsAgain::Failed(int code) {
    askedAt = -1;
    const auto found = rooms.find(asked);
    if (found == rooms.end() || found->second.inside) return Arm();
    auto& room = found->second;
    const auto& options = hands.options;
    room.wrongNames = code == WrongName ? room.wrongNames + 1 : 0;
    if (IsHopeless(code) && (code != WrongName || room.wrongNames >= WrongNames)) {
        const bool ofRoom = FindRefusal(RefusalKind::Room, code) != nullptr;
        const auto words = "The room " + room.name + " is given up. " +
                           RefusalText(ofRoom ? RefusalKind::Room : RefusalKind::Error, code);
        const auto name = room.name;
        rung.insert(asked);
        rooms.erase(found);
        hands.raise({Departure::RoomsAreAskedForAgain, name, words});
    } else if (code == PutOut ? !options.RejoinKicked : !options.RejoinError) {
        rooms.erase(found); // nor would the desk ask again
    } else {
        ++room.tries;
        AskLater(room, code == RatedJoins ? RatedPause : 0);
    }
    TellAwaited();
    Arm();
}

void RoomsAgain::AskAtOnce(Room& room) {
    room.pause = 1; // the next one is the first in earnest
    AskIn(room, AtOnce);
}

void RoomsAgain::AskLater(Room& room, int least) {
    room.pause = std::clamp(room.pause * 2, FirstPause, LongestPause);
    AskIn(room, std::max(room.pause, least));
}

void RoomsAgain::AskIn(Room& room, int milliseconds) {
    room.nextAt = hands.platform.Milliseconds() + milliseconds;
    Arm();
}

void RoomsAgain::Arm() {
    timer->SetEnabled(false);
    if (!On() || !onLine) return;
    std::int64_t due = askedAt >= 0 ? askedAt + AnswerWithin : -1;
    for (const auto& [key, room] : rooms)
        if (askedAt < 0 && room.nextAt >= 0 && (due < 0 || room.nextAt < due)) due = room.nextAt;
    if (due < 0) return;
    const auto wait = due - hands.platform.Milliseconds();
    timer->SetInterval(static_cast<int>(std::clamp<std::int64_t>(wait, 1, LongestPause)));
    timer->SetEnabled(true);
}

/// Asks for the one that is due longest.
void RoomsAgain::Tick() {
    timer->SetEnabled(false);
    const auto now = hands.platform.Milliseconds();
    if (askedAt >= 0) return now - askedAt >= AnswerWithin ? Failed(0) : Arm();
    auto next = rooms.end();
    for (auto each = rooms.begin(); each != rooms.end(); ++each)
        if (each->second.nextAt >= 0 && each->second.nextAt <= now &&
            (next == rooms.end() || each->second.nextAt < next->second.nextAt))
            next = each;
    if (next == rooms.end()) return Arm();
    const auto exchange = next->first.second;
    const auto name = next->second.name;
    next->second.nextAt = -1;
    asked = next->first;
    askedAt = now;
    if (!hands.control.Guarded(Departure::RoomsAreAskedForAgain, 0, name)) return;
    hands.tell("The room " + name + " is asked for again.");
    const GuardScope scope(hands.control, Departure::RoomsAreAskedForAgain);
    hands.control.JoinChat(name, exchange, 0);
    Arm();
}

} // namespace halyard
