#pragma once

// The way back after a lost connection or a lost room, and what the panels show of it. The main window owns
// the one and passes it the control's events.

#include "base/Collection.h"
#include "oscar/TillerEvents.h"
#include "platform/Timer.h"
#include "surface/SurfaceContext.h"
#include "surface/windows/frmNotice.h"

#include <cstdint>
#include <memory>
#include <string>

namespace halyard {

class ChatsPanel;
class ConnectionPanel;
class Consoles;
class Tray;

/// The parts of the window that follow the connection.
struct ReconnectionView {
    ConnectionPanel& connection;
    ChatsPanel& chats;
    Consoles& consoles;
    Tray& tray;
};

class Reconnection {
  public:
    Reconnection(const SurfaceContext& context, const ReconnectionView& view);

    bool Reconnecting = false;
    bool Rejoining = false;
    /// Rooms to go back to: name, exchange and instance, joined by ":".
    Collection<std::string> RejoinQueue;
    frmNotice Alert;
    std::unique_ptr<Timer> tmrReconnect, tmrChatRejoin;

    void ConnectionLost(std::int16_t Index, const std::string& strDescription);
    void LoggedIn(const std::string& strUser);
    void LoginStatus(const std::string& strCurrentAction);
    void LoginError(const std::string& strDescription);
    void LoggedOff();
    void Error(const std::string& strDescription, std::int16_t intErrorCode,
               const std::string& strFamilyDenied);
    void JoinedChat(const std::string& strChatName, std::int16_t intExchange, std::int16_t intInstance,
                    std::int16_t intChatIndex);
    void LeftChat(const std::string& strChatName, std::int16_t intExchange, std::int16_t intInstance,
                  std::int16_t intChatIndex, const std::string& strReason);
    /// Ends all attempts and closes the alert window.
    void StopReconnections();

  private:
    static constexpr int RejoinInterval = 8000; // ms from one room's try to the next one's

    void ReconnectTick();
    void RejoinTick();
    void RejoinAfterLogin();
    /// True while a guard asks for lost and refused rooms; the way back holds still.
    bool OthersAskAgain() const;
    void QueueRooms(bool onlyMissing);
    /// Names count lower-cased and without blanks: an entry is put in either way.
    bool IsQueued(const std::string& entry) const;
    void TakeOffQueue(const std::string& strChatName);
    void JoinFailed(std::int16_t intErrorCode);
    void TryAnother(bool allowed);
    void TellPlan(int milliseconds) const;
    void TellQueue() const;
    void OpenAlert();
    void Notice(const std::string& text);

    const SurfaceContext& context;
    ReconnectionView view;
};

} // namespace halyard
