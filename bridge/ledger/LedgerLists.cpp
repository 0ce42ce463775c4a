// Lists and options of the ledger: single changes, and whole contents where single ones would be too many.

#include "base/Text.h"
#include "bridge/ledger/Ledger.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Options.h"

#include <algorithm>

namespace halyard {

namespace {

/// Whole contents come again after so long, so that no stretch of changes has no end.
constexpr std::int64_t WholesAge = std::int64_t{24} * 60 * 60 * 1000;

ActKind KindOf(ChangeOp op) {
    switch (op) {
    case ChangeOp::Added: return ActKind::ListAdd;
    case ChangeOp::Removed: return ActKind::ListRemove;
    case ChangeOp::Cleared: return ActKind::ListClear;
    case ChangeOp::Option: break;
    }
    return ActKind::Option;
}

bool IsPerson(ListName list, const std::string& entry) {
    return list != ListName::Autowords && entry.find('*') == std::string::npos;
}

CauseScope* LoadAround(CauseScope* scope) {
    while (scope && scope->cause.kind != CauseKind::Load) scope = scope->outer;
    return scope;
}

} // namespace

void Ledger::ListAdded(const ListId& list, const std::string& entry) {
    Changed(list, ChangeOp::Added, entry);
}

void Ledger::ListRemoved(const ListId& list, const std::string& entry) {
    Changed(list, ChangeOp::Removed, entry);
}

void Ledger::ListCleared(const ListId& list) { Changed(list, ChangeOp::Cleared, {}); }

NamedRoom Ledger::Mention(const ListKey& key, const ListId& list) {
    auto& room = mentioned[key];
    if (!room && list.list == ListName::Ejects)
        room = std::make_shared<const RoomName>(RoomName{std::string(list.room), list.exchange});
    return room;
}

/// What a file brings is one act, and whole contents at its end.
bool Ledger::TakenAsLoaded(const ListKey& key) {
    auto* scope = LoadAround(options.Control().Tell().cause);
    if (!scope) return false;
    load.cause = CauseNumber(scope);
    if (load.path.empty()) load.path = scope->cause.entry;
    if (std::find(load.lists.begin(), load.lists.end(), key) == load.lists.end()) load.lists.push_back(key);
    return true;
}

void Ledger::Changed(const ListId& list, ChangeOp op, const std::string& entry) {
    const ListKey key{list.list, NormalizeName(list.room), list.exchange};
    const auto room = Mention(key, list);
    if (list.list == ListName::Ops) watch.OpsChanged();
    if (TakenAsLoaded(key)) return;
    auto* scope = options.Control().Tell().cause;
    const auto* asked = AskedBy(scope);
    ChangeFact change;
    change.cause = CauseNumber(scope);
    change.at = platform.CalendarMilliseconds();
    change.list = list.list;
    change.op = op;
    change.room = room;
    change.entry = entry;
    if (asked) {
        change.act = asked->act;
    } else {
        auto act = NewAct(KindOf(op), change.cause);
        act.outcome = ActOutcome::Done;
        act.list = list.list;
        act.room = room;
        act.entry = entry;
        if (IsPerson(list.list, entry)) act.person = entry;
        change.act = act.number;
        AddAct(std::move(act));
        if (undoing.second != 0) queue.Add(UndoneFact{undoing.second, undoing.first});
    }
    wholesDue = change.at - wholesAt > WholesAge;
    queue.Add(std::move(change));
}

void Ledger::CauseEnded(const CauseScope& scope) {
    StillWaits();
    // Neither changes an option.
    const bool changesNothing = scope.cause.kind == CauseKind::Rule || scope.cause.kind == CauseKind::Reply;
    if (!changesNothing || load.cause != 0) OptionsChanged(scope);
    EndLoad();
    if (wholesDue) AddWholes(false);
}

void Ledger::OptionsChanged(const CauseScope& scope) {
    auto changes = watch.Look();
    if (changes.empty()) return;
    if (load.cause != 0 || scope.cause.kind == CauseKind::Load) {
        TellHeld();
        if (load.cause == 0) load.cause = CauseNumber(options.Control().Tell().cause);
        if (load.path.empty()) load.path = scope.cause.entry;
        load.lists.push_back({}); // the options
        return;
    }
    // Each key that the operator types is a change of its own: they are told as one.
    const auto fact = FactOf(scope);
    const bool typing = scope.cause.kind == CauseKind::Hand && !held.empty() &&
                        held.front().cause.entry == fact.entry && scope.number == 0;
    if (!typing) TellHeld();
    for (auto& change : changes) {
        const auto same = std::find_if(held.begin(), held.end(),
                                       [&](const auto& one) { return one.change.key == change.key; });
        if (same != held.end())
            same->change.after = std::move(change.after);
        else
            held.push_back({fact, std::move(change), platform.CalendarMilliseconds()});
    }
    if (scope.cause.kind != CauseKind::Hand || scope.number != 0) {
        heldCause = CauseNumber(options.Control().Tell().cause);
        return TellHeld();
    }
    holdTimer->SetEnabled(false);
    holdTimer->SetEnabled(true);
}

void Ledger::TellHeld() {
    holdTimer->SetEnabled(false);
    auto cause = std::exchange(heldCause, 0);
    for (auto& [fact, change, at] : std::exchange(held, {})) {
        if (change.before == change.after) continue;
        if (cause == 0) {
            fact.number = cause = ++causes;
            queue.Add(std::move(fact));
        }
        auto act = NewAct(ActKind::Option, cause);
        act.at = at;
        act.outcome = ActOutcome::Done;
        act.entry = change.key;
        ChangeFact row;
        row.at = at;
        row.act = act.number;
        row.cause = cause;
        row.op = ChangeOp::Option;
        row.entry = std::move(change.key);
        row.before = std::move(change.before);
        row.after = std::move(change.after);
        AddAct(std::move(act));
        queue.Add(std::move(row));
    }
}

void Ledger::EndLoad() {
    if (load.cause == 0) return;
    const auto ended = std::exchange(load, {});
    auto act = NewAct(ActKind::Load, ended.cause);
    act.outcome = ActOutcome::Done;
    act.entry = ended.path;
    AddAct(std::move(act));
    for (const auto& key : ended.lists) AddWhole(key.list, mentioned[key], true);
}

void Ledger::AddWhole(ListName list, const NamedRoom& room, bool begins) {
    WholeFact whole;
    whole.at = platform.CalendarMilliseconds();
    whole.list = list;
    whole.room = room;
    whole.begins = begins;
    whole.entries = list == ListName::None ? watch.Whole() : ListEntries(options, list, room);
    queue.Add(std::move(whole));
}

/// Of every list that there is, and of those that were there once in this run.
void Ledger::AddWholes(bool begins) {
    TellHeld();
    wholesDue = false;
    wholesAt = platform.CalendarMilliseconds();
    for (int list = 0; list < static_cast<int>(ListName::Ejects); ++list)
        AddWhole(static_cast<ListName>(list), nullptr, begins);
    for (const auto& ejects : options.Control().EjectLists)
        Mention({ListName::Ejects, NormalizeName(ejects->ChatName), ejects->Exchange},
                {ListName::Ejects, ejects->ChatName, ejects->Exchange});
    for (const auto& [key, room] : mentioned)
        if (key.list == ListName::Ejects) AddWhole(key.list, room, begins);
}

} // namespace halyard
