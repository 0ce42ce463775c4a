#pragma once

// One joined chat room: its identity on the service, who is there, what waits to be said or banned, its
// timers and its rate state. TillerSock holds all rooms in Chat. A room knows its socket slot (ChatIndex) and
// owns no socket.

#include "base/Collection.h"
#include "base/News.h"
#include "rooms/BanRequest.h"
#include "rooms/Msgs.h"
#include "rooms/TimerPool.h"

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

class RoomHost;

class Chats {
  public:
    static constexpr std::int64_t OldestAnswer = 60'000; ///< ms that an answer may wait

    /// `host` must outlive the room. `sngBanPause` is the pause between bans in seconds, copied once: later
    /// changes come through SetBanPause.
    Chats(RoomHost& host, float sngBanPause);

    std::string ChatName; ///< as the service reports it; compared in lower case without blanks
    std::int16_t Exchange = 0;
    std::int16_t Instance = 0;
    std::int16_t DetailLevel = 0;
    std::int16_t MaxMessageLength = 0;
    std::int16_t MaxPeople = 0;
    std::string Cookie;
    std::int16_t ChatIndex = 0; ///< socket slot, the room's handle everywhere (`intChatIndex`)
    std::string ServerIP;
    Collection<std::string> PeopleHere; ///< normalised names, item and key alike
    Collection<Msgs> MsgQueue;
    Collection<std::string> BanQueue;
    std::int16_t UnrateLimit = 0; ///< minutes
    std::shared_ptr<PoolTimer> tmrBan;
    std::shared_ptr<PoolTimer> tmrFirstJoin;
    std::shared_ptr<PoolTimer> tmrPing;
    std::shared_ptr<PoolTimer> tmrUnrate;
    std::int16_t BanTimerIndex = 0;
    std::int16_t FistJoinIndex = 0; // the name is settled
    /// Position of the room's list in EjectLists; 0 is none, -1 after a file load.
    std::int16_t EjectListIndex = 0;
    std::int16_t PingIndex = 0;
    std::int16_t UnrateIndex = 0;

    /// Adds and removes a name in lower case without blanks. One that is there, is absent or is empty changes
    /// nothing.
    void UserJoined(const std::string& strUser);
    void UserLeft(const std::string& strUser);
    /// True within 2 seconds of the room's opening: who is there now was there before the bot.
    bool JoinTimerEnabled() const;
    /// The bot counts as owner only when the notice comes within that window.
    void GotOwner(const std::string& strOwner);
    const std::string& GetOwner() const { return strOwner; }
    bool IsOwner() const { return blnIsOwner; }

    /// Takes a timer of the pool under its tag and gives it its interval; "firstjoin" also starts. An unknown
    /// tag or a null timer changes nothing.
    void SetNewTimer(const std::shared_ptr<PoolTimer>& TheTimer, const std::string& strType);
    /// `Index` is 0 to 3 for "msg", "msg1", "msg2", "msg3"; others have no effect, and give 0 or null.
    void EnableSendTimer(int Index);
    void DisableSendTimer(int Index);
    void SetSendTimerIndex(int Index, int intTimerIndex);
    int GetTimerIndex(int Index) const;
    std::shared_ptr<PoolTimer> GetSendTimer(int Index) const;
    std::shared_ptr<PoolTimer> GetBanTimer() const { return tmrBan; }
    /// Lets go of people, queues and timers; the pool has its slots back by then.
    void PrepareTerminate();

    /// Says a line, lets it wait or loses it, as the key `strType` and the pauses of the room want (see
    /// Pacing.cpp). `strMessage` is the template, in which `strChar` becomes `strReplacement` and "%d" or
    /// "%s" `strOther`. An unknown key says nothing, and so does every key while class 5 is rated.
    /// `strReplacement`, and for some keys `strMessage`, stay rewritten for the caller, on purpose: saying to
    /// all rooms hands the same strings on from room to room.
    void PrepareChatSend(std::string& strReplacement, const std::string& strChar, std::string& strMessage,
                         const std::string& strOther, const std::string& strType,
                         const std::string& strMsgType, std::int16_t intChatIndex = 0);
    /// A timer of the tag came due. Tags but "msg1", "msg2", "msg3" and "ban" do nothing.
    void CheckQueue(const std::string& strType);
    /// Takes a waiting line, or a waiting ban, out by the number that its news have: Msgs::Number, or the
    /// request id. False when none waits under it.
    bool DropLine(std::int64_t number);
    bool DropBan(std::int32_t lngRequestID);
    /// The answers that wait (Departure::NothingSaidIsLost), the oldest first.
    std::vector<Msgs> WaitingAnswers() const;
    /// 0 empties BanQueue; 1 empties MsgQueue, drops the answers that wait and stops the four send timers;
    /// other values do nothing.
    void ClearQueue(int intType);

    /// Puts a request behind the others: kind, socket slot, request id, name and extra value, joined by ":".
    void QueueBan(const std::string& strUser, std::int16_t intChatIndex, std::int32_t lngRequestID,
                  BanKind kind, const std::string& strOther);
    /// Sends the oldest request and starts the pause anew, or ends the pause when none waits; while class 1
    /// is rated neither.
    void BanNextUser();
    /// A request has gone out: the next one waits a pause.
    void StartBanPause();
    /// Seconds. From 60 on the timer ticks once a second and the room counts.
    void SetBanPause(float sngPause);
    float BanPause() const { return sngBanPause; }

    /// A rate notice of the service (family 0001, subtype 000A): codes 2 and 3 stop what the class governs, 4
    /// and 5 clear it. Class 1 governs banning, class 5 talking. Other codes, and classes outside 1 to 5, do
    /// nothing.
    void RateNotice(int intRateType, int intClassID);
    /// False for a class outside 1 to 5.
    bool IsRated(int intClassID) const;
    /// The half-minute tick of `tmrUnrate`.
    void CheckUnrate();
    /// Minutes.
    void SetUnratePause(std::int16_t intPause);
    std::int16_t GetUnratePause() const { return UnrateLimit; }
    void SetAutoUnrate(bool blnUnrate) { blnAutoUnrate = blnUnrate; }
    bool GetAutoUnrate() const { return blnAutoUnrate; }
    /// The minutes, as text, after which banning came back last: what the room has said, it says once more.
    const std::string& MinutesRated() const { return strMinutesRated; }

  private:
    // Pacing.cpp
    void Wait(const Msgs& own);
    void SayLine(const Msgs& send, const std::string& line, const std::vector<std::int64_t>& numbers = {});
    void TellLineDropped(const Msgs& line, LineDrop why);
    void DropLines(LineDrop why);
    Msgs Numbered(const Msgs& own);
    void SayMerged(const Msgs& own);
    void SayOneByOne(const Msgs& own);
    void SayOrDrop(const Msgs& own, std::string& strMessage);
    std::string MergedLine(const Msgs& send) const;
    std::optional<std::size_t> BanCount() const;
    void RestartSendTimer(int Index);
    void Drain(int Index, const std::string& strMsgType);
    // Answers.cpp
    void AnswerLater(const Msgs& own);
    void SayNextAnswer();
    void DropAnswers(LineDrop why);
    bool DropAnswer(std::int64_t number);
    // BanQueue.cpp
    void CheckBanQueue();
    void StopBanPause();
    void SendOldestBan();
    void SetBanInterval();
    void TellBanPause();
    void TellPause(Pause pause, int milliseconds);
    void TellPauseEnd(Pause pause);
    void TellRate(int intClassID);
    void DropBans(DropReason why);
    // RateState.cpp
    std::string StopBanning(int intRateType);
    std::string StopTalking();
    void ResumeBanning();
    void ResumeTalking();
    void SayRateText(int number, std::string strReplacement, const std::string& strOther,
                     const std::string& strType);
    void SetUnrateTimer(bool enabled);

    RoomHost& host;
    bool blnIsOwner = false;
    std::string strOwner;
    std::array<bool, 6> blnRated{}; // subscripts 1 to 5
    float sngBanPause;
    std::int32_t lngBanTicks = 0;
    std::array<std::int16_t, 2> intUnrateTicks{};
    std::string strMinutesRated;
    bool blnAutoUnrate = false;
    struct Answer {
        Msgs send;
        std::int64_t since; ///< ms
    };
    std::deque<Answer> answers;
    std::array<std::shared_ptr<PoolTimer>, 4> tmrSend;
    std::array<std::int16_t, 4> SendTimerIndex{};
};

} // namespace halyard
