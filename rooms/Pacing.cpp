// How a room says a line: what goes out now, what waits, what is lost.

#include "base/Text.h"
#include "rooms/ChatSendKeys.h"
#include "rooms/Chats.h"
#include "rooms/EjectList.h"
#include "rooms/Fold.h"
#include "rooms/LineText.h"
#include "rooms/RoomHost.h"

#include <utility>

namespace halyard {

namespace {

// A name or a text must not form a mail address, a link or a time in the room.
void GuardLinks(std::string& text) {
    text = Replace(text, "@", " @ ");
    text = Replace(text, ".", " . ");
    text = Replace(text, ":", " : ");
}

bool IsBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

bool IsRunning(const std::shared_ptr<PoolTimer>& timer) { return timer && timer->Enabled(); }

// Position of the first waiting send of a class tag; 0 when there is none.
std::ptrdiff_t FirstOf(const Collection<Msgs>& queue, const std::string& strMsgType) {
    std::ptrdiff_t position = 0;
    for (const auto& waiting : queue) {
        ++position;
        if (waiting.TheMsgType == strMsgType) return position;
    }
    return 0;
}

} // namespace

void Chats::PrepareChatSend(std::string& strReplacement, const std::string& strChar, std::string& strMessage,
                            const std::string& strOther, const std::string& strType,
                            const std::string& strMsgType, std::int16_t intChatIndex) {
    if (blnRated[5])
        return TellLineDropped(
            {strType, strChar, strReplacement, strMessage, strOther, strMsgType, intChatIndex},
            LineDrop::Rated);
    if (strType != "status" && strType != "bp") GuardLinks(strReplacement);
    Msgs own{strType, strChar, strReplacement, strMessage, strOther, strMsgType, intChatIndex};
    const auto group = SendGroupOf(strType);
    if (group != SendGroup::Unknown && IsBlank(strMessage) &&
        host.Guarded(Departure::NothingSaidIsLost, ChatIndex, {}))
        return;
    switch (group) {
    case SendGroup::MergeSameOther:
    case SendGroup::Merge:
        own.TheMsgType = "msg1"; // whatever the caller said
        return SayMerged(own);
    case SendGroup::OneByOne: return SayOneByOne(own);
    case SendGroup::DropWhilePaused: return SayOrDrop(own, strMessage);
    case SendGroup::Unpaced:
        own.TheChar = "%p"; // not the caller's placeholder, on purpose
        strMessage = FillIn(own, "%d");
        return SayLine(own, strMessage);
    case SendGroup::Unknown: return TellLineDropped(own, LineDrop::Unknown);
    }
}

void Chats::Wait(const Msgs& own) {
    const auto waiting = Numbered(own);
    MsgQueue.Add(waiting);
    if (auto* news = host.Tell().news) news->LineQueued(ChatIndex, waiting);
}

Msgs Chats::Numbered(const Msgs& own) {
    auto waiting = own;
    waiting.Number = ++host.Tell().lineNumber;
    return waiting;
}

void Chats::SayLine(const Msgs& send, const std::string& line, const std::vector<std::int64_t>& numbers) {
    if (auto* news = host.Tell().news) news->LineSaid(ChatIndex, send, line, numbers);
    host.Say(ChatIndex, line);
}

void Chats::TellLineDropped(const Msgs& line, LineDrop why) {
    if (auto* news = host.Tell().news) news->LineDropped(ChatIndex, line, why);
}

void Chats::DropLines(LineDrop why) {
    for (const auto& line : std::exchange(MsgQueue, {})) TellLineDropped(line, why);
    DropAnswers(why);
}

void Chats::SayMerged(const Msgs& own) {
    if (IsRunning(tmrSend[1])) return Wait(own);
    const bool sameOther = SendGroupOf(own.TheType) == SendGroup::MergeSameOther;
    std::vector<std::int64_t> numbers;
    const auto folded = FoldWaitingSends(MsgQueue, own.TheType, own.TheMessage.size(), sameOther, &numbers);
    const auto& send = folded ? *folded : own;
    SayLine(send, MergedLine(send), numbers);
    RestartSendTimer(1);
}

std::string Chats::MergedLine(const Msgs& send) const {
    if (SendGroupOf(send.TheType) == SendGroup::MergeSameOther) {
        // Without an eject list "%d" stays in the line here and becomes "0" below, on purpose.
        const auto line = FillIn(send, "%s");
        const auto bans = BanCount();
        return bans ? Replace(line, "%d", std::to_string(*bans)) : line;
    }
    if (!CountsBans(send.TheType)) return FillIn(send, "%d");
    return Replace(Replace(send.TheMessage, send.TheChar, send.TheReplacement), "%d",
                   std::to_string(BanCount().value_or(0)));
}

std::optional<std::size_t> Chats::BanCount() const {
    for (const auto& list : host.AllEjectLists()) // by name alone, whatever the exchange
        if (list && SameName(list->ChatName, ChatName)) return list->GetEjects().Count();
    return std::nullopt;
}

void Chats::SayOneByOne(const Msgs& own) {
    if (IsRunning(tmrSend[2])) return Wait(own);
    std::string strLine;
    std::vector<std::int64_t> numbers;
    if (const auto position = FirstOf(MsgQueue, "msg2")) {
        strLine = FillIn(MsgQueue.Item(position), "%d");
        if (position == 1)
            numbers.push_back(MsgQueue.Item(1).Number);
        else
            TellLineDropped(MsgQueue.Item(1), LineDrop::Overtaken);
        // The head of the queue goes, not the entry just said, on purpose: a merged send that waits before it
        // is lost, and the entry is said once more.
        MsgQueue.Remove(1);
    }
    if (strLine.empty()) strLine = FillIn(own, "%d");
    SayLine(own, strLine, numbers);
    RestartSendTimer(2);
}

void Chats::SayOrDrop(const Msgs& own, std::string& strMessage) {
    if (IsRunning(tmrSend[3]))
        return host.Guarded(Departure::NothingSaidIsLost, ChatIndex, {})
                   ? AnswerLater(own)
                   : TellLineDropped(own, LineDrop::Paused);
    strMessage = FillIn(own, "%d");
    SayLine(own, strMessage);
    EnableSendTimer(3);
}

void Chats::RestartSendTimer(int Index) {
    const auto timer = GetSendTimer(Index);
    if (!timer) return;
    timer->Restart();
    TellPause(Index == 1 ? Pause::Lines1 : Pause::Lines2, timer->Interval());
}

void Chats::CheckQueue(const std::string& strType) {
    if (strType == "ban")
        CheckBanQueue();
    else if (strType == "msg1")
        Drain(1, strType);
    else if (strType == "msg2")
        Drain(2, strType);
    else if (strType == "msg3")
        SayNextAnswer();
}

// The entry stays in the queue: with the timer off, saying it makes the send look into the queue and find it
// there.
void Chats::Drain(int Index, const std::string& strMsgType) {
    DisableSendTimer(Index);
    const auto position = FirstOf(MsgQueue, strMsgType);
    if (position == 0) return;
    Msgs next = MsgQueue.Item(position);
    PrepareChatSend(next.TheReplacement, next.TheChar, next.TheMessage, next.TheOther, next.TheType,
                    next.TheMsgType);
}

bool Chats::DropLine(std::int64_t number) {
    std::ptrdiff_t position = 0;
    for (const auto& waiting : MsgQueue) {
        ++position;
        if (waiting.Number != number) continue;
        const Msgs line = waiting;
        MsgQueue.Remove(position);
        TellLineDropped(line, LineDrop::ByHand);
        return true;
    }
    return DropAnswer(number);
}

void Chats::ClearQueue(int intType) {
    if (intType == 0) DropBans(DropReason::Cleared);
    if (intType != 1) return;
    DropLines(LineDrop::Cleared);
    for (int Index = 0; Index <= 3; ++Index) DisableSendTimer(Index);
}

} // namespace halyard
