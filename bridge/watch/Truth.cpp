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
    replies.clear();
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
    replies.clear();
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
    if (socket == navigationSocket) Stand(navigation, Stage::Lost, text), navigationSocket = -1;
    const auto tag = tags.find(socket);
    if (tag != tags.end() && tag->second == RoomConnecting && !Find(static_cast<std::int16_t>(socket)))
        LoseRequest(text), tags.erase(tag);
    replies.erase(socket);
    Changed();
}

/// A room's connection that goes before the room is opened takes the request for it along.
void Truth::SocketTagged(int socket, const std::string& tag) {
    const auto before = std::exchange(tags[socket], tag);
    if (tag.empty()) tags.erase(socket);
    if (socket == 0) return;
    if (tag.empty()) replies.erase(socket);
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
    Changed();
}

StageTruth* Truth::Of(int socket) {
    if (socket == 0) return &main;
    if (socket == navigationSocket) return &navigation;
    auto* room = Find(static_cast<std::int16_t>(socket));
    return room ? &room->standing : nullptr;
}

void Truth::Frame(int socket, bool sent, int channel, std::string_view body) {
    ++version;
    auto& own = replies[socket];
    const auto now = Now();
    auto* standing = Of(socket);
    const bool isSnac = channel == SnacChannel;
    if (sent) {
        if (isSnac) own.Sent(body, now);
    } else {
        own.Lives();
        if (standing) standing->lastHeard = now;
        const auto asked = isSnac ? own.Heard(body) : -1;
        if (standing && asked >= 0) standing->lastAnswered = asked;
        if (isSnac && standing && socket > 0) HearLine(static_cast<std::int16_t>(socket), body, now);
        if (isSnac && socket == 0 && Begins(body, Migration))
            Stand(main, Stage::Underway, "Moving to another server", ConnectTime);
    }
    if (!standing) return;
    if (standing->stage == Stage::On) {
        const auto since = own.SilentSince();
        standing->stuckAt = since < 0 ? -1 : since + ConnectTime;
    }
    if (socket == 0) account.lastHeard = main.lastHeard, account.lastAnswered = main.lastAnswered;
}

} // namespace halyard
