#include "surface/bridge/LedgerWiring.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/undo/DeskCopy.h"
#include "platform/Platform.h"
#include "surface/bridge/LedgerHost.h"
#include "surface/frmMain.h"

#include <utility>

namespace halyard {

namespace {

constexpr const char* NoLedger = "No ledger is open.";
constexpr const char* NotNow = "That can't be done there now: the room isn't open, or banning is limited.";

std::string WordsOf(const UndoAsk& ask) {
    switch (ask.what) {
    case UndoAsk::What::Acts: break;
    case UndoAsk::What::Op: return "everything of an op";
    case UndoAsk::What::Rule: return "everything of an entry";
    case UndoAsk::What::Run: return "everything of a run";
    }
    return ask.acts.size() == 1 ? "#" + std::to_string(ask.acts.front())
                                : std::to_string(ask.acts.size()) + " acts";
}

std::string Failure(const UndoneTask& task) {
    return task.step.name + (task.why.empty() ? ": stopped" : ": " + task.why);
}

} // namespace

LedgerWiring::LedgerWiring(frmMain& main, LedgerHost& desk, LedgerWindow& window)
    : main(main), desk(desk), window(window) {
    FillReading();
    FillDoors();
    FillUndo();
}

void LedgerWiring::Reopened() {
    auto& hooks = window.hooks;
    auto* parts = desk.Open();
    if (!parts) {
        hooks.read = nullptr;
        return window.Reopened();
    }
    hooks.read = [this](Database::Job job, Database::Done done) -> std::shared_ptr<ReadTicket> {
        auto* open = desk.Open();
        if (auto* records = open ? open->ledger.Records() : nullptr)
            return records->Read(std::move(job), std::move(done));
        done({DatabaseFault::Failed, NoLedger});
        return nullptr;
    };
    parts->ledger.onWritten = [this] { window.Written(); };
    parts->undo.onChange = [this] { ShowProgress(); };
    window.Reopened();
}

void LedgerWiring::WithName(std::int64_t person, std::function<void(const std::string&)> then) {
    auto* parts = desk.Open();
    if (!parts) return then("");
    auto key = std::make_shared<std::string>();
    parts->ledger.Read(
        [key, person](Connection& connection) {
            if (const auto page = ReadPerson(connection, person)) *key = page->key;
        },
        [key, then = std::move(then), alive = std::weak_ptr(life)](const DatabaseResult&) {
            if (!alive.expired()) then(FromUtf8(*key));
        });
}

void LedgerWiring::FillReading() {
    auto& hooks = window.hooks;
    hooks.addNote = [this](std::int64_t person, const std::string& text, const LedgerHooks::Told& told) {
        WithName(person, [this, text, told](const std::string& name) {
            auto* parts = desk.Open();
            if (!parts || name.empty()) return told(parts ? "This person is forgotten." : NoLedger);
            const auto number = parts->ledger.AddNote(NoteKind::Note, name, {}, text);
            parts->ledger.Flush();
            told(number == 0 ? NoLedger : "Noted, #" + std::to_string(number) + ".");
        });
    };
    hooks.forget = [this](std::int64_t person, const LedgerHooks::Told& told) {
        WithName(person, [this, told](const std::string& name) {
            auto* parts = desk.Open();
            if (!parts || name.empty()) return told(parts ? "This person is forgotten." : NoLedger);
            parts->keeper.Forget(name, [told](ForgetOutcome outcome, const std::string& failure) {
                if (!failure.empty()) return told("Not forgotten: " + failure);
                if (outcome == ForgetOutcome::OnEjectList)
                    return told("Not forgotten: the person stands on an eject list.");
                told(outcome == ForgetOutcome::Unknown ? "Nothing was known." : "Forgotten.");
            });
        });
    };
    hooks.backUp = [this](const std::string& path, const LedgerHooks::Told& told) {
        auto* parts = desk.Open();
        if (!parts) return told(NoLedger);
        parts->keeper.BackUp(path, [told, path](const std::string& failure) {
            told(failure.empty() ? "Backed up to " + path + "." : "Not backed up: " + failure);
        });
    };
}

void LedgerWiring::FillDoors() {
    auto& hooks = window.hooks;
    hooks.rooms = [this] {
        std::vector<std::pair<std::int16_t, std::string>> rooms;
        for (const auto& room : main.Control().Chat) rooms.emplace_back(room->ChatIndex, room->ChatName);
        return rooms;
    };
    hooks.roomsOf = [this](const std::string& name) {
        std::vector<std::string> rooms;
        for (const auto& room : main.Control().Chat)
            if (!room->PeopleHere.Item(NormalizeName(name)).empty()) rooms.push_back(room->ChatName);
        return rooms;
    };
    hooks.ban = [this](std::int16_t room, const std::string& name) {
        return desk.DoorsOfDesk().Ban(room, name) == BanOutcome::Dropped ? NotNow : "";
    };
    hooks.unban = [this](std::int16_t room, const std::string& name) {
        return desk.DoorsOfDesk().Unban(room, name) == BanOutcome::Dropped ? NotNow : "";
    };
    hooks.immune = [this](const std::string& name) {
        return desk.DoorsOfDesk().AddEntry(ListName::Immunes, NormalizeName(name))
                   ? ""
                   : "The desk didn't take it.";
    };
}

void LedgerWiring::FillUndo() {
    auto& hooks = window.hooks;
    hooks.desk = [this] { return CopyDesk(main.options, main.Control()); };
    hooks.carryOut = [this](const UndoPlan& plan, const UndoAsk& ask, bool tell) {
        return CarryOut(plan, ask, tell);
    };
    hooks.stop = [this] {
        if (auto* parts = desk.Open()) parts->undo.Stop();
    };
}

std::string LedgerWiring::CarryOut(const UndoPlan& plan, const UndoAsk& ask, bool tell) {
    auto* parts = desk.Open();
    if (!parts) return NoLedger;
    if (parts->undo.Running()) return "Another undo is under way.";
    auto tasks = TasksOf(plan);
    if (tasks.empty()) return "Nothing is ticked.";
    const auto act = parts->ledger.Tell({.kind = ActKind::Undo, .entry = WordsOf(ask)});
    parts->undo.Start(act, std::move(tasks), {});
    parts->undo.TellPersons(tell);
    ShowProgress();
    return {};
}

std::string LedgerWiring::TakeBack(RuleKind rule, const std::string& entry, std::int64_t since) {
    auto* parts = desk.Open();
    if (!parts) return NoLedger;
    if (parts->undo.Running()) return "Another undo is under way.";
    struct Found {
        UndoAsk ask;
        UndoPlan plan;
    };
    const auto found = std::make_shared<Found>();
    found->ask.what = UndoAsk::What::Rule;
    found->ask.since = since;
    parts->ledger.Read(
        [found, rule, entry, now = CopyDesk(main.options, main.Control())](Connection& connection) {
            auto& row = connection.Prepare("SELECT id FROM rules WHERE kind = ?1 AND entry = ?2");
            row.Bind(1, static_cast<std::int64_t>(rule)).Bind(2, ToUtf8(entry));
            if (row.Step()) found->ask.row = row.Integer(0);
            row.Reset();
            if (found->ask.row != 0) found->plan = PlanUndo(connection, found->ask, now);
        },
        [this, found, alive = std::weak_ptr(life)](const DatabaseResult& result) {
            if (alive.expired() || !result.Ok()) return;
            // The entry pauses, so that it hits nobody again.
            for (auto& item : found->plan.first) item.ticked = false;
            for (auto& item : found->plan.items) item.ticked = item.mayTick;
            CarryOut(found->plan, found->ask, false);
        });
    return {};
}

void LedgerWiring::ShowProgress() {
    const auto* parts = desk.Open();
    if (!parts) return;
    const auto& run = parts->undo;
    UndoProgress progress;
    progress.running = run.Running();
    progress.done = static_cast<int>(run.Finished());
    progress.all = static_cast<int>(run.Steps().size());
    progress.ends = main.Context().platform.CalendarMilliseconds() + run.Left();
    progress.held = run.HeldUpBy();
    for (const auto& task : run.Steps())
        if (task.outcome == UndoOutcome::Failed || task.outcome == UndoOutcome::Stopped)
            progress.failures.push_back(Failure(task));
    window.undo.Show(progress);
}

} // namespace halyard
