// The account and its connections, and what passes on each of them.

#include "bridge/watch/Truth.h"

#include "base/Text.h"
#include "platform/Platform.h"

#include <utility>

namespace halyard {

namespace {

constexpr int SnacChannel = 2;
constexpr const char* BringUpDone = "Login Completed!";
constexpr const char* Online = "Online";
constexpr std::string_view NavigationTag = "[Chat_Navigation]";
constexpr std::string_view LineKey("\0\x0E\0\x06", 4);
constexpr std::string_view Migration("\0\x01\0\x12", 4);
constexpr std::string_view RoomConnecting = "[Chat]connecting";

bool Begins(std::string_view text, std::string_view with) { return text.substr(0, with.size()) == with; }

bool IsIdle(Stage stage) { return stage != Stage::On && stage != Stage::Underway; }

} // namespace

std::int64_t Truth::Now() const { return platform.Milliseconds(); }

const RoomTruth* Truth::Room(std::int16_t slot) const {
    const auto found = rooms.find(slot);
    return found == rooms.end() ? nullptr : &found->second;
}

RoomTruth* Truth::Find(std::int16_t slot) {
    const auto found = rooms.find(slot);
    return found == rooms.end() ? nullptr : &found->second;
}

void Truth::Changed() {
    ++version;
    if (onChanged) onChanged();
}

/// What is heard belongs to a connection: a stage that begins one anew has heard nothing.
void Truth::Stand(StageTruth& standing, Stage stage, const std::string& words, std::int64_t mayTake) {
    if (standing.stage != stage) {
        standing.since = Now();
        standing.nextAttempt = -1;
        if (stage != Stage::On) standing.lastHeard = standing.lastAnswered = -1;
    }
    standing.stage = stage;
    standing.words = words;
    standing.stuckAt = mayTake < 0 ? -1 : Now() + mayTake;
}

/// The account stands where its session does, unless an attempt to come back is to follow.
void Truth::Settle() {
    const bool back = IsIdle(session) && planned >= 0;
    const auto stage = back ? Stage::ComingBack : session;
    const auto begun = account.stage == Stage::Underway && account.stuckAt >= 0 ? account.stuckAt : -1;
    Stand(account, stage, sessionWords, stage == Stage::Underway ? SignOnTime : -1);
    if (stage == Stage::Underway && begun >= 0) account.stuckAt = begun; // not anew with each of its steps
    if (back) {
        account.nextAttempt = planned;
        account.stuckAt = planned + SignOnTime;
    }
    Changed();
}

void Truth::SignOnBegun(const std::string& who) {
    name = who;
    account.stage = Stage::Off; // so that the time of this sign-on begins now
    session = Stage::Underway;
    sessionWords = "Signing on";
    elsewhere = false;
    machineWords.clear();
    main = StageTruth();
    wires.clear();
    Wire();
    Stand(main, Stage::Underway, "Connecting", ConnectTime);
    Settle();
}

/// While the account is on line these are the steps to another server of the service's.
void Truth::SignOnStage(const std::string& text) {
    if (session == Stage::On && text == BringUpDone)
        Stand(main, Stage::On, Online);
    else
        Stand(main, Stage::Underway, text, ConnectTime);
    if (session != Stage::On) {
        session = Stage::Underway;
        sessionWords = text;
    }
    Settle();
}

void Truth::SignedOn(const std::string& who) {
    name = who;
    session = Stage::On;
    sessionWords = Online;
    Stand(main, Stage::On, Online);
    Settle();
}

void Truth::SignOnRefused(int code, const std::string& text) {
    session = code < 0 ? Stage::Lost : Stage::Refused;
    sessionWords = text;
    Settle();
}

void Truth::SignedOffElsewhere(int, const std::string& page) {
    elsewhere = true;
    session = Stage::Lost;
    sessionWords = "The name signed on elsewhere." + (page.empty() ? "" : " " + page);
    Settle();
}

void Truth::SignedOff() {
    if (!elsewhere) {
        session = Stage::Off;
        sessionWords = "Signed off";
        absent.clear();
    }
    Settle();
}

void Truth::ConnectionsReset() {
    if (!IsIdle(session)) session = Stage::Off, sessionWords = "Signed off";
    if (!IsIdle(main.stage)) Stand(main, Stage::Off, "Closed");
    if (navigation.stage != Stage::Off) Stand(navigation, Stage::Off, "Closed");
    navigationSocket = -1;
    tags.clear();
    wires.clear();
    LoseRequest("The session ended.");
    for (const auto& [slot, room] : std::exchange(rooms, {}))
        Stand(Miss(room.name, room.exchange).standing, Stage::Lost, "The session ended.");
    Settle();
}

void Truth::ComebackPlanned(int milliseconds) {
    planned = milliseconds < 0 ? -1 : Now() + milliseconds;
    Settle();
}

void Truth::SocketFailed(int socket, int, const std::string& words) {
    if (socket == 0) machineWords = words;
}

/// The desk's text for the main connection may name another one; the machine's words are of this one.
void Truth::ConnectionEnded(int socket, const std::string& text) {
    if (socket == 0) {
        const auto failure = std::exchange(machineWords, {});
        const auto words = failure.empty() ? text : "The main connection was lost: " + failure;
        Stand(main, Stage::Lost, words);
        session = Stage::Lost;
        sessionWords = words;
        return Settle();
    }
    if (socket == navigationSocket) Stand(navigation, Stage::Lost, text), navigationSocket = -1, Wire();
    const auto tag = tags.find(socket);
    if (tag != tags.end() && tag->second == RoomConnecting && !Find(static_cast<std::int16_t>(socket)))
        LoseRequest(text), tags.erase(tag);
    Silence(socket);
    Changed();
}

/// A room's connection that goes before the room is opened takes the request for it along.
void Truth::SocketTagged(int socket, const std::string& tag) {
    const auto before = std::exchange(tags[socket], tag);
    if (tag.empty()) tags.erase(socket);
    if (socket == 0) return;
    if (tag.empty()) Silence(socket);
    const bool isNavigation = Begins(tag, NavigationTag);
    if (isNavigation && tag == "[Chat_Navigation]connected") {
        navigationSocket = socket;
        Stand(navigation, Stage::On, "Connected");
    } else if (isNavigation && navigation.stage != Stage::On) {
        navigationSocket = socket;
        Stand(navigation, Stage::Underway, "Connecting", ConnectTime);
    } else if (!isNavigation && socket == navigationSocket) {
        navigationSocket = -1;
        Stand(navigation, Stage::Lost, "Closed by the service");
    }
    if (tag.empty() && before == RoomConnecting && !Find(static_cast<std::int16_t>(socket)))
        LoseRequest("The service closed the connection to the room.");
    Wire();
    Changed();
}

/// What was asked on a connection that is gone gets no answer.
void Truth::Silence(int socket) {
    const auto at = static_cast<std::size_t>(socket);
    if (at < wires.size()) wires[at].replies = {};
}

/// Frames are many: each finds at once whom it is about.
void Truth::Wire() {
    for (auto& wire : wires) wire.standing = nullptr, wire.room = nullptr;
    const auto lead = [this](int socket, StageTruth& standing, RoomTruth* room) {
        if (socket < 0) return;
        const auto at = static_cast<std::size_t>(socket);
        if (wires.size() <= at) wires.resize(at + 1);
        wires[at].standing = &standing;
        wires[at].room = room;
    };
    lead(0, main, nullptr);
    lead(navigationSocket, navigation, nullptr);
    for (auto& [slot, room] : rooms) lead(slot, room.standing, &room);
}

/// The sender is in the first TLV, behind 10 bytes of SNAC, 8 of cookie and 2 of channel, where every service
/// puts it. Most names differ in the first letter.
inline bool Truth::IsOwnLine(std::string_view snac) const {
    constexpr std::size_t nameAt = 25;
    if (snac.size() <= nameAt || name.empty()) return false;
    constexpr int caseBit = 0x20;
    if (((snac[nameAt] ^ name[0]) & ~caseBit) != 0 && snac[nameAt] != ' ' && name[0] != ' ') return false;
    return SameName(snac.substr(nameAt, static_cast<unsigned char>(snac[nameAt - 1])), name);
}

/// What comes most is a line of somebody's in a room where nothing is owed.
void Truth::Frame(int socket, bool sent, int channel, std::string_view body) {
    const auto at = static_cast<std::size_t>(socket);
    if (at >= wires.size() || !wires[at].standing) return;
    ++version;
    auto& wire = wires[at];
    const auto now = platform.Milliseconds();
    if (sent || !wire.room || channel != SnacChannel || !wire.replies.NothingOwed() || !Begins(body, LineKey))
        return HearFrame(wire, sent, channel == SnacChannel ? body : std::string_view(), now);
    wire.standing->lastHeard = now;
    if (!IsOwnLine(body)) wire.room->heard.Add(now), ++heardCount;
}

/// `snac` is empty for other channels.
void Truth::HearFrame(Wired& wire, bool sent, std::string_view snac, std::int64_t now) {
    auto& [standing, room, replies] = wire;
    if (sent) {
        replies.Sent(snac, now);
    } else {
        replies.Lives();
        standing->lastHeard = now;
        if (room && Begins(snac, LineKey) && !IsOwnLine(snac)) room->heard.Add(now), ++heardCount;
        if (standing == &main && Begins(snac, Migration))
            Stand(main, Stage::Underway, "Moving to another server", ConnectTime);
        if (const auto asked = replies.Heard(snac); asked >= 0) standing->lastAnswered = asked;
    }
    if (standing->stage == Stage::On) {
        const auto since = replies.SilentSince();
        standing->stuckAt = since < 0 ? -1 : since + ConnectTime;
    }
    if (standing == &main) account.lastHeard = main.lastHeard, account.lastAnswered = main.lastAnswered;
}

} // namespace halyard
