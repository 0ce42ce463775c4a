// Losing a room and going back to it.

#include "base/Latin1.h"
#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "state/Counters.h"
#include "state/Options.h"
#include "surface/comeback/Reconnection.h"
#include "surface/look/Banners.h"
#include "surface/panels/ChatsPanel.h"
#include "surface/panels/ConnectionPanel.h"
#include "surface/windows/Consoles.h"

#include <optional>

namespace halyard {

namespace {

// Milliseconds.
constexpr int RatedRejoin = 60000;

// Codes of the service.
constexpr int RoomFull = 24;
constexpr int AlreadyInside = 46;
constexpr int Rated = 48;
constexpr int BadName = 50;
constexpr int Ejected = 74;

struct WaitingRoom {
    std::string name;
    std::int16_t exchange;
    std::int16_t instance;
};

/// An entry is read from its end, since a room's name may hold ":".
std::optional<WaitingRoom> ReadEntry(const std::string& entry) {
    const auto second = entry.rfind(':');
    if (second == std::string::npos || second == 0) return std::nullopt;
    const auto first = entry.rfind(':', second - 1);
    if (first == std::string::npos) return std::nullopt;
    const auto exchange = ToInt16(entry.substr(first + 1, second - first - 1));
    const auto instance = ToInt16(entry.substr(second + 1));
    if (!exchange || !instance) return std::nullopt;
    return WaitingRoom{entry.substr(0, first), *exchange, *instance};
}

/// "chat 'name', Exchange '4', Instance '0": the missing quote at the end is settled.
std::string Described(const std::string& name, std::int16_t exchange, std::int16_t instance) {
    return "chat '" + name + "', Exchange '" + std::to_string(exchange) + "', Instance '" +
           std::to_string(instance);
}

/// True when the room was entered a second time before this connection to it was found dead. A connection on
/// which the room's information never came has entered nothing, and may stay like that for ever.
bool EnteredTwice(const TillerSock& control, const std::string& name, std::int16_t exchange,
                  std::int16_t instance, std::int16_t intChatIndex) {
    for (const auto& room : control.Chat)
        if (room->ChatIndex != intChatIndex && !room->Cookie.empty() && room->Exchange == exchange &&
            room->Instance == instance && SameName(room->ChatName, name))
            return true;
    return false;
}

} // namespace

void Reconnection::JoinedChat(const std::string& strChatName, std::int16_t intExchange,
                              std::int16_t intInstance, std::int16_t intChatIndex) {
    context.counters.UpdateStat("totalchatjoin");
    context.counters.AddAction("Joined " + Described(strChatName, intExchange, intInstance));
    view.chats.lblChatStatus.SetCaption("Joined chat '" + strChatName + "' in Exchange '" +
                                        std::to_string(intExchange) + "' Instance '" +
                                        std::to_string(intInstance) + "'!");
    view.chats.AddRoom(strChatName);
    context.control.SendChat(intChatIndex, FromUtf8("« ") + context.banners.Title() +
                                               " Joined: " + context.banners.Advert() + FromUtf8(" »"));
    view.consoles.RoomJoined(strChatName, intChatIndex);
    TakeOffQueue(strChatName);
}

void Reconnection::TakeOffQueue(const std::string& strChatName) {
    for (std::ptrdiff_t position = 1; position <= static_cast<std::ptrdiff_t>(RejoinQueue.Count());) {
        const auto entry = ReadEntry(RejoinQueue.Item(position));
        if (!entry || !SameName(entry->name, strChatName)) {
            ++position;
            continue;
        }
        RejoinQueue.Remove(position);
        TellQueue();
        context.counters.AddAction("Successfully rejoined chat!");
        Notice("Successfully rejoined chat '" + strChatName + "'!");
    }
}

void Reconnection::LeftChat(const std::string& strChatName, std::int16_t intExchange,
                            std::int16_t intInstance, std::int16_t intChatIndex,
                            const std::string& strReason) {
    const auto& boxes = context.options.Controls;
    view.chats.lblChatStatus.SetCaption("Left chat '" + boxes.txtChat.Text() + "' in Exchange '" +
                                        boxes.txtEx.Text() + "' Instance '" + boxes.txtInstance.Text() +
                                        "'!");
    context.counters.AddAction("Left " + Described(strChatName, intExchange, intInstance));
    view.chats.RemoveRoom(strChatName, intChatIndex);
    view.consoles.RoomLeft(strChatName, intChatIndex);
    if (EnteredTwice(context.control, strChatName, intExchange, intInstance, intChatIndex)) return;
    if (!context.options.RejoinKicked && !context.options.RejoinError) return;
    if (strReason == "manual" || OthersAskAgain()) return;
    const auto place = ":" + std::to_string(intExchange) + ":" + std::to_string(intInstance);
    const auto entry = NormalizeName(strChatName) + place;
    if (IsQueued(entry)) return;
    RejoinQueue.Add(entry);
    TellQueue();
    Rejoining = true;
    OpenAlert();
    const auto text = "Connection to chat '" + strChatName + "' Exchange '" + std::to_string(intExchange) +
                      "' has been lost. Attemping re-connection..."; // the misspelling is settled
    Notice(text);
    context.counters.AddAction(text);
    if (tmrChatRejoin->Enabled()) return;
    tmrChatRejoin->SetEnabled(true);
    context.control.JoinChat(strChatName, intExchange, intInstance);
}

void Reconnection::RejoinTick() {
    if (Reconnecting && tmrReconnect->Enabled())
        return; // a request now would disturb the sign-on; the queue waits for the log-in
    if (!Rejoining || !view.connection.SignedOn) {
        RejoinQueue.Clear();
        TellQueue();
    }
    if (RejoinQueue.Count() == 0) {
        Rejoining = false;
        tmrChatRejoin->SetEnabled(false);
        return;
    }
    const auto entry = ReadEntry(RejoinQueue.Item(1));
    const auto text = "Attempting to rejoin chat '" + (entry ? entry->name : std::string()) + "'";
    if (context.options.ReconnectAlerts) Notice(text);
    context.counters.AddAction(text);
    tmrChatRejoin->SetInterval(RejoinInterval);
    context.counters.UpdateStat("totalautorejoinattempt");
    if (entry) context.control.JoinChat(entry->name, entry->exchange, entry->instance);
}

void Reconnection::Error(const std::string& strDescription, std::int16_t intErrorCode,
                         const std::string& strFamilyDenied) {
    if (strFamilyDenied == "0005" || strFamilyDenied == "000D")
        view.chats.lblChatStatus.SetCaption(strDescription);
    if (strFamilyDenied == "000D") JoinFailed(intErrorCode);
    if (strFamilyDenied == "000E") context.counters.AddAction("Chat service error: " + strDescription);
}

void Reconnection::JoinFailed(std::int16_t intErrorCode) {
    switch (intErrorCode) {
    case RoomFull:
        context.counters.AddAction("Join chat failed: Room Full");
        return TryAnother(context.options.RejoinError);
    case AlreadyInside: return context.counters.AddAction("Join chat failed: Already in chat");
    case Rated:
        context.counters.AddAction("Join chat failed: Rated");
        tmrChatRejoin->SetInterval(RatedRejoin);
        return TryAnother(context.options.RejoinError);
    case BadName: return context.counters.AddAction("Join chat failed: Objectional Chat Name");
    case Ejected:
        context.counters.AddAction("Join chat failed: Ejected");
        return TryAnother(context.options.RejoinKicked);
    default: return;
    }
}

/// The room that was tried goes to the end, so that it doesn't block the others.
void Reconnection::TryAnother(bool allowed) {
    if (!allowed || OthersAskAgain()) return;
    if (RejoinQueue.Count() > 1) {
        const auto tried = RejoinQueue.Item(1);
        RejoinQueue.Remove(1);
        RejoinQueue.Add(tried);
        TellQueue();
    }
    if (tmrChatRejoin->Enabled()) return;
    Rejoining = true;
    tmrChatRejoin->SetEnabled(true);
}

} // namespace halyard
