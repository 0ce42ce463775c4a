#include "bridge/guards/SilenceGuard.h"

#include "bridge/guards/GuardScope.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "platform/Platform.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr const char* OwnInformation = "0001000E0000";
constexpr std::string_view Connected = "connected";

std::string IdBytes(std::uint32_t id) {
    return WordToStr(static_cast<long long>(id >> 16)) + WordToStr(static_cast<long long>(id & 0xFFFF));
}

} // namespace

SilenceGuard::SilenceGuard(const GuardHands& hands) : hands(hands), timer(hands.platform.NewTimer()) {
    timer->onTick = [this] { Tick(); };
}

bool SilenceGuard::On() const { return hands.control.Departs(Departure::SilenceIsAskedAbout); }

/// What was heard while nobody told is not known: the time starts over.
void SilenceGuard::SwitchesChanged() {
    if (On() == timer->Enabled()) return;
    timer->SetEnabled(false);
    if (!On()) return;
    for (auto& [socket, line] : lines) {
        line.heard = hands.platform.Milliseconds();
        line.asked = -1;
    }
    Arm();
}

std::vector<std::string> SilenceGuard::Unanswering() const {
    std::vector<std::string> unanswering;
    for (const auto& [socket, line] : lines)
        if (line.everAsked && !line.answered && line.asked < 0) unanswering.push_back(line.words);
    return unanswering;
}

int SilenceGuard::Answering() const {
    return static_cast<int>(
        std::count_if(lines.begin(), lines.end(), [](const auto& each) { return each.second.answered; }));
}

void SilenceGuard::Stands(int socket, const std::string& words) {
    auto& line = lines[socket];
    line = {.words = words, .generation = hands.control.Sockets().Generation(socket)};
    line.heard = hands.platform.Milliseconds();
    Arm();
}

void SilenceGuard::Reset() {
    lines.clear();
    timer->SetEnabled(false);
}

void SilenceGuard::SignedOn(const std::string&) { Stands(0, "the main connection"); }

void SilenceGuard::SocketTagged(int socket, const std::string& tag) {
    if (socket == 0) return; // stands from the sign-on on
    const auto at = tag.rfind(']');
    if (at == std::string::npos || tag.substr(at + 1) != Connected) {
        lines.erase(socket);
        return;
    }
    Stands(socket, "the connection " + tag.substr(0, at + 1));
}

void SilenceGuard::ConnectionEnded(int socket, const std::string&) { lines.erase(socket); }

void SilenceGuard::RoomEntered(std::int16_t room, const std::string& name, std::int16_t) {
    Stands(room, "the room " + name);
}

void SilenceGuard::RoomLeft(std::int16_t room, const std::string&, const std::string&) { lines.erase(room); }

void SilenceGuard::SomethingHeard(int socket, bool ownInfo) {
    const auto found = lines.find(socket);
    if (found == lines.end()) return;
    auto& line = found->second;
    line.heard = hands.platform.Milliseconds();
    line.asked = -1; // whatever came: somebody is there
    line.answered |= ownInfo;
}

std::int64_t SilenceGuard::DueAt(const Line& line) const {
    if (line.asked >= 0) return line.asked + Answer;
    return line.heard + (line.everAsked ? Silence : FirstQuestion);
}

/// A timer that comes too early looks again: frames move nothing but their line's moment.
void SilenceGuard::Arm() {
    if (!On() || lines.empty()) return;
    auto due = DueAt(lines.begin()->second);
    for (const auto& [socket, line] : lines) due = std::min(due, DueAt(line));
    const auto wait = due - hands.platform.Milliseconds();
    timer->SetInterval(static_cast<int>(std::clamp<std::int64_t>(wait, 1, Silence)));
    timer->SetEnabled(true);
}

void SilenceGuard::Tick() {
    timer->SetEnabled(false);
    const auto now = hands.platform.Milliseconds();
    std::vector<int> lost;
    for (auto& [socket, line] : lines) {
        const auto generation = hands.control.Sockets().Generation(socket);
        if (generation != line.generation) { // a migration's new connection
            line = {.words = line.words, .generation = generation};
            line.heard = now;
        }
        if (DueAt(line) > now) continue;
        if (line.asked < 0) {
            Ask(socket, line, now);
        } else if (line.answered) {
            lost.push_back(socket);
        } else {
            line.asked = -1;
            line.heard = now;
        }
    }
    for (const int socket : lost) GiveUp(socket);
    Arm();
}

void SilenceGuard::Ask(int socket, Line& line, std::int64_t now) {
    line.asked = now;
    line.everAsked = true;
    const GuardScope scope(hands.control, Departure::SilenceIsAskedAbout);
    hands.control.SendPacket(socket, 2, HexToStr(OwnInformation) + IdBytes(nextId++));
}

/// One that goes may take others with it.
void SilenceGuard::GiveUp(int socket) {
    const auto found = lines.find(socket);
    if (found == lines.end()) return;
    const auto words = "Nothing comes on " + found->second.words + ", nor an answer: it counts as lost.";
    lines.erase(found);
    if (!hands.control.Guarded(Departure::SilenceIsAskedAbout)) return;
    hands.tell(words);
    const GuardScope scope(hands.control, Departure::SilenceIsAskedAbout);
    hands.control.TakeForLost(socket, words);
}

} // namespace halyard
