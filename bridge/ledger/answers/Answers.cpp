#include "bridge/ledger/answers/Answers.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/Ledger.h"
#include "bridge/ledger/answers/AnswerTexts.h"
#include "bridge/ledger/answers/PacedMessages.h"
#include "bridge/ledger/undo/DeskCopy.h"
#include "bridge/ledger/undo/UndoRun.h"
#include "commands/CommandContext.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Options.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr const char* NoLedger = "The ledger isn't open.";

std::string Unreadable(const DatabaseResult& result) { return "The ledger can't be read: " + result.words; }

/// The command whose digit an act takes; CcomCount for one that no command does.
int CcomOf(const ActRow& act) {
    if (act.kind == ActKind::TimeBan) return CcomTban;
    if (act.kind == ActKind::Ban) {
        if (act.ruleKind == RuleKind::Autoban) return CcomAb;
        if (act.ruleKind == RuleKind::Autoword) return CcomAw;
        return CcomBan;
    }
    const bool added = act.kind == ActKind::ListAdd;
    if (!added && act.kind != ActKind::ListRemove) return CcomCount;
    switch (act.list) {
    case ListName::Ops: return added ? CcomOp : CcomUnop;
    case ListName::Immunes: return added ? CcomImm : CcomUnimm;
    case ListName::Autobans: return added ? CcomAb : CcomUnab;
    case ListName::Autowords: return added ? CcomAw : CcomUnaw;
    case ListName::LockOps: return added ? CcomLop : CcomUop;
    case ListName::LockImms: return added ? CcomLimm : CcomUimm;
    case ListName::LockBans: return added ? CcomLban : CcomUban;
    default: return CcomCount;
    }
}

/// The op on whose command something is done; empty when it is nobody's.
std::string_view OpOf(const CauseScope* scope) {
    for (; scope; scope = scope->outer)
        if (scope->cause.kind == CauseKind::OpLine || scope->cause.kind == CauseKind::OpIM)
            return scope->cause.who;
    return {};
}

std::string Outcome(const std::vector<UndoneTask>& tasks, std::int64_t act) {
    const auto failed =
        std::ranges::find_if(tasks, [](const UndoneTask& task) { return task.outcome != UndoOutcome::Done; });
    const auto number = "#" + std::to_string(act);
    if (failed == tasks.end()) return number + " is taken back.";
    return number + " is not taken back: " + (failed->why.empty() ? "it was stopped" : failed->why) + ".";
}

} // namespace

Answers::Answers(Platform& platform, Options& options, Ledger& ledger, UndoRun& undo, PacedMessages& messages)
    : platform(platform), options(options), ledger(ledger), undo(undo), messages(messages) {}

void Answers::MessagePassedOver(const std::string& name, const std::string& message) {
    if (!on || !CheckCollection(NormalizeName(name), options.Ops)) return;
    const auto ask = ReadAsk(message);
    if (!ask) return;
    const CauseScope asked(options.Control().Tell(), {.kind = CauseKind::OpIM, .who = name, .line = message});
    constexpr const char* words[] = {"why", "last", "undo", "note", "health"};
    ledger.Tell({.kind = ActKind::Answer, .person = name, .entry = words[static_cast<int>(ask->what)]});
    Answer(name, *ask);
}

void Answers::Answer(const std::string& op, const Ask& ask) {
    switch (ask.what) {
    case Ask::What::Why: return Why(op, ask.name);
    case Ask::What::Last: return Last(op, ask.count);
    case Ask::What::Undo: return Undo(op, ask);
    case Ask::What::Note: return Note(op, ask);
    case Ask::What::Health: return Say(op, Health());
    }
}

void Answers::Say(const std::string& op, const std::string& text) { messages.Send(op, text); }

void Answers::Look(const std::string& op, std::function<std::string(Connection&)> look) {
    auto text = std::make_shared<std::string>();
    ledger.Read([text, look = std::move(look)](Connection& connection) { *text = look(connection); },
                [this, op, text, alive = std::weak_ptr(life)](const DatabaseResult& result) {
                    if (alive.expired()) return;
                    Say(op, result.Ok() ? FromUtf8(*text) : Unreadable(result));
                });
}

void Answers::Why(const std::string& op, const std::string& person) {
    Look(op, [name = ToUtf8(person)](Connection& connection) { return WhyText(connection, name); });
}

void Answers::Last(const std::string& op, int count) {
    Look(op,
         [name = ToUtf8(op), count](Connection& connection) { return LastText(connection, name, count); });
}

void Answers::Note(const std::string& op, const Ask& ask) {
    const auto number = ledger.AddNote(NoteKind::Note, ask.name, op, ask.text);
    Say(op, number == 0 ? NoLedger : "Noted, #" + std::to_string(number) + ".");
}

void Answers::Undo(const std::string& op, const Ask& ask) {
    struct Found {
        std::optional<ActRow> act;
        UndoPlan plan;
    };
    auto found = std::make_shared<Found>();
    ledger.Read(
        [found, ask, name = ToUtf8(op), person = ToUtf8(ask.name),
         now = CopyDesk(options, options.Control())](Connection& connection) {
            found->act = ask.act != 0 ? ReadAct(connection, ask.act) : LastToUndo(connection, name, person);
            if (found->act)
                found->plan =
                    PlanUndo(connection, {.what = UndoAsk::What::Acts, .acts = {found->act->number}}, now);
        },
        [this, op, found, alive = std::weak_ptr(life)](const DatabaseResult& result) {
            if (alive.expired()) return;
            if (!result.Ok()) return Say(op, Unreadable(result));
            if (!found->act) return Say(op, "There is nothing to take back.");
            CarryOut(op, *found->act, std::move(found->plan));
        });
}

bool Answers::MayUndo(const std::string& op, const ActRow& act) const {
    const auto& perms = options.Perms.Item(NormalizeName(op));
    const int ccom = CcomOf(act);
    // What no command does, the operator alone takes back.
    return ccom != CcomCount && CheckCollection(NormalizeName(op), options.Ops) &&
           CommandAllowed(perms, ccom);
}

void Answers::CarryOut(const std::string& op, const ActRow& act, UndoPlan plan) {
    if (!MayUndo(op, act)) return Say(op, "You can't take back #" + std::to_string(act.number) + ".");
    plan.first.clear(); // a rule stays the operator's: this op asked for one act
    const auto tasks = TasksOf(plan);
    if (tasks.empty()) {
        const auto why = plan.items.empty() ? "" : FromUtf8(plan.items.front().words);
        return Say(op, "#" + std::to_string(act.number) + " can't be taken back: " + why);
    }
    if (undo.Running()) return Say(op, "Another undo is under way.");
    const CauseScope asked(options.Control().Tell(), {.kind = CauseKind::OpIM, .who = op});
    const auto number = ledger.Tell({.kind = ActKind::Undo, .person = FromUtf8(act.personName)});
    undo.Start(number, tasks, [this, op, taken = act.number, alive = std::weak_ptr(life)](const auto& done) {
        if (!alive.expired()) Say(op, Outcome(done, taken));
    });
}

std::string Answers::Health() const {
    const auto& control = options.Control();
    std::string text = "On line as " + control.SignOnName() + ". ";
    for (const auto& room : control.Chat) {
        text += room->ChatName + ": " + std::to_string(room->PeopleHere.Count()) + " people, " +
                (room->IsOwner() ? "owner" : "not the owner");
        if (room->IsRated(1)) text += ", banning is limited";
        if (room->IsRated(5)) text += ", talking is limited";
        const auto waiting = room->BanQueue.Count();
        if (waiting > 0) text += ", " + std::to_string(waiting) + " bans wait";
        text += ". ";
    }
    if (control.Chat.Count() == 0) text += "In no room. ";
    return Trim(text + (onHealth ? onHealth() : ""));
}

void Answers::BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                        const std::string&) {
    opBans.erase(id);
    if (!on || IsReadmission(kind)) return;
    if (const auto op = OpOf(options.Control().Tell().cause); !op.empty())
        opBans.emplace(id, OpBan{room, std::string(op), name});
}

void Answers::BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int) {
    const auto found = opBans.find(id);
    if (found == opBans.end() || found->second.room != room) return;
    const auto ban = std::move(found->second);
    opBans.erase(found);
    if (!on || verdict == BanVerdict::Accepted) return;
    const auto now = platform.Milliseconds();
    const auto told = refusalTold.find(room);
    if (told != refusalTold.end() && now - told->second < RefusalPause) return;
    refusalTold[room] = now;
    const auto joined = options.Control().Room(room);
    Say(ban.op, ban.person + " is not banned from " + (joined ? joined->ChatName : "the room") +
                    (verdict == BanVerdict::Refused ? ": the network refused it."
                                                    : ": the network doesn't enforce bans."));
}

void Answers::SignedOff() {
    opBans.clear();
    refusalTold.clear();
}

} // namespace halyard
