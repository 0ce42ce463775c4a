#pragma once

// What a check of a network has heard, and the listener that hears it: of the check's own control, or of the
// bot's. It only writes down; CheckSteps.h makes something of it.

#include "base/News.h"
#include "bridge/networks/check/HexLog.h"
#include "oscar/TillerEvents.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace halyard {

class Platform;
class TillerSock;

// Request ids of the check. The bot's own have numbers from 1 on in their low half, by which alone it knows
// its answers: with a low half of 0 an answer is none of its.
inline constexpr std::uint32_t CheckBanId = 0x48430000;
inline constexpr std::uint32_t CheckLiftId = 0x48440000;
inline constexpr std::uint32_t CheckInfoId = 0x48450000;

/// How a request for a ban was answered.
struct BanReply {
    BanVerdict verdict = BanVerdict::Accepted;
    int word = 0;
};

/// The classes that a service counts the bot's requests in, out of 0001 0007.
struct RatesTold {
    bool known = false; ///< false when the answer names none
    int messages = 0;
    int lines = 0;
    int bans = 0;

    /// `body` is that of the SNAC.
    static RatesTold Read(std::string_view body);
    bool AsLaidDown() const { return lines == 5 && bans == 1; }
};

struct CheckHeard {
    static constexpr std::size_t MostPeople = 1000;

    // The sign-on.
    bool answered = false; ///< a frame came
    std::string stage;     ///< the last that was told
    bool letIn = false;    ///< the auth server's answer named no error, and the sign-on ended there
    bool cookie = false;   ///< a cookie was in it
    int refused = 0;       ///< the code of the refusal; 0 for none
    std::string refusedText;
    bool signedOn = false;
    std::string host;  ///< of the main connection
    std::string ended; ///< how the session ended, in words; empty while it stands

    // The room.
    std::int16_t room = 0; ///< its socket; 0 for none
    std::string roomText;
    std::string roomRefusal;
    std::set<std::string> people; ///< normalised, at most MostPeople

    // What was asked for.
    bool ownLine = false;
    bool ownMessage = false;
    bool ownInfo = false;
    std::optional<int> messageError; ///< the word of an error SNAC
    std::optional<int> infoError;
    std::map<std::uint32_t, BanReply> banReplies; ///< by request id; of the check's own alone
    std::map<int, RatesTold> rates;               ///< by socket

    RatesTold RatesOf(int socket) const {
        const auto found = rates.find(socket);
        return found == rates.end() ? RatesTold() : found->second;
    }

    // Habits of the service.
    int strayAnswers = 0;           ///< 000D 0009 that nothing had asked for
    std::optional<int> bareRefusal; ///< the word of a join's refusal, when it was all there was
    std::string farRedirect;        ///< an address told to connect to, that can't be meant as it stands
    bool textFirst = false;         ///< a line's text stood before its encoding
    std::string oddName;            ///< of somebody in the room, with "[" or "]", or OnlineHost
};

class CheckEars : public TillerEvents, public MainWindowLink, public News {
  public:
    static constexpr const char* Phrase = "Halyard checks this network.";

    explicit CheckEars(Platform& platform) : platform(platform) {}

    CheckHeard heard;
    HexLog log;
    std::function<void()> onHeard; ///< something was written down; runs inside the control's handlers

    /// Begins anew, for a control of the check's own or for the bot's, of which only what concerns the check
    /// is heard.
    void Listen(const TillerSock& to, bool ofBot, const std::string& ownName);
    void Forget() { control = nullptr; }

    // Of either control.
    void SignedOff() override;
    void ConnectionEnded(int socket, const std::string& text) override;
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override;
    void Frame(int socket, bool sent, int channel, std::string_view body) override;

  private:
    // Of the check's own.
    void SignOnStage(const std::string& text) override;
    void SignOnRefused(int code, const std::string& text) override;
    void RoomRefused(int code, const std::string& family, const std::string& text) override;
    void PersonCame(std::int16_t room, const std::string& name) override;
    void LoggedIn(Text strUser, Text strEmail, Text strServerIP) override;
    void JoinedChat(Text strChatName, std::int16_t intExchange, std::int16_t intInstance,
                    std::int16_t intChatIndex, std::int16_t intMaxPeople, std::int16_t intMaxMessageLength,
                    Text strChatIP, std::int16_t intDetailLevel) override;
    void ChatMessage(std::int16_t intChatIndex, Text strScreenname, Text strMessage) override;
    void InstantMessage(Text strScreenname, Text strMessage, std::int16_t intChannel) override;
    void IncomingUserInfo(Text strScreenname, std::int16_t intWarningLevel, std::int32_t IdleTimeSeconds,
                          std::int32_t OnlineTimeSeconds, Text strUserClass, Text strEncodingType,
                          Text strProfile) override;
    bool GetAutoUnrate() const override { return false; }
    std::int16_t GetUnratePause() const override { return 0; }
    void Rated(int, Text) override {}
    void Unrated(int, Text, std::int16_t) override {}

    void HearSnac(int socket, std::string_view body);
    void HearAddress(std::string_view tlvs);
    void HearLine(std::string_view body);
    void Tell() const {
        if (onHeard) onHeard();
    }

    Platform& platform;
    const TillerSock* control = nullptr;
    bool ofBot = false;
    std::string ownName;
    std::string peer; ///< the first address that was reached
    std::int64_t since = 0;
    std::map<int, int> navigation; ///< by socket: requests of family 000D without an answer
};

} // namespace halyard
