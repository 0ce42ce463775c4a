#include "bridge/ledger/reading/UndoPlan.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/reading/Standing.h"
#include "bridge/ledger/reading/Views.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace halyard {

namespace {

constexpr std::int64_t MostActs = 10'000;

/// A text of the file as the desk has it.
std::string DeskText(const std::string& utf8) {
    return FromUtf8(Replace(Replace(utf8, "\xE2\x90\x8A", "\n"), "\xE2\x90\x80", std::string_view("\0", 1)));
}

std::string ActNumber(std::int64_t act) { return "#" + std::to_string(act); }

/// Whether a person said so at that moment, and not some rule.
bool ByAPerson(CauseKind cause) {
    return cause == CauseKind::OpLine || cause == CauseKind::OpIM || cause == CauseKind::Internal ||
           cause == CauseKind::Hand;
}

bool Bans(ActKind kind) { return kind == ActKind::Ban || kind == ActKind::TimeBan; }

void AddMark(UndoItem& item, const std::string& mark) {
    item.marks += (item.marks.empty() ? "" : "; ") + mark;
}

/// Goes through the acts from the newest to the oldest, on a desk on which the newer ones are taken back
/// already.
class Planner {
  public:
    Planner(Connection& connection, const DeskNow& now) : connection(connection), now(now) {}

    UndoPlan Plan(const UndoAsk& ask) {
        auto& last = connection.Prepare("SELECT (SELECT max(id) FROM acts), (SELECT max(id) FROM changes)");
        last.Step();
        plan.lastAct = last.Integer(0);
        plan.lastChange = last.Integer(1);
        last.Reset();
        std::vector<ActRow> acts;
        for (const auto number : Numbers(ask)) {
            chosen.insert(number);
            if (auto act = ReadAct(connection, number)) acts.push_back(std::move(*act));
        }
        for (const auto& act : acts) AddStandingRule(act);
        for (const auto& act : acts)
            if (!IsFirst(act)) plan.items.push_back(ItemOf(act));
        MarkHits();
        return std::move(plan);
    }

  private:
    std::vector<std::int64_t> Numbers(const UndoAsk& ask) {
        std::vector<std::int64_t> numbers;
        if (ask.what == UndoAsk::What::Acts) {
            numbers = ask.acts;
            std::sort(numbers.begin(), numbers.end(), std::greater<>());
            numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
        } else {
            const char* sql =
                ask.what == UndoAsk::What::Op
                    ? "SELECT id FROM acts WHERE op = ?1 AND id >= ?2 ORDER BY id DESC LIMIT ?3"
                : ask.what == UndoAsk::What::Rule
                    ? "SELECT id FROM acts WHERE rule = ?1 AND id >= ?2 ORDER BY id DESC LIMIT ?3"
                    : "SELECT id FROM acts WHERE run = ?1 AND id >= ?2 ORDER BY id DESC LIMIT ?3";
            const auto first = FirstActSince(connection, ask.since);
            auto& rows = connection.Prepare(sql).Bind(1, ask.row).Bind(2, first).Bind(3, MostActs + 1);
            while (rows.Step()) numbers.push_back(rows.Integer(0));
            rows.Reset();
        }
        plan.more = numbers.size() > static_cast<std::size_t>(MostActs);
        if (plan.more) numbers.resize(static_cast<std::size_t>(MostActs));
        return numbers;
    }

    /// The rule that caused the act comes first, when its entry still stands.
    void AddStandingRule(const ActRow& act) {
        const auto list = ListOf(act.ruleKind);
        if (act.causeKind != CauseKind::Rule || list == ListName::None || !rulesSeen.insert(act.rule).second)
            return;
        const ListEntry entry{list, DeskText(act.ruleEntry)};
        if (!now.holds(entry)) return;
        UndoItem item;
        item.step = UndoStep::TakeOff;
        item.ticked = item.mayTick = true;
        item.list = list;
        item.entries = {entry.entry};
        for (const auto& place : StandsOn(connection, act.ruleEntry, 0))
            if (place.list == list) item.act = place.act;
        item.words = "takes " + EntryName(act.ruleEntry) + " off " + ListWord(list);
        going.push_back(entry);
        Turn(entry, false);
        plan.first.push_back(std::move(item));
    }

    bool IsFirst(const ActRow& act) const {
        return std::any_of(plan.first.begin(), plan.first.end(),
                           [&](const UndoItem& item) { return item.act == act.number; });
    }

    UndoItem ItemOf(const ActRow& act) {
        UndoItem item;
        item.act = act.number;
        item.person = act.person;
        if (act.undone != 0) return Nothing(item, "taken back already by " + ActNumber(act.undone));
        switch (act.kind) {
        case ActKind::Ban:
        case ActKind::TimeBan: return BanItem(item, act);
        case ActKind::Kick: return Nothing(item, "a kick can't be taken back");
        case ActKind::Unban:
        case ActKind::Readmit: return Nothing(item, "who was let in again isn't put out by taking that back");
        case ActKind::ListAdd:
        case ActKind::ListRemove:
        case ActKind::ListClear: return ListItem(item, act);
        case ActKind::Option: return OptionItem(item, act);
        case ActKind::Load: return Nothing(item, "what a file brought can't be taken back");
        case ActKind::Undo: return Nothing(item, "it took back itself");
        case ActKind::Answer: return Nothing(item, "a line that was said can't be taken back");
        case ActKind::Appeal:
        case ActKind::Note:
        case ActKind::Forget:
        case ActKind::Guard: break;
        }
        return Nothing(item, "this can't be taken back");
    }

    static UndoItem Nothing(UndoItem item, const std::string& why) {
        item.step = UndoStep::Nothing;
        item.ticked = item.mayTick = false;
        item.words = why;
        item.marks.clear();
        return item;
    }

    UndoItem BanItem(UndoItem item, const ActRow& act) {
        item.waits = act.outcome == ActOutcome::Open;
        if (act.personKey.empty()) return Nothing(item, act.personName + " has no name any more");
        if (!item.waits && act.outcome != ActOutcome::Accepted && act.outcome != ActOutcome::Lost)
            return Nothing(item, "it never took effect: " + act.outcomeWords);
        item.name = DeskText(act.personKey);
        item.room = DeskText(act.roomName);
        item.exchange = act.exchange;
        if (!item.waits && !now.isOut(item.room, item.exchange, item.name))
            return Nothing(item,
                           act.personName + " isn't on the eject list of " + act.roomName + " any more");
        item.step = UndoStep::Unban;
        item.ticked = item.mayTick = true;
        item.words = "lets " + act.personName + " in again in " + act.roomName;
        if (item.waits) item.words += " once the ban is answered";
        if (const auto why = LaterActs(item, act); !why.empty()) return Nothing(item, why);
        MarkEarlier(item, act);
        if (now.isLocked(item.name)) {
            item.ticked = false;
            AddMark(item, "Lock Bans holds the name");
        }
        return item;
    }

    /// Once it is known which entries go.
    void MarkHits() {
        for (auto& item : plan.items) {
            if (item.step != UndoStep::Unban) continue;
            const auto again = now.hits(item.name, going);
            if (!again.empty()) AddMark(item, "would be banned again by " + again);
        }
    }

    /// What became of the person in that room since; why nothing is left to do, where that is so.
    std::string LaterActs(UndoItem& item, const ActRow& act) {
        auto& rows =
            connection.Prepare("SELECT a.id, a.kind, c.kind, u.kind, u.entry, w.spelled FROM acts a"
                               " LEFT JOIN causes c ON c.id = a.cause LEFT JOIN rules u ON u.id = a.rule"
                               " LEFT JOIN persons w ON w.id = a.op"
                               " WHERE a.person = ?1 AND a.id > ?2 AND a.room = ?3 AND a.kind IN (1, 2, 4, 5)"
                               " AND a.outcome IN (0, 1) AND a.undone IS NULL ORDER BY a.id");
        rows.Bind(1, act.person).Bind(2, act.number).Bind(3, act.room);
        std::string done;
        while (done.empty() && rows.Step()) {
            const auto later = rows.Integer(0);
            if (!Bans(static_cast<ActKind>(rows.Integer(1)))) {
                done = "let in again since, by " + ActNumber(later);
            } else if (chosen.count(later) != 0) {
                done = "goes with " + ActNumber(later);
            } else if (ByAPerson(static_cast<CauseKind>(rows.Integer(2)))) {
                item.ticked = item.mayTick = false;
                AddMark(item, "banned since by " + (rows.IsNull(5) ? "the operator" : rows.Text(5)) + " (" +
                                  ActNumber(later) + ")");
            } else {
                item.ticked = false;
                const auto rule = RuleName(static_cast<RuleKind>(rows.Integer(3)), rows.Text(4));
                AddMark(item, "banned since by " + (rule.empty() ? "the bot" : rule) + " (" +
                                  ActNumber(later) + ")");
            }
        }
        rows.Reset();
        return done;
    }

    /// A person's own ban that stood before is left to that person, too.
    void MarkEarlier(UndoItem& item, const ActRow& act) {
        auto& row =
            connection.Prepare("SELECT a.id, a.kind, c.kind, w.spelled FROM acts a LEFT JOIN causes c ON"
                               " c.id = a.cause LEFT JOIN persons w ON w.id = a.op WHERE a.person = ?1 AND"
                               " a.id < ?2 AND a.room = ?3 AND a.kind IN (1, 2, 4, 5) AND a.outcome = 1 AND"
                               " a.undone IS NULL ORDER BY a.id DESC LIMIT 1");
        row.Bind(1, act.person).Bind(2, act.number).Bind(3, act.room);
        if (row.Step() && Bans(static_cast<ActKind>(row.Integer(1))) &&
            ByAPerson(static_cast<CauseKind>(row.Integer(2))) && chosen.count(row.Integer(0)) == 0) {
            item.ticked = false;
            AddMark(item, "banned before by " + (row.IsNull(3) ? "the operator" : row.Text(3)) + " (" +
                              ActNumber(row.Integer(0)) + ")");
        }
        row.Reset();
    }

    UndoItem ListItem(UndoItem item, const ActRow& act) {
        item.list = act.list;
        if (act.outcome != ActOutcome::Done && act.outcome != ActOutcome::Accepted)
            return Nothing(item, "it never took effect: " + act.outcomeWords);
        if (act.list == ListName::Ejects)
            return Nothing(item, "an eject list follows the service's answers; take back the ban");
        const std::string list = ListWord(act.list);
        if (act.kind == ActKind::ListClear) return ClearItem(item, act);
        const ListEntry entry{act.list, DeskText(act.entry)};
        const bool added = act.kind == ActKind::ListAdd;
        const auto name = EntryName(act.entry);
        if (Stands(entry) != added)
            return Nothing(item, name + (added ? " isn't on " : " is on ") + list +
                                     (added ? " any more" : " again"));
        item.step = added ? UndoStep::TakeOff : UndoStep::PutBack;
        item.entries = {entry.entry};
        item.words = added ? "takes " + name + " off " + list : "puts " + name + " back on " + list;
        item.ticked = item.mayTick = true;
        Turn(entry, !added);
        if (added) going.push_back(entry);
        return item;
    }

    UndoItem ClearItem(UndoItem item, const ActRow& act) {
        auto& row =
            connection.Prepare("SELECT id FROM changes WHERE act = ?1 AND op = 3").Bind(1, act.number);
        const auto change = row.Step() ? row.Integer(0) : 0;
        row.Reset();
        for (const auto& entry : ContentBefore(connection, act.list, change)) {
            const ListEntry was{act.list, DeskText(entry)};
            if (Stands(was)) continue;
            item.entries.push_back(was.entry);
            Turn(was, true);
        }
        if (item.entries.empty())
            return Nothing(item, std::string("nothing is missing on ") + ListWord(act.list));
        item.step = UndoStep::PutBack;
        item.words = "puts " + std::to_string(item.entries.size()) +
                     (item.entries.size() == 1 ? " entry" : " entries") + " back on " + ListWord(act.list);
        item.ticked = item.mayTick = true;
        return item;
    }

    UndoItem OptionItem(UndoItem item, const ActRow& act) {
        auto& row = connection.Prepare("SELECT before, after FROM changes WHERE act = ?1 AND op = 4");
        if (!row.Bind(1, act.number).Step()) return Nothing(item, "its value from before isn't known");
        const auto value = [&](int column) {
            return row.IsNull(column) ? std::nullopt : std::optional(DeskText(row.Text(column)));
        };
        item.before = value(0);
        const auto after = value(1);
        row.Reset();
        const auto key = DeskText(act.entry);
        item.entries = {key};
        const auto known = options.find(key);
        const auto is = known != options.end() ? known->second : now.option(key);
        if (is == item.before) return Nothing(item, act.entry + " is as it was");
        item.step = UndoStep::SetBack;
        item.mayTick = true;
        item.ticked = is == after;
        if (!item.ticked)
            AddMark(item, "changed since, to " + (is ? "\"" + ToUtf8(*is) + "\"" : std::string("nothing")));
        item.words = "sets " + act.entry + " back to " +
                     (item.before ? "\"" + ToUtf8(*item.before) + "\"" : std::string("nothing"));
        if (item.ticked) options[key] = item.before;
        return item;
    }

    bool Stands(const ListEntry& entry) const {
        const auto turned = turns.find({entry.list, entry.entry});
        return turned != turns.end() ? turned->second : now.holds(entry);
    }
    void Turn(const ListEntry& entry, bool stands) { turns[{entry.list, entry.entry}] = stands; }

    Connection& connection;
    const DeskNow& now;
    UndoPlan plan;
    std::unordered_set<std::int64_t> chosen;
    std::unordered_set<std::int64_t> rulesSeen;
    std::vector<ListEntry> going;                           // entries that the plan takes off
    std::map<std::pair<ListName, std::string>, bool> turns; // entries that newer steps put on or took off
    std::unordered_map<std::string, std::optional<std::string>> options; // what newer steps set back
};

std::string LineOf(const UndoItem& item) {
    const auto marks = item.marks.empty() ? std::string() : " (" + item.marks + ")";
    return (item.act == 0 ? std::string() : ActNumber(item.act) + " ") + item.words + marks;
}

void CompareItems(const std::vector<UndoItem>& shown, const std::vector<UndoItem>& now,
                  std::vector<std::string>& told) {
    // Lines of plan.first without an act are told apart by what they say.
    const auto keyOf = [](const UndoItem& item) { return item.act == 0 ? item.words : ActNumber(item.act); };
    std::unordered_map<std::string, const UndoItem*> before;
    for (const auto& item : shown) before[keyOf(item)] = &item;
    for (const auto& item : now) {
        const auto found = before.find(keyOf(item));
        if (found == before.end()) {
            told.push_back("new: " + LineOf(item));
            continue;
        }
        if (LineOf(*found->second) != LineOf(item))
            told.push_back("was: " + LineOf(*found->second) + "; is now: " + LineOf(item));
        before.erase(found);
    }
    for (const auto& item : shown)
        if (before.count(keyOf(item)) != 0) told.push_back("gone: " + LineOf(item));
}

} // namespace

UndoPlan PlanUndo(Connection& connection, const UndoAsk& ask, const DeskNow& now) {
    return Planner(connection, now).Plan(ask);
}

std::vector<std::string> Difference(const UndoPlan& shown, const UndoPlan& now) {
    std::vector<std::string> told;
    CompareItems(shown.first, now.first, told);
    CompareItems(shown.items, now.items, told);
    return told;
}

} // namespace halyard
