#include "soak/watch/TruthWatch.h"

#include "base/Text.h"
#include "practice/PracticeNetwork.h"
#include "rooms/BanRequest.h"
#include "surface/frmMain.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace halyard {

namespace {

/// A sign-on, or the way into a room, is known to the service before the bot hears of it: ms.
constexpr std::int64_t underWay = 10000;

constexpr std::pair<Pause, const char*> pauseNames[] = {{Pause::Bans, "the ban pause"},
                                                        {Pause::Lines1, "the pause msg1"},
                                                        {Pause::Lines2, "the pause msg2"},
                                                        {Pause::Lines3, "the pause msg3"},
                                                        {Pause::Unrate, "the unrate clock"}};

bool Runs(const Chats& room, Pause pause) {
    const auto is = [](const std::shared_ptr<PoolTimer>& timer) { return timer && timer->Enabled(); };
    switch (pause) {
    case Pause::Bans: return is(room.tmrBan);
    case Pause::Lines1: return is(room.GetSendTimer(1));
    case Pause::Lines2: return is(room.GetSendTimer(2));
    case Pause::Lines3: return is(room.GetSendTimer(3));
    case Pause::Unrate: break;
    }
    return is(room.tmrUnrate);
}

} // namespace

TruthWatch::TruthWatch(frmMain& window, const PracticeNetwork& network, const Truth& truth, std::string bot)
    : forecast(window.Control(), truth), window(window), network(network), truth(truth), bot(std::move(bot)) {
}

std::string TruthWatch::Check(std::int64_t now) {
    const auto& control = window.Control();
    auto wrong = CheckAccount(now);
    if (wrong.empty()) wrong = CheckNavigation();
    if (wrong.empty() && truth.Rooms().size() != control.Chat.Count())
        wrong = "it says " + std::to_string(truth.Rooms().size()) + " rooms of " +
                std::to_string(control.Chat.Count());
    const auto awaited = awaitedByGuard ? awaitedByGuard() : window.reconnection.RejoinQueue.Count();
    if (wrong.empty() && truth.Awaited().size() != awaited)
        wrong = "it says that " + std::to_string(truth.Awaited().size()) + " rooms wait of " +
                std::to_string(awaited);
    for (const auto& room : control.Chat)
        if (wrong.empty()) wrong = CheckRoom(*room, now);
    if (wrong.empty()) wrong = forecast.Check(now);
    if (wrong.empty()) wrong = CheckService(now);
    return wrong.empty() ? wrong : "the watch: " + wrong;
}

std::string TruthWatch::CheckAccount(std::int64_t now) const {
    const auto& control = window.Control();
    const auto& account = truth.Account();
    const bool connected = control.Sockets().IsConnected(0);
    const bool moving = truth.Main().stage == Stage::Underway;
    const bool onLine = control.LoggedOn() && (connected || moving);
    if ((account.stage == Stage::On) != onLine)
        return std::string("the account is ") + (onLine ? "" : "not ") +
               "on line, it says otherwise: " + account.words;
    if (truth.Main().stage == Stage::On && !connected) return "the main connection isn't there";
    const auto& comeback = window.reconnection;
    const bool planned = comeback.Reconnecting && comeback.tmrReconnect->Enabled();
    const bool idle = account.stage != Stage::On && account.stage != Stage::Underway;
    if (idle && planned != (account.stage == Stage::ComingBack))
        return planned ? "it misses an attempt to come back" : "it waits for an attempt that isn't to come";
    if (account.stage == Stage::ComingBack && account.nextAttempt < now)
        return "the next attempt was to be made";
    return {};
}

std::string TruthWatch::CheckNavigation() const {
    const auto& sockets = window.Control().Sockets();
    bool there = false;
    for (int index = 1; index <= sockets.UpperBound(); ++index)
        there = there || sockets.Tag(index) == "[Chat_Navigation]connected";
    const bool said = truth.Navigation().stage == Stage::On;
    return said == there ? "" : said ? "navigation isn't connected" : "it doesn't know navigation";
}

std::string TruthWatch::CheckRoom(const Chats& room, std::int64_t now) {
    const auto* said = truth.Room(room.ChatIndex);
    if (!said) return "it misses " + room.ChatName;
    const bool in = window.Control().Sockets().Tag(room.ChatIndex) == "[Chat]connected";
    if (said->name != room.ChatName || said->exchange != room.Exchange)
        return "it calls " + room.ChatName + " " + said->name;
    if ((said->standing.stage == Stage::On) != in) return "it doesn't know how it is with " + room.ChatName;
    if (said->owner != room.IsOwner() || said->ownerName != room.GetOwner())
        return "it has another owner of " + room.ChatName;
    if (said->people != static_cast<int>(room.PeopleHere.Count()))
        return "it counts " + std::to_string(said->people) + " people of " +
               std::to_string(room.PeopleHere.Count()) + " in " + room.ChatName;
    for (int classId = 1; classId <= 5; ++classId)
        if (said->rated[static_cast<std::size_t>(classId)] != room.IsRated(classId))
            return "it has class " + std::to_string(classId) + " wrong in " + room.ChatName;
    auto wrong = CheckWaiting(room, *said);
    if (wrong.empty()) wrong = CheckPauses(room, *said, now);
    return wrong.empty() ? wrong : wrong + " in " + room.ChatName;
}

/// Number by number only when something came or went.
std::string TruthWatch::CheckWaiting(const Chats& room, const RoomTruth& said) {
    const auto answers = room.WaitingAnswers();
    const std::pair count{room.MsgQueue.Count() + answers.size(), room.BanQueue.Count()};
    if (said.lines.size() != count.first)
        return std::to_string(said.lines.size()) + " lines wait of " + std::to_string(count.first);
    if (said.bans.size() != count.second)
        return std::to_string(said.bans.size()) + " bans wait of " + std::to_string(count.second);
    if (std::exchange(counts[room.ChatIndex], count) == count) return {};
    std::vector<std::int64_t> numbers, saidNumbers;
    for (const auto& waiting : room.MsgQueue) numbers.push_back(waiting.Number);
    for (const auto& waiting : answers) numbers.push_back(waiting.Number);
    for (const bool ofAnswers : {false, true})
        for (const auto& line : said.lines)
            if ((line.send.TheMsgType == "msg3") == ofAnswers) saidNumbers.push_back(line.send.Number);
    if (numbers != saidNumbers) return "another line waits";
    auto ban = said.bans.begin();
    for (const auto& waiting : room.BanQueue) {
        const auto record = ReadBanRecord(waiting).value_or(BanRecordFields{});
        if (record.strRequestID != std::to_string(ban->id) || record.kind != ban->kind)
            return "another ban waits";
        ++ban;
    }
    return {};
}

/// At the very moment of its end a pause may count as running or not.
std::string TruthWatch::CheckPauses(const Chats& room, const RoomTruth& said, std::int64_t now) const {
    for (const auto& [pause, word] : pauseNames) {
        const auto end = said.PauseEnd(pause, now);
        if (Runs(room, pause) ? end < now : end > now)
            return std::string(word) + (end > now ? " doesn't run" : " runs");
    }
    for (const std::size_t classId : {1, 5}) {
        if (!said.rated[classId]) continue;
        const bool ends = Runs(room, Pause::Unrate);
        if (ends ? said.freeAt[classId] < now : said.freeAt[classId] >= 0)
            return "class " + std::to_string(classId) + " is free at another moment";
    }
    return {};
}

std::string TruthWatch::CheckService(std::int64_t now) {
    if (now < trusted) differsSince = -1;
    if (now < trusted) return {};
    std::string differs;
    if ((truth.Account().stage == Stage::On) != network.IsOnLine(bot)) differs = "the account";
    for (const auto& [slot, room] : truth.Rooms())
        if (room.standing.stage == Stage::On && !network.IsInRoom(room.name, bot)) differs = room.name;
    if (differs.empty())
        differsSince = -1;
    else if (differsSince < 0)
        differsSince = now;
    if (differsSince >= 0 && now > differsSince + underWay)
        return "the service has " + differs + " otherwise";
    return {};
}

} // namespace halyard
