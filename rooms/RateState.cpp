// What the service's rate notices stop in a room, and how it comes back.

#include "base/Text.h"
#include "rooms/Chats.h"
#include "rooms/RoomHost.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr int noticeText = 111;
constexpr int unratedText = 112;
constexpr int HalfMinute = 30000; // ms
constexpr const char* banFeatures = "Banning, Unbanning, Chat Closing";

} // namespace

void Chats::RateNotice(int intRateType, int intClassID) {
    if (intRateType < 2 || intRateType > 5) return;
    // There is no flag for other classes, and a notice without a flag would be said as often as a service
    // liked.
    if (intClassID < 1 || intClassID > 5) return;
    auto& rated = blnRated[static_cast<std::size_t>(intClassID)];
    if (intRateType >= 4) {
        const bool was = std::exchange(rated, false);
        if (was) TellRate(intClassID);
        return;
    }
    if (rated) return;
    std::string notice;
    if (intClassID == 1) notice = StopBanning(intRateType);
    if (intClassID == 5) notice = StopTalking();
    // Before the flag is set: with it the notice of class 5 would not get out.
    SayRateText(noticeText, std::to_string(intClassID), notice, "msgrated");
    rated = true;
    TellRate(intClassID);
}

/// How long it takes by itself, in half minutes of the clock, the first of which may be running already.
/// Class 1 frees itself only while that clock runs, whatever began it.
void Chats::TellRate(int intClassID) {
    auto* news = host.Tell().news;
    if (!news) return;
    const bool rated = IsRated(intClassID);
    int ticks = -1;
    if (rated && tmrUnrate && tmrUnrate->Enabled()) {
        if (intClassID == 5) ticks = 1;
        if (intClassID == 1) ticks = std::max(1, UnrateLimit * 2 - intUnrateTicks[0]);
    }
    news->RateLevel(ChatIndex, intClassID, rated, ticks < 0 ? -1 : ticks * HalfMinute);
}

std::string Chats::StopBanning(int intRateType) {
    std::string notice =
        std::string("Rate Class ID: 1, Features disabled: ") + banFeatures + " -- Time disabled: ";
    if (intRateType == 3) notice += "%t"; // reaches the room as it stands, on purpose
    notice += blnAutoUnrate ? std::to_string(UnrateLimit) + " minutes" : "[Auto Unrate Off]";
    host.RoomRated(0, ChatName);
    if (tmrBan && tmrBan->Enabled()) {
        tmrBan->SetEnabled(false);
        TellPauseEnd(Pause::Bans);
    }
    DropBans(DropReason::Rated);
    if (blnAutoUnrate) {
        intUnrateTicks[0] = 0;
        SetUnrateTimer(true);
    }
    return notice;
}

std::string Chats::StopTalking() {
    host.RoomRated(1, ChatName);
    intUnrateTicks[1] = 0;
    SetUnrateTimer(true); // whatever the auto unrate switch says
    DropLines(LineDrop::Rated);
    return "Rate Class ID: 5, Features disabled: Chat Messages -- Time disabled: 30 seconds";
}

bool Chats::IsRated(int intClassID) const {
    return intClassID >= 1 && intClassID <= 5 && blnRated[static_cast<std::size_t>(intClassID)];
}

void Chats::CheckUnrate() {
    if (blnRated[1]) {
        AssignInt16(intUnrateTicks[0], intUnrateTicks[0] + 1);
        if (intUnrateTicks[0] / 2.0 >= UnrateLimit) ResumeBanning();
    }
    if (blnRated[5]) ResumeTalking(); // one tick is always enough
}

void Chats::ResumeBanning() {
    strMinutesRated = NumberText(intUnrateTicks[0] / 2.0);
    SayRateText(unratedText, strMinutesRated, banFeatures, "banrated");
    intUnrateTicks[0] = 0;
    if (!blnRated[5]) SetUnrateTimer(false);
    blnRated[1] = false;
    TellRate(1);
    host.RoomUnrated(0, NormalizeName(ChatName), ChatIndex);
}

void Chats::ResumeTalking() {
    intUnrateTicks[1] = 0;
    if (!blnRated[1]) SetUnrateTimer(false);
    blnRated[5] = false;
    TellRate(5);
    host.RoomUnrated(1, NormalizeName(ChatName), ChatIndex);
}

void Chats::SayRateText(int number, std::string strReplacement, const std::string& strOther,
                        const std::string& strType) {
    auto strMessage = host.ChatSendText(number);
    PrepareChatSend(strReplacement, "%p", strMessage, strOther, strType, "msg");
}

void Chats::SetUnrateTimer(bool enabled) {
    if (!tmrUnrate || tmrUnrate->Enabled() == enabled) return;
    tmrUnrate->SetEnabled(enabled);
    if (enabled)
        TellPause(Pause::Unrate, tmrUnrate->Interval());
    else
        TellPauseEnd(Pause::Unrate);
    if (enabled && blnRated[1]) TellRate(1); // another class has begun what frees this one too
}

void Chats::SetUnratePause(std::int16_t intPause) {
    UnrateLimit = intPause;
    if (blnRated[1]) TellRate(1);
}

} // namespace halyard
