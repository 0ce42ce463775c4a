// The control's making, and what happens when a connection ends: by error, by a channel 4 frame, by a reset.

#include "oscar/TillerSock.h"

#include <array>

namespace halyard {

namespace {

constexpr int SignOnTimeout = 15000; // ms from Login to "Login Completed!"

struct LostText {
    int ServiceSlots::*slot;
    const char* text;
};

// The order of tests is settled: an unused slot is 0, so an error on socket 0 reports the admin text as long
// as no admin service is up. The index that goes with it tells the truth.
constexpr std::array<LostText, 5> LostTexts{{
    {&ServiceSlots::AdminIndex, "Connection to the admin server has been lost."},
    {&ServiceSlots::BOSIndex, "Connection to the main BOS server has been lost."},
    {&ServiceSlots::EmailIndex, "Connection to the email server has been lost."},
    {&ServiceSlots::ChatNavIndex, "Connection to the chat navigation server has been lost."},
    {&ServiceSlots::IconIndex, "Connection to the buddy icon server has been lost."},
}};

} // namespace

TillerSock::TillerSock(Platform& platform, OscarSettings& settings, TillerEvents& events,
                       MainWindowLink& window)
    : Settings(settings), platform(platform), events(events), window(window), Sock(platform),
      timers(platform, Chat), tmrTimeout(platform.NewTimer()) {
    Sock.onData = [this](int Index, std::size_t available) { DataArrival(Index, available); };
    Sock.onError = [this](int Index, int number, const std::string& description) {
        if (telling.news) telling.news->SocketFailed(Index, number, description);
        SocketError(Index);
    };
    Sock.onTag = [this](int Index, const std::string& tag) {
        if (telling.news) telling.news->SocketTagged(Index, tag);
    };
    timers.onPing = [this](int intChatIndex) { SendPacket(intChatIndex, 5, ""); };
    timers.onTimeBans = [this] { CheckTimeBans(); };
    tmrTimeout->SetInterval(SignOnTimeout);
    tmrTimeout->onTick = [this] { TellLoginError("Attempt to connect has timed out.", -1); };
}

std::int16_t TillerSock::GetChatIndex(std::int16_t Index) const {
    std::int16_t position = 0;
    for (const auto& room : Chat) {
        ++position;
        if (room->ChatIndex == Index) return position;
    }
    return 0;
}

void TillerSock::SocketError(int Index) {
    auto index = static_cast<std::int16_t>(Index);
    ownService.erase(Index);
    for (const auto& lost : LostTexts) {
        if (indices.*lost.slot != Index) continue;
        indices.*lost.slot = 0;
        TellLost(Index, lost.text);
        Sock.CloseSock(Index);
        return;
    }
    auto text = "Connection to sock index " + std::to_string(Index) + " has been lost.";
    if (auto position = GetChatIndex(index)) {
        auto room = Chat.Item(position);
        text = "Connection to chat Name: " + room->ChatName +
               ", Exchange: " + std::to_string(room->Exchange) +
               ", Instance: " + std::to_string(room->Instance) + " has been lost.";
        LoseRoom(position);
    }
    TellLost(Index, text);
    Sock.CloseSock(Index);
}

void TillerSock::TakeForLost(int Index, const std::string& strWords) {
    if (!Sock.Has(Index)) return;
    if (telling.news) telling.news->SocketFailed(Index, 0, strWords);
    SocketError(Index);
}

void TillerSock::HandleSignOff(int Index) {
    if (auto position = GetChatIndex(static_cast<std::int16_t>(Index))) {
        LoseRoom(position);
        return;
    }
    for (const auto& lost : LostTexts)
        if (indices.*lost.slot == Index) indices.*lost.slot = 0;
    Sock.CloseSock(Index);
}

void TillerSock::LoseRoom(std::int16_t intChatColIndex) {
    auto room = Chat.Item(intChatColIndex);
    Sock.SetBuffer(room->ChatIndex, {});
    timers.UnloadChatTimers(intChatColIndex);
    Sock.CloseSock(room->ChatIndex);
    Chat.Remove(intChatColIndex);
    if (telling.news) telling.news->RoomLeft(room->ChatIndex, room->ChatName, "error");
    events.LeftChat(room->ChatName, room->Exchange, room->Instance, room->ChatIndex, "error");
}

void TillerSock::ResetAll() {
    CloseAllSocks();
    ClearUser();
    ClearService();
    ClearChatRequest();
    strEncoding.clear();
    strLastErrorCode.clear();
    ClearTLVData();
    ++resets;
    ownService.clear();
    rateTables.clear();
    waitingRooms.clear();
    if (tmrRequest) tmrRequest->SetEnabled(false);
    if (telling.news) telling.news->ConnectionsReset();
}

void TillerSock::CloseAllSocks() {
    Sock.CloseAllSocks();
    while (Chat.Count() > 0) {
        timers.UnloadChatTimers(1); // no room is left to free its slots later
        Chat.Remove(1);
    }
    indices = {};
}

void TillerSock::ClearUser() {
    signOn = {};
    presence = {};
}

void TillerSock::ClearService() {
    signOn.strAuthHost.clear();
    service.ServiceVersions.Clear();
    service.strServiceHost.clear();
    service.strServiceCookie.clear();
    service.strServiceFamily.clear();
}

void TillerSock::ClearChatRequest() { request = {}; }

void TillerSock::LogOff() {
    StopLoginTimer();
    ResetAll();
    if (telling.news) telling.news->SignedOff();
    events.LoggedOff();
}

} // namespace halyard
