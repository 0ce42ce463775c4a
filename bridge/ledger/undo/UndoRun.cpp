#include "bridge/ledger/undo/UndoRun.h"

#include "base/Text.h"
#include "bridge/Doors.h"
#include "bridge/ledger/Ledger.h"
#include "bridge/ledger/answers/PacedMessages.h"
#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "platform/Platform.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr int Look = 250; ///< ms between two looks at what holds the next request up

std::shared_ptr<Chats> RoomOf(const TillerSock& control, const UndoTask& step) {
    for (const auto& room : control.Chat)
        if (room->Exchange == step.exchange && SameName(room->ChatName, step.room)) return room;
    return nullptr;
}

/// A ban of this person that has not been answered yet, in the queue or on its way.
bool IsBeingBanned(const TillerSock& control, const Chats& room, const std::string& name) {
    const auto isOf = [&](const std::string& record) {
        const auto request = ReadBanRecord(record);
        return request && request->kind && !IsReadmission(*request->kind) &&
               request->intChatIndex == room.ChatIndex && SameName(request->strUser, name);
    };
    return std::any_of(room.BanQueue.begin(), room.BanQueue.end(), isOf) ||
           std::any_of(control.RequestIDs.begin(), control.RequestIDs.end(), isOf);
}

/// What is told meanwhile takes the act back.
class TakingBack {
  public:
    TakingBack(Ledger& ledger, std::int64_t undo, std::int64_t act) : ledger(ledger) {
        ledger.TakeBack(undo, act);
    }
    ~TakingBack() { ledger.TakeBack(0, 0); }
    TakingBack(const TakingBack&) = delete;
    TakingBack& operator=(const TakingBack&) = delete;

  private:
    Ledger& ledger;
};

UndoTask::What WhatOf(UndoStep step) {
    if (step == UndoStep::TakeOff) return UndoTask::What::RemoveEntry;
    if (step == UndoStep::PutBack) return UndoTask::What::AddEntry;
    return step == UndoStep::SetBack ? UndoTask::What::SetOption : UndoTask::What::Readmit;
}

void AddTasks(std::vector<UndoTask>& tasks, const UndoItem& item) {
    if (!item.ticked || item.step == UndoStep::Nothing) return;
    UndoTask task{WhatOf(item.step), item.act,  item.name,    item.before.value_or(""),
                  item.list,         item.room, item.exchange};
    if (item.step == UndoStep::Unban) return tasks.push_back(task);
    for (const auto& entry : item.entries) {
        task.name = entry;
        tasks.push_back(task);
    }
}

} // namespace

std::vector<UndoTask> TasksOf(const UndoPlan& plan) {
    std::vector<UndoTask> tasks;
    for (const auto& item : plan.first) AddTasks(tasks, item);
    for (const auto& item : plan.items) AddTasks(tasks, item);
    return tasks;
}

UndoRun::UndoRun(Platform& platform, TillerSock& control, Doors& doors, Ledger& ledger,
                 PacedMessages& messages)
    : platform(platform), control(control), doors(doors), ledger(ledger), messages(messages),
      timer(platform.NewTimer()) {
    timer->SetInterval(Look);
    timer->onTick = [this] { Go(); };
}

bool UndoRun::Start(std::int64_t act, std::vector<UndoTask> wanted, Done whenDone) {
    if (running) return false;
    tells = false;
    done = std::move(whenDone);
    std::stable_partition(wanted.begin(), wanted.end(),
                          [](const UndoTask& step) { return step.what != UndoTask::What::Readmit; });
    steps.clear();
    for (auto& step : wanted) steps.push_back({std::move(step), UndoOutcome::Waiting, {}});
    at = 0;
    stepSince = platform.Milliseconds();
    undo = act;
    number = std::to_string(act);
    entryStands = false;
    asking = 0;
    heldUpBy.clear();
    running = true;
    timer->SetEnabled(true);
    Go();
    return true;
}

void UndoRun::Stop() {
    if (!running) return;
    for (auto step = at; step < steps.size(); ++step) steps[step].outcome = UndoOutcome::Stopped;
    End();
}

std::int64_t UndoRun::Left() const {
    const auto readmits =
        std::count_if(steps.begin() + static_cast<std::ptrdiff_t>(at), steps.end(),
                      [](const UndoneTask& step) { return step.step.what == UndoTask::What::Readmit; });
    return readmits * Pause();
}

void UndoRun::Go() {
    const CauseBreak apart(control.Tell());
    while (running && asking == 0) {
        if (at == steps.size()) return End();
        auto& step = steps[at];
        if (step.step.what == UndoTask::What::Readmit) {
            Readmit(step);
            break;
        }
        ByDoor(step);
    }
    if (running && asking != 0 && platform.Milliseconds() - askedAt >= ReplyLimit)
        Finish(UndoOutcome::Failed, "no answer came within 30 s");
}

void UndoRun::ByDoor(UndoneTask& done) {
    const auto& step = done.step;
    const CauseScope cause(control.Tell(), {.kind = CauseKind::Undo, .entry = number});
    const TakingBack scope(ledger, undo, step.act);
    bool worked = false;
    if (step.what == UndoTask::What::RemoveEntry) worked = doors.RemoveEntry(step.list, step.name);
    if (step.what == UndoTask::What::AddEntry) worked = doors.AddEntry(step.list, step.name);
    if (step.what == UndoTask::What::SetOption) worked = doors.SetOption(step.name, step.value);
    entryStands = entryStands || (!worked && step.what == UndoTask::What::RemoveEntry);
    Finish(worked ? UndoOutcome::Done : UndoOutcome::Failed, worked ? "" : "the desk didn't take it");
}

void UndoRun::Readmit(UndoneTask& done) {
    const auto& step = done.step;
    if (entryStands) return Finish(UndoOutcome::Failed, "the entry that would hit again still stands");
    const auto room = RoomOf(control, step);
    auto obstacle = Obstacle(room.get(), step);
    if (obstacle != heldUpBy) {
        heldUpBy = std::move(obstacle);
        if (onChange) onChange();
    }
    if (!heldUpBy.empty()) return;
    askedAt = platform.Milliseconds();
    listening = true;
    const CauseScope cause(control.Tell(), {.kind = CauseKind::Undo, .entry = number});
    const TakingBack scope(ledger, undo, step.act);
    const auto outcome = control.UnbanUser(step.name, BanKind::UnbanKick, room->ChatIndex);
    listening = false;
    if (outcome != BanOutcome::Asked) Finish(UndoOutcome::Failed, "the request wasn't made");
}

/// What holds the request up, in words; empty for nothing.
std::string UndoRun::Obstacle(const Chats* room, const UndoTask& step) const {
    if (!room) return "the bot is not in " + step.room;
    if (!room->IsOwner()) return "the bot doesn't own " + step.room;
    if (room->IsRated(1)) return step.room + " is rate limited";
    if (platform.Milliseconds() - stepSince < BanLimit && IsBeingBanned(control, *room, step.name))
        return "a ban of " + step.name + " is not answered yet";
    if (room->tmrBan && room->tmrBan->Enabled()) return "the ban pause of " + step.room + " runs";
    if (askedAt != 0 && platform.Milliseconds() - askedAt < Pause()) return "a pause between two requests";
    return {};
}

std::int64_t UndoRun::Pause() const {
    return std::max(ShortestPause, static_cast<std::int64_t>(control.sngBanPause * 1000));
}

void UndoRun::Finish(UndoOutcome outcome, const std::string& why) {
    asking = 0;
    auto& step = steps[at];
    step.outcome = outcome;
    step.why = why;
    if (tells && outcome == UndoOutcome::Done && step.step.what == UndoTask::What::Readmit)
        messages.Send(step.step.name, "You can come back to " + step.step.room + ".");
    ++at;
    stepSince = platform.Milliseconds();
    if (onChange) onChange();
}

void UndoRun::End() {
    running = false;
    asking = 0;
    heldUpBy.clear();
    timer->SetEnabled(false);
    if (onChange) onChange();
    if (const auto whenDone = std::exchange(done, nullptr)) whenDone(steps);
}

void UndoRun::BanWanted(std::int16_t room, std::int32_t id, BanKind, const std::string&, const std::string&) {
    if (!listening) return;
    asking = id;
    askingIn = room;
}

void UndoRun::BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) {
    if (asking == 0 || id != asking || room != askingIn) return;
    if (verdict == BanVerdict::Accepted) return Finish(UndoOutcome::Done);
    Finish(UndoOutcome::Failed, verdict == BanVerdict::NotEnforced
                                    ? "the network doesn't enforce bans"
                                    : "refused with code " + StrToHex(WordToStr(word)));
}

} // namespace halyard
