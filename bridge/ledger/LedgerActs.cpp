// Acts of the ledger, and what becomes of their requests.

#include "base/Text.h"
#include "bridge/ledger/Ledger.h"
#include "bridge/ledger/Texts.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Options.h"

namespace halyard {

namespace {

constexpr std::int64_t EvidenceAge = 10 * 60 * 1000; ///< ms
constexpr std::size_t EvidenceLines = 3;

ActKind KindOf(BanKind kind) {
    switch (kind) {
    case BanKind::Unban: return ActKind::Unban;
    case BanKind::UnbanKick: return ActKind::Readmit;
    case BanKind::Kick: return ActKind::Kick;
    case BanKind::TimeBan: return ActKind::TimeBan;
    default: return ActKind::Ban;
    }
}

ActOutcome OutcomeOf(BanVerdict verdict) {
    switch (verdict) {
    case BanVerdict::Accepted: return ActOutcome::Accepted;
    case BanVerdict::Refused: return ActOutcome::Refused;
    case BanVerdict::NotEnforced: break;
    }
    return ActOutcome::NotEnforced;
}

std::string Cut(std::string_view text) { return std::string(text.substr(0, LongestText)); }

} // namespace

NamedRoom Ledger::RoomAt(std::int16_t slot) {
    if (slot == 0) return nullptr;
    if (const auto known = rooms.find(slot); known != rooms.end()) return known->second;
    const auto room = options.Control().Room(slot);
    if (!room) return nullptr;
    return rooms[slot] = std::make_shared<const RoomName>(RoomName{room->ChatName, room->Exchange});
}

const Request* Ledger::AskedBy(const CauseScope* scope) {
    return scope && scope->cause.kind == CauseKind::Reply ? requests.Find(scope->cause.request) : nullptr;
}

CauseFact Ledger::FactOf(const CauseScope& scope) {
    const auto& cause = scope.cause;
    CauseFact fact;
    fact.kind = cause.kind;
    fact.rule = cause.rule;
    fact.room = RoomAt(cause.room);
    fact.who = cause.who;
    fact.line = Cut(cause.line);
    fact.reason = Cut(cause.reason);
    fact.entry = Cut(cause.entry);
    return fact;
}

/// Written when something has happened in the scope, and once; what follows from a reply has the cause of
/// what was asked for.
std::int64_t Ledger::CauseNumber(CauseScope* scope) {
    std::int64_t unknown = 0; // nobody opened a scope
    auto& number = scope ? scope->number : unknown;
    if (number != 0) return number;
    if (const auto* asked = AskedBy(scope)) return number = asked->cause;
    const auto around = scope && scope->outer ? CauseNumber(scope->outer) : 0;
    auto fact = scope ? FactOf(*scope) : CauseFact();
    fact.around = around;
    fact.number = number = ++causes;
    queue.Add(std::move(fact));
    return number;
}

ActFact Ledger::NewAct(ActKind kind, std::int64_t cause) {
    ActFact act;
    act.at = platform.CalendarMilliseconds();
    act.kind = kind;
    act.cause = cause;
    act.number = ++acts;
    act.undoes = undoing.second;
    return act;
}

void Ledger::AddAct(ActFact&& act) {
    StillWaits();
    queue.Add(std::move(act));
}

void Ledger::Step(StepFact::Step step, std::int32_t wire, const Request& request, ActOutcome outcome,
                  int code) {
    StepFact fact;
    fact.step = step;
    fact.act = request.act;
    fact.at = platform.CalendarMilliseconds();
    fact.after = platform.Milliseconds() - request.began;
    fact.room = RoomAt(request.room);
    fact.wire = wire;
    fact.outcome = outcome;
    fact.code = code;
    queue.Add(std::move(fact));
}

void Ledger::AddEvidence(std::int64_t act, const std::string& name, std::string_view caused) {
    if (!evidence) return;
    const auto since = platform.CalendarMilliseconds() - EvidenceAge;
    for (auto& line : lastLines.Of(name, since, EvidenceLines)) {
        // What caused the act stands with its cause.
        if (line.text == caused) continue;
        queue.Add(EvidenceFact{act, line.at, RoomAt(line.room), std::move(line.text)});
    }
}

/// What was wanted and didn't go out at once stands in the room's queue.
void Ledger::StillWaits() {
    if (justWanted == 0) return;
    const auto id = std::exchange(justWanted, 0);
    const auto* request = requests.Find(id);
    if (!request) return;
    auto wanted = *request;
    wanted.began = platform.Milliseconds(); // it has waited from its beginning on
    Step(StepFact::Step::Queued, id, wanted);
}

void Ledger::BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                       const std::string&) {
    auto* scope = options.Control().Tell().cause;
    const auto cause = CauseNumber(scope); // what it follows from may have the very id
    if (const auto* before = requests.Find(id); before && !before->answered)
        Step(StepFact::Step::Ended, id, *before, ActOutcome::Superseded);
    auto act = NewAct(KindOf(kind), cause);
    act.person = name;
    act.room = RoomAt(room);
    Request request;
    request.act = act.number;
    request.cause = cause;
    request.began = platform.Milliseconds();
    request.room = room;
    request.undo = undoing.first;
    request.takesBack = undoing.second;
    AddAct(std::move(act));
    requests.Add(id, request);
    justWanted = id;
    AddEvidence(request.act, name, scope ? Cut(scope->cause.line) : std::string());
}

void Ledger::BanDropped(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                        const std::string&, DropReason why) {
    StillWaits();
    const int code = static_cast<int>(why);
    if (id != 0) {
        const auto* request = requests.Find(id);
        if (!request || request->answered) return;
        Step(StepFact::Step::Ended, id, *request, ActOutcome::Dropped, code);
        return requests.Remove(id);
    }
    auto* scope = options.Control().Tell().cause;
    auto act = NewAct(KindOf(kind), CauseNumber(scope));
    act.person = name;
    act.room = RoomAt(room);
    act.outcome = ActOutcome::Dropped;
    act.code = code;
    const auto number = act.number;
    AddAct(std::move(act));
    AddEvidence(number, name, scope ? Cut(scope->cause.line) : std::string());
}

void Ledger::BanAsked(std::int16_t room, std::int32_t id, BanRequestKind, const std::string&) {
    if (justWanted == id)
        justWanted = 0;
    else
        StillWaits();
    const auto* request = requests.Find(id);
    Step(StepFact::Step::Asked, id,
         request ? *request : Request{.began = platform.Milliseconds(), .room = room});
}

void Ledger::BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) {
    StillWaits();
    const auto outcome = OutcomeOf(verdict);
    const auto* request = requests.Find(id);
    if (!request || request->answered || request->room != room)
        return Step(StepFact::Step::Answered, id, {.began = platform.Milliseconds(), .room = room}, outcome,
                    word);
    Step(StepFact::Step::Answered, id, *request, outcome, word);
    if (outcome == ActOutcome::Accepted && request->takesBack != 0)
        queue.Add(UndoneFact{request->takesBack, request->undo});
    requests.Answered(id);
}

/// All with 0.
void Ledger::EndRequests(std::int16_t room) {
    StillWaits();
    requests.EndRoom(room, [this](std::int32_t id, const Request& request) {
        Step(StepFact::Step::Ended, id, request, ActOutcome::Lost);
    });
    rooms.erase(room);
}

} // namespace halyard
