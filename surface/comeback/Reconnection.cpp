// Losing the main connection and coming back to it.

#include "surface/comeback/Reconnection.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Counters.h"
#include "state/Options.h"
#include "surface/look/Tray.h"
#include "surface/panels/ChatsPanel.h"
#include "surface/panels/ConnectionPanel.h"

namespace halyard {

namespace {

// Milliseconds.
constexpr int FirstTry = 1000;
constexpr int NextTries = 15000;
constexpr int FirstRejoin = 1000;

} // namespace

Reconnection::Reconnection(const SurfaceContext& context, const ReconnectionView& view)
    : Alert(context), tmrReconnect(context.platform.NewTimer()), tmrChatRejoin(context.platform.NewTimer()),
      context(context), view(view) {
    tmrReconnect->SetInterval(NextTries);
    tmrReconnect->onTick = [this] { ReconnectTick(); };
    tmrChatRejoin->SetInterval(RejoinInterval);
    tmrChatRejoin->onTick = [this] { RejoinTick(); };
    Alert.onStop = [this] { StopReconnections(); };
}

void Reconnection::OpenAlert() {
    if (!Alert.Loaded() && context.options.ReconnectAlerts) Alert.Show();
}

void Reconnection::Notice(const std::string& text) {
    if (Alert.Loaded()) Alert.AddNotice(text);
}

void Reconnection::ConnectionLost(std::int16_t Index, const std::string& strDescription) {
    if (Index == NoSock) context.counters.AddAction(strDescription);
    if (Index != 0) return;
    context.counters.AddAction("Connection to main BOS server lost!");
    if (!context.options.ReconnectOn) return;
    if (Reconnecting && tmrReconnect->Enabled()) return; // an attempt was refused; the next comes in its time
    Reconnecting = true;
    OpenAlert();
    Notice("Connection to the main BOS server has been lost!\r\nAttempting re-connection...");
    context.counters.AddAction("Attempting Auto re-connection");
    tmrReconnect->SetInterval(FirstTry);
    tmrReconnect->SetEnabled(true);
    TellPlan(FirstTry);
    if (!context.options.RejoinError) return;
    QueueRooms(false);
    Rejoining = true;
}

bool Reconnection::IsQueued(const std::string& entry) const {
    for (const auto& queued : RejoinQueue)
        if (SameName(queued, entry)) return true;
    return false;
}

void Reconnection::QueueRooms(bool onlyMissing) {
    if (OthersAskAgain()) return;
    for (const auto& room : context.control.Chat) {
        const auto entry =
            room->ChatName + ":" + std::to_string(room->Exchange) + ":" + std::to_string(room->Instance);
        if (onlyMissing && IsQueued(entry)) continue;
        RejoinQueue.Add(entry);
    }
    TellQueue();
}

bool Reconnection::OthersAskAgain() const {
    return context.control.Departs(Departure::RoomsAreAskedForAgain);
}

void Reconnection::TellPlan(int milliseconds) const {
    if (auto* news = context.control.Tell().news) news->ComebackPlanned(milliseconds);
}

void Reconnection::TellQueue() const {
    if (auto* news = context.control.Tell().news) news->RoomsAwaited(RejoinQueue);
}

void Reconnection::ReconnectTick() {
    const bool goesOn = Reconnecting && context.options.ReconnectOn;
    TellPlan(goesOn ? NextTries : -1);
    if (!goesOn) return tmrReconnect->SetEnabled(false);
    if (!view.connection.MayLogin(ConnectionPanel::By::WayBack)) return tmrReconnect->SetInterval(NextTries);
    if (tmrReconnect->Interval() != FirstTry && Alert.Loaded()) {
        Notice("Failed to re-connect!\r\nAttempting again...");
        context.counters.AddAction("Failed to re-connect! Attempting re-connection...");
    }
    tmrReconnect->SetInterval(NextTries);
    context.counters.UpdateStat("totalautologinattempt");
    // A room may have been entered since the connection was lost; the reset that comes now drops it silently.
    if (context.options.RejoinError) QueueRooms(true);
    view.connection.Login();
}

void Reconnection::LoggedIn(const std::string& strUser) {
    context.counters.UpdateStat("totallogin");
    context.counters.AddAction("Logged in!");
    if (Reconnecting) RejoinAfterLogin();
    view.connection.SignedOn = true;
    view.connection.lblConnectionInfo.SetCaption("Online!");
    view.connection.SetButtons(true);
    SendProfile(context);
    view.tray.ShowUser(strUser);
}

void Reconnection::RejoinAfterLogin() {
    Reconnecting = false;
    TellPlan(-1);
    Notice("Re-connedction successful!"); // the misspelling is settled
    if (RejoinQueue.Count() == 0) {
        tmrReconnect->SetEnabled(false);
        Alert.Form_Unload();
    } else if (context.options.RejoinError) {
        Rejoining = true;
        tmrChatRejoin->SetInterval(FirstRejoin);
        tmrChatRejoin->SetEnabled(true);
    } else {
        RejoinQueue.Clear();
        TellQueue();
    }
}

void Reconnection::LoginStatus(const std::string& strCurrentAction) {
    view.connection.lblConnectionInfo.SetCaption(strCurrentAction);
}

void Reconnection::LoginError(const std::string& strDescription) {
    context.counters.AddAction("Login Error: " + strDescription);
    context.control.StopLoginTimer();
    // The operator can try again at once, which takes that nobody is signed on.
    view.connection.SignedOn = false;
    view.connection.SetButtons(false);
}

void Reconnection::LoggedOff() {
    view.connection.lblConnectionInfo.SetCaption("Offline");
    context.counters.AddAction("Logged off!");
    view.tray.ShowUser("None");
    view.connection.SignedOn = false;
    view.connection.SetButtons(false);
    view.chats.DropLostRooms();
    if (Reconnecting && context.control.Guarded(Departure::StopsAreStops)) StopReconnections();
}

void Reconnection::StopReconnections() {
    Rejoining = false;
    Reconnecting = false;
    RejoinQueue.Clear();
    tmrReconnect->SetEnabled(false);
    tmrChatRejoin->SetEnabled(false);
    TellPlan(-1);
    TellQueue();
    Alert.Form_Unload();
}

} // namespace halyard
