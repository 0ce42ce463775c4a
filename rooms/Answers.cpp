// Answers that came too soon behind another (Departure::NothingSaidIsLost): they wait and are said one a
// pause, while they are young enough to be one.

#include "rooms/Chats.h"
#include "rooms/LineText.h"
#include "rooms/RoomHost.h"

#include <utility>

namespace halyard {

namespace {

constexpr std::size_t MostAnswers = 20;

} // namespace

void Chats::AnswerLater(const Msgs& own) {
    if (answers.size() >= MostAnswers) return TellLineDropped(own, LineDrop::TooMany);
    answers.push_back({Numbered(own), host.Now()});
    auto& waiting = answers.back().send;
    waiting.TheMsgType = "msg3"; // whatever the caller said
    if (auto* news = host.Tell().news) news->LineQueued(ChatIndex, waiting);
}

void Chats::SayNextAnswer() {
    if (answers.empty()) return;
    const auto next = answers.front().send;
    answers.pop_front();
    EnableSendTimer(3);
    SayLine(next, FillIn(next, "%d"), {next.Number});
    // The next one's turn comes a pause from now: those that are too old by then go at once.
    const auto timer = GetSendTimer(3);
    const auto nextTurn = host.Now() + (timer ? timer->Interval() : 0);
    while (!answers.empty() && nextTurn - answers.front().since > OldestAnswer) {
        const auto old = answers.front().send;
        answers.pop_front();
        TellLineDropped(old, LineDrop::TooOld);
    }
}

void Chats::DropAnswers(LineDrop why) {
    for (const auto& answer : std::exchange(answers, {})) TellLineDropped(answer.send, why);
}

bool Chats::DropAnswer(std::int64_t number) {
    for (auto each = answers.begin(); each != answers.end(); ++each) {
        if (each->send.Number != number) continue;
        const auto line = each->send;
        answers.erase(each);
        TellLineDropped(line, LineDrop::ByHand);
        return true;
    }
    return false;
}

std::vector<Msgs> Chats::WaitingAnswers() const {
    std::vector<Msgs> waiting;
    for (const auto& answer : answers) waiting.push_back(answer.send);
    return waiting;
}

} // namespace halyard
