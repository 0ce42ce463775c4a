#pragma once

// The protocol control: every connection to the OSCAR network, what comes over them, and the rooms. One
// source file a topic: SignOn, BringUp, ServiceList, ChatNavigation, RoomRequests, RoomConnect, RoomTraffic,
// SendChat, Messaging, BanWire, Ejects, TimeBans, Connections, NetworkWays. The main window owns the one
// control and listens to its events.

#include "base/Collection.h"
#include "base/News.h"
#include "oscar/Departures.h"
#include "oscar/NetworkSecrets.h"
#include "oscar/OscarSettings.h"
#include "oscar/SignOnState.h"
#include "oscar/SocketTable.h"
#include "oscar/TillerEvents.h"
#include "oscar/networks/Network.h"
#include "oscar/wire/RateTable.h"
#include "platform/Platform.h"
#include "rooms/Chats.h"
#include "rooms/EjectList.h"
#include "rooms/RoomHost.h"
#include "rooms/TimerPool.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

class TillerSock : public RoomHost {
  public:
    /// `events` hears of everything, `window` answers what a new room starts with. All outlive the control.
    TillerSock(Platform& platform, OscarSettings& settings, TillerEvents& events, MainWindowLink& window);

    // Public variables, in their settled order.
    float sngBanPause = 1.0F;           ///< seconds between two bans of a room, which a new room takes over
    bool GettingUserInfo = false;       ///< user information was asked for by a command
    std::string strUserInfo;            ///< whose
    std::int16_t strUserInfoIndex = 1;  ///< position in Chat of the room that asked
    std::int32_t CurrentRequestID = 1;  ///< of the next ban or unban, 1 to 65535
    Collection<std::string> RequestIDs; ///< keyed by the decimal request id
    Collection<std::shared_ptr<EjectList>> EjectLists; ///< who was banned from a room; they outlive it
    Collection<std::string> ChatSends;                 ///< the texts of what the bot says, 1 to 124
    Collection<std::string> TimeBans;                  ///< bans that end, one record each
    bool ChatSendOn = true;                            ///< false: PrepareSends says nothing
    Collection<std::shared_ptr<Chats>> Chat;           ///< in the order of joining
    Collection<std::string> TLVData;                   ///< scratch list of parsed TLVs
    Collection<std::string> PendingRequests;           ///< declared and never used: RequestIDs does its work

    NetworkSecrets Secrets = DefaultSecrets();
    OscarSettings& Settings;
    bool StopAtAuthAnswer = false; ///< a sign-on that is let in ends there, by LogOff, and reaches no BOS

    // The network (NetworkWays.cpp).
    /// Takes over the secrets and ways for the next sign-on; those of "Laid down" are there at the start.
    void UseNetwork(const Network& network);
    bool Departs(Departure departure) const { return departures.On(departure); }
    Departures& Switches() { return departures; }
    /// One listener, who outlives the control; null for none. Who wants frames or lines says so by Tell().
    void SetNews(News* listener) { telling.news = listener; }
    /// Through which the whole desk tells.
    Telling& Tell() override { return telling; }
    /// Asked where a departure that is a guard would have the desk go another way: whether it does. News
    /// hears that it was asked, so that one that is off can be counted. `room` is a socket slot, 0 for none.
    bool Guarded(Departure guard, std::int16_t room = 0, const std::string& who = {}) override;

    // Connection (SignOn.cpp, Connections.cpp).
    void Login(const std::string& strUser, const std::string& strPassword, std::int32_t lngPort,
               bool blnMD5Login, bool blnInvisible, const std::string& strAuthServer = {});
    void LogOff();
    bool LoggedOn() const { return signOn.LoggedOn; }
    /// Who signs on or has signed on; empty before the first time.
    const std::string& SignOnName() const { return signOn.strLoginName; }
    /// Stops the control's own 15-second sign-on timer, which goes on ticking after a time-out until then.
    void StopLoginTimer() { tmrTimeout->SetEnabled(false); }

    // Rooms (ChatNavigation.cpp).
    void JoinChat(const std::string& strChatName, std::int16_t intExchange, std::int16_t intInstance);
    /// By name (and exchange unless that is 0) when one is given, else by socket slot.
    void LeaveChat(std::int16_t lngChatIndex, const std::string& strChatName = {},
                   std::int16_t intExchange = 0);
    /// The position in Chat, from 1, of the room with this socket slot; 0 when there is none.
    std::int16_t GetChatIndex(std::int16_t Index) const;
    /// That room, or null.
    std::shared_ptr<Chats> Room(std::int16_t intChatIndex) const {
        return Chat.Item(GetChatIndex(intChatIndex));
    }

    // Speech (SendChat.cpp).
    void SendChat(std::int16_t intChatIndex, const std::string& strMessage, const std::string& strManual = {},
                  const std::string& strChatName = {}, std::int16_t intExchange = 0);
    void SendAllChats(std::int16_t intChatIndex, const std::string& strMessage);
    /// `intChatIndex` is a position in Chat; 0 is every room, each of which gets the texts as the one before
    /// left them.
    void PrepareSends(std::string strReplacement, const std::string& strChar, std::string strMessage,
                      const std::string& strOther, const std::string& strType, const std::string& strMsgType,
                      std::int16_t intChatIndex);
    void DefaultChatSends();

    // Bans (BanWire.cpp, Ejects.cpp, TimeBans.cpp).
    /// Asks the room at this socket slot to ban `strUser` (000E 0024), or lets the request wait while the
    /// room's ban pause runs. `strOther` is what the kind's chatsend tells besides the name: the autoban or
    /// autoword that matched, the minutes of a time ban. Every request spends a request id.
    BanOutcome BanUser(const std::string& strUser, BanKind kind, std::int16_t intChatIndex,
                       const std::string& strOther = {});
    /// The same for letting in again (000E 0025), which never waits.
    BanOutcome UnbanUser(const std::string& strUser, BanKind kind, std::int16_t intChatIndex,
                         const std::string& strOther = {});
    /// For a network that doesn't enforce bans while somebody else does. With `on`, what becomes of a request
    /// to ban is told by the two doors below: until then its record stays open, and the service's refusals
    /// and silence are passed over; its yes counts as ever. A request to let in again counts as accepted a
    /// moment after it was made. Off at the start.
    void ConfirmElsewhere(bool on) { confirmsElsewhere = on; }
    /// Counts as the service's yes to this request: list, line and time ban of its kind. A kick's second half
    /// takes the name off its list without a frame. An unknown id, and one whose room is gone, does nothing.
    void RequestConfirmed(std::int32_t id);
    /// The request has come to nothing, and its record goes.
    void RequestRefused(std::int32_t id);
    void CloseChat(std::int16_t intChatIndex);
    void TbanUser(const std::string& strUser, const std::string& strChatName, std::int16_t intExchange,
                  std::int16_t intInstance, std::int16_t intTime, std::int16_t intChatIndex);
    void CheckTimeBans();
    void ClearTimeBans();
    /// The names banned from the first list of this room name; an empty collection when there is none.
    Collection<std::string> GetEjectList(const std::string& strChatName, std::int16_t intChatIndex) const;
    void RemoveEjectList(const std::string& strChatName);

    // People (Messaging.cpp).
    /// Lost without a word while the network limits messages (Departure::RateClassesAsTold).
    void SendIM(const std::string& strScreenname, const std::string& strMessage);
    void GetUserInfo(const std::string& strScreenname, std::int32_t TheType = 0);
    void SetProfile(const std::string& strProfile);
    void SetCapabilities(const Collection<std::string>& UUIDs);
    void SetPrivacy(std::int16_t intPrivacyLevel, std::int32_t lngAllowUserClassOnly = 0);

    /// The host to connect to for one that the service named.
    std::string HostOf(const std::string& strHost) const;
    /// What a connection to such a host asks of it: a certificate for the host's own name, or for the sign-on
    /// host where it is an address. Nothing in a session that signed on plain.
    std::optional<TlsTerms> TermsOf(const std::string& strHost) const;

    // Timers and wire.
    void CreateTimer(const std::string& strType) { timers.CreateTimer(strType); }
    const TimerPool& Timers() const { return timers; }
    const SocketTable& Sockets() const { return Sock; }
    /// Takes this connection for lost, as if its socket had failed with these words.
    void TakeForLost(int Index, const std::string& strWords);
    void SendPacket(int Index, int intChannel, const std::string& strPacket);
    void ParsePacket(int Index, std::string& strPacket);
    void UpdateRequestID();
    void ClearTLVData() { TLVData.Clear(); }
    /// The 16-byte capability UUIDs: mode 0 those of the sign-on options, mode 1 those given as 32 hex digits
    /// each.
    std::string CapabilityBlock(int mode, const Collection<std::string>& UUIDs = {}) const;

  private:
    // What a room asks (RoomHost).
    std::int64_t Now() override { return platform.Milliseconds(); }
    void Say(std::int16_t intChatIndex, const std::string& strLine) override {
        SendChat(intChatIndex, strLine);
    }
    void SendBanRequest(std::int16_t intChatIndex, const std::string& strRequestID,
                        const std::string& strUser) override;
    void StoreRequest(const std::string& strRequestID, const std::string& strRecord) override;
    void BanDropped(const std::string& strRecord, DropReason why) override;
    void LiftBan(const std::string& strUser, std::int16_t intChatIndex) override {
        UnbanUser(strUser, BanKind::Unban, intChatIndex);
    }
    const Collection<std::shared_ptr<EjectList>>& AllEjectLists() const override { return EjectLists; }
    std::string ChatSendText(int number) const override { return ChatSends.Item(number); }
    void RoomRated(int intType, const std::string& strChatName) override {
        window.Rated(intType, strChatName);
    }
    void RoomUnrated(int intType, const std::string& strChatName, std::int16_t intChatIndex) override;

    // RoomRequests.cpp: one request for a service at a time, with Departure::OneServiceRequest.
    bool WaitsItsTurn(const RoomWish& wish);
    void AskForRoom(const RoomWish& wish);
    bool IsIn(const RoomWish& wish) const;
    bool IsUnderWay(const RoomWish& wish) const;
    void EndRequest();
    void StartNextRequest();
    void RequestTimedOut();
    void ParseWithOwnService(int Index, std::string& strPacket);

    // Pump.cpp: bytes to frames. Dispatch.cpp: frames to handlers.
    void DataArrival(int Index, std::size_t available);
    void Dispatch(int Index, std::string& strPacket);
    void ParseSignOnSocket(int Index, std::string& strPacket);
    void ParseServiceSocket(int Index, std::string& strPacket);

    // Connections.cpp: what happens when a connection ends.
    void SocketError(int Index);
    void HandleSignOff(int Index);
    void HandleMainSignOff(int Index, const std::string& strBody);
    void Refuse(const char* text, std::int16_t code, const std::string& family);
    void TellLost(int Index, const std::string& text);
    void TellStage(const char* text);
    void TellLoginError(const std::string& text, int code);
    void LoseRoom(std::int16_t intChatColIndex);
    void ResetAll();
    void CloseAllSocks();
    void ClearUser();
    void ClearService();
    void ClearChatRequest();

    // NetworkWays.cpp: where a service is (TLV 0005), and the way there.
    void TakeAddress(const std::string& strAddress);
    void ConnectService(int Index);

    // SignOn.cpp: family 0017 and the roasted dialogue.
    void HandleHello(int Index);
    void SendCookie(int Index);
    void HandleAuthKey(const std::string& strPacket);
    void HandleAuthReply(std::string strTLVs, bool blnMD5);

    // BringUp.cpp, ServiceList.cpp: families 0001 to 0013 on BOS.
    void HandleFamilies(const std::string& strPacket);
    void HandleVersions();
    void HandleRates(const std::string& strPacket);
    void HandleICBMParameters(const std::string& strPacket);
    void FinishBringUp();
    void HandleSSIList(const std::string& strPacket);
    void CreatePresenceItems();
    void HandlePause();
    void HandleMigration(const std::string& strPacket);

    // ChatNavigation.cpp, RoomConnect.cpp: further connections and the way into a room.
    void HandleRedirect(const std::string& strPacket);
    void HandleServiceFamilies(int Index, const std::string& strPacket);
    void HandleServiceVersions(int Index, const std::string& strPacket);
    void HandleServiceRates(int Index, const std::string& strPacket);
    void SendServiceReady(int Index, const std::string& head);
    void HandleNavigation(int Index, const std::string& strPacket);
    void SendRoomCreation();
    void OpenRoom(int Index);
    void AttachEjectList(Chats& room) const;
    void HandleRoomInformation(int Index, const std::string& strPacket);
    void HandleNavigationError(const std::string& strPacket);
    void HandleJoinError(const std::string& strPacket);
    void RefuseBare(const std::string& strWord);
    /// `strBody` is the denied family and the TLVs behind it. False when the first of them is no sub-code.
    bool ReadJoinError(std::string strBody);
    void Leave(std::int16_t intChatColIndex);

    // RoomTraffic.cpp: family 000E.
    void HandleChatMessage(int Index, const std::string& strPacket);
    void HearWholeBlock(int Index, std::string_view sender, std::string_view message);
    void HearLine(int Index, const std::string& name, const std::string& line);
    void HandlePeople(int Index, const std::string& strPacket, bool joined);
    void HandleOwner(int Index, const std::string& strPacket);
    void HandleRateChange(int Index, const std::string& strPacket);
    void HandleMainRateChange(const std::string& strPacket);

    // Messaging.cpp: families 0002 and 0004.
    void HandleInstantMessage(const std::string& strPacket);
    void HandleUserInfo(const std::string& strPacket);
    void HandleLocationError(const std::string& strPacket);
    void HandleICBMError(const std::string& strPacket);

    // BanWire.cpp, Ejects.cpp.
    void HandleBanReply(int Index, const std::string& strPacket);
    void TellBanAnswer(std::int16_t intChatIndex, const std::string& id, const std::string& body);
    enum class Second { Sent, Kept }; ///< whether a kick's second half goes out as a frame
    void ActOnReply(const BanRecordFields& request, std::int16_t intChatIndex, Second half);
    BanOutcome TellDropped(const Chats* room, std::int16_t intChatIndex, BanKind kind,
                           const std::string& strUser, const std::string& strOther);
    void TellTimeBan(TimeBanStep step, const std::string& strRecord);
    BanOutcome AskToUnban(const std::string& strUser, BanKind kind, std::int16_t intChatIndex,
                          const std::string& strOther, Second half);
    void ConfirmSoon(std::int32_t id);
    void ConfirmWaiting();
    void AddEject(const std::string& strUser, std::int16_t intChatIndex);
    void RemoveEject(const std::string& strUser, std::int16_t intChatIndex);

    Platform& platform;
    Departures departures;
    std::string strPin; // of the network's certificate
    Telling telling;
    TillerEvents& events;
    MainWindowLink& window;
    SocketTable Sock;
    TimerPool timers;
    std::unique_ptr<Timer> tmrTimeout; // 15 s from Login to "Login Completed!"
    SignOnState signOn;
    ServiceState service;
    std::map<int, ServiceState> ownService; // by socket, with Departure::OneServiceRequest
    unsigned resets = 0;
    ServiceSlots indices;
    RoomRequest request;
    std::deque<RoomWish> waitingRooms;
    std::unique_ptr<Timer> tmrRequest;   // made when the first request is timed
    std::map<int, RateTable> rateTables; // by socket
    bool confirmsElsewhere = false;
    std::deque<std::int32_t> confirmedSoon;
    std::unique_ptr<Timer> tmrConfirm; // made when the first request waits for it
    PresenceState presence;
    std::string strEncoding; // of the last message that named one
    std::int16_t ChatMessageID = 0;
    std::string strLastErrorCode;
};

} // namespace halyard
