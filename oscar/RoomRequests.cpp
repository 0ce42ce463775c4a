// One request for a room at a time (Departure::OneServiceRequest): what comes while another is under way, or
// while the main connection migrates, waits. Every connection has its own cookie, families and room.

#include "base/Text.h"
#include "oscar/TillerSock.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr int AnswerWithin = 15000; // ms; then it is asked for once more
constexpr int MostTries = 2;
constexpr std::size_t MostWaiting = 256; // more rooms than there are sockets for

bool SameRoom(const RoomWish& one, const RoomWish& other) {
    return one.intExchange == other.intExchange && SameName(one.strName, other.strName);
}

} // namespace

bool TillerSock::IsUnderWay(const RoomWish& wish) const {
    return request.underWay && SameRoom({request.strJoinName, request.intJoinExchange, 0}, wish);
}

/// True when the wish has to wait, and now does. One for a room that waits already, or is just being asked
/// for, is that one.
bool TillerSock::WaitsItsTurn(const RoomWish& wish) {
    if (!Departs(Departure::OneServiceRequest) || !signOn.LoggedOn) return false;
    if (IsUnderWay(wish)) return true;
    if (!request.underWay && !signOn.ServerPaused) {
        request.underWay = true;
        request.tries = 0;
        if (!tmrRequest) {
            tmrRequest = platform.NewTimer();
            tmrRequest->SetInterval(AnswerWithin);
            tmrRequest->onTick = [this] { RequestTimedOut(); };
        }
        tmrRequest->SetEnabled(false);
        tmrRequest->SetEnabled(true);
        return false;
    }
    const bool waits = std::any_of(waitingRooms.begin(), waitingRooms.end(),
                                   [&wish](const auto& each) { return SameRoom(each, wish); });
    if (!waits && waitingRooms.size() < MostWaiting) waitingRooms.push_back(wish);
    return true;
}

void TillerSock::EndRequest() {
    if (!request.underWay) return;
    request.underWay = false;
    tmrRequest->SetEnabled(false);
    StartNextRequest();
}

void TillerSock::StartNextRequest() {
    while (!request.underWay && !signOn.ServerPaused && !waitingRooms.empty()) {
        const auto wish = waitingRooms.front();
        waitingRooms.pop_front();
        JoinChat(wish.strName, wish.intExchange,
                 wish.intInstance); // or is refused, and the next one's turn comes
    }
}

void TillerSock::RequestTimedOut() {
    if (signOn.ServerPaused) return; // it was lost with the old connection, and is asked for on the new one
    if (++request.tries < MostTries)
        return AskForRoom({request.strJoinName, request.intJoinExchange, request.intJoinInstance});
    Refuse("Join chat failed, unknown error.", 0, "000D");
    EndRequest();
}

/// Lends the frame's handlers the state of its own connection. A reset on the way takes all such states away.
void TillerSock::ParseWithOwnService(int Index, std::string& strPacket) {
    const auto before = resets;
    service = ownService[Index];
    Dispatch(Index, strPacket);
    if (resets == before) ownService[Index] = service;
}

} // namespace halyard
