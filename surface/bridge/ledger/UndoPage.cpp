#include "surface/bridge/ledger/UndoPage.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/reading/Moments.h"
#include "platform/Platform.h"
#include "surface/bridge/ledger/ActText.h"
#include "surface/look/ControlArrays.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr const char* NoDesk = "Acts can't be taken back now: no ledger is open.";

/// "14:05" of a moment in full.
std::string ClockTime(std::int64_t moment) { return Mid(ShownMoment(moment), 12, 5); }

TableBox::Line LineOf(const UndoItem& item, bool isFirst) {
    const auto number = item.act == 0 ? std::string() : "#" + std::to_string(item.act);
    return {{isFirst ? "first" + (number.empty() ? "" : ", " + number) : number, Readable(item.words),
             Readable(item.marks)},
            !item.mayTick ? TableBox::Tick::None
            : item.ticked ? TableBox::Tick::On
                          : TableBox::Tick::Off};
}

bool SameStep(const UndoItem& one, const UndoItem& other) {
    return one.act == other.act && one.step == other.step && one.entries == other.entries;
}

/// What a person ticked stays so where it still may be.
void KeepTicks(const std::vector<UndoItem>& from, std::vector<UndoItem>& to) {
    for (auto& item : to) {
        const auto before = std::find_if(from.begin(), from.end(),
                                         [&item](const UndoItem& other) { return SameStep(item, other); });
        if (before != from.end() && before->mayTick && item.mayTick) item.ticked = before->ticked;
    }
}

} // namespace

UndoPage::UndoPage(const SurfaceContext& context, LedgerHooks& hooks)
    : context(context), hooks(hooks), question(hooks.read) {
    FrameUndo.SetVisible(false);
    cmdStop.SetEnabled(false);
    optWhat.Click = [this](int) { Preview(); };
    txtSince.KeyPress = [this](int key) {
        if (key == EnterKey) Preview();
    };
    cmdPreview.Click = [this] { Preview(); };
    cmdCarryOut.Click = [this] { CarryOut(); };
    cmdStop.Click = [this] {
        if (this->hooks.stop) this->hooks.stop();
    };
    cmdActs.Click = [this] {
        if (onLeave) onLeave();
    };
    tblPlan.Ticked = [this](int index) {
        ItemAt(index).ticked = tblPlan.At(index).tick == TableBox::Tick::On;
        SayTicks();
    };
    SayTicks();
}

void UndoPage::Open(std::vector<std::int64_t> wanted, std::optional<ActRow> act) {
    if (running) return; // what is carried out stays in sight
    acts = std::move(wanted);
    chosen = std::move(act);
    if (chosen) txtSince.SetText(ShownDay(chosen->at));
    const auto before = optWhat.Index();
    optWhat.Select(acts.empty() ? 1 : 0);
    if (optWhat.Index() == before) Preview();
}

std::string UndoPage::Whose() const {
    switch (optWhat.Index()) {
    case 0: return Counted(static_cast<std::int64_t>(acts.size()), "act") + " chosen";
    case 1: return chosen ? Readable(chosen->opName) : "";
    case 2: return chosen && chosen->rule != 0 ? Readable(RuleName(chosen->ruleKind, chosen->ruleEntry)) : "";
    default: return chosen ? "The run of #" + std::to_string(chosen->number) : "";
    }
}

/// Returns what is missing.
std::string UndoPage::Asked(UndoAsk& what) const {
    what.what = static_cast<UndoAsk::What>(optWhat.Index());
    if (what.what == UndoAsk::What::Acts) {
        what.acts = acts;
        return acts.empty() ? "Tick acts first, or choose one." : "";
    }
    if (!chosen) return "Choose an act first: it says which op, entry and run are meant.";
    what.row = what.what == UndoAsk::What::Op     ? chosen->op
               : what.what == UndoAsk::What::Rule ? chosen->rule
                                                  : chosen->run;
    if (what.row == 0)
        return what.what == UndoAsk::What::Op ? "No op stands behind the chosen act."
                                              : "No entry stands behind the chosen act.";
    const auto since = ReadMoment(Trim(txtSince.Text()), context.platform.CalendarMilliseconds());
    if (!since) return "Since when? \"2d\", \"2026-11-23\" or \"2026-11-23T14:05\".";
    what.since = *since;
    return {};
}

void UndoPage::Preview() {
    question.Drop();
    shown = false;
    plan = {};
    tblPlan.SetAll({});
    txtMoved.SetText("");
    lblOf.SetCaption(Whose());
    const bool bySince = optWhat.Index() != 0;
    txtSince.SetEnabled(bySince);
    ask = {};
    if (const auto missing = Asked(ask); !missing.empty()) return Say(missing);
    if (!hooks.desk || !hooks.read) return Say(NoDesk);
    Say("Finding out\x85");
    question.Ask([what = ask,
                  desk = hooks.desk()](Connection& connection) { return PlanUndo(connection, what, desk); },
                 [this](const DatabaseResult& result, const UndoPlan& found) {
                     if (!result.Ok()) return Say(Readable(result.words));
                     Took(found);
                 });
}

void UndoPage::Took(const UndoPlan& found) {
    plan = found;
    shown = true;
    std::vector<TableBox::Line> lines;
    for (const auto& item : plan.first) lines.push_back(LineOf(item, true));
    for (const auto& item : plan.items) lines.push_back(LineOf(item, false));
    tblPlan.SetAll(std::move(lines));
    SayTicks();
}

UndoItem& UndoPage::ItemAt(int index) {
    const auto at = static_cast<std::size_t>(index);
    return at < plan.first.size() ? plan.first[at] : plan.items[at - plan.first.size()];
}

void UndoPage::SayTicks() {
    const auto ticked = static_cast<std::int64_t>(tblPlan.TickedLines().size());
    cmdCarryOut.SetEnabled(shown && !running && ticked > 0 && hooks.carryOut);
    cmdPreview.SetEnabled(!running);
    optWhat.SetEnabled(!running);
    if (!shown) return;
    lblPlan.SetCaption(Counted(ticked, "") + " of " + Counted(tblPlan.Count(), "step") + " ticked" +
                       (plan.more ? "; there are older acts, which come next." : "."));
}

/// Words in the place of a plan.
void UndoPage::Say(const std::string& words) {
    SayTicks();
    lblPlan.SetCaption(words);
}

/// Finds out anew; only what is as it was shown is carried out.
void UndoPage::CarryOut() {
    if (!hooks.desk || !hooks.read) return Say(NoDesk);
    cmdCarryOut.SetEnabled(false);
    struct Found {
        UndoPlan plan;
        std::vector<std::string> moved;
    };
    question.Ask(
        [what = ask, desk = hooks.desk(), before = plan](Connection& connection) {
            Found found;
            found.plan = PlanUndo(connection, what, desk);
            found.moved = Difference(before, found.plan);
            return found;
        },
        [this](const DatabaseResult& result, Found found) {
            if (!result.Ok()) return Say(Readable(result.words));
            KeepTicks(plan.first, found.plan.first);
            KeepTicks(plan.items, found.plan.items);
            if (!found.moved.empty()) return ShowMoved(found.plan, found.moved);
            plan = std::move(found.plan);
            const auto whyNot = hooks.carryOut(plan, ask, chkTell.Value() == 1);
            if (!whyNot.empty()) Say(whyNot);
        });
}

void UndoPage::ShowMoved(const UndoPlan& now, const std::vector<std::string>& moved) {
    Took(now);
    std::string words = "Since the preview:\r\n";
    for (const auto& line : moved) words += Readable(line) + "\r\n";
    txtMoved.SetText(words);
    lblPlan.SetCaption(lblPlan.Caption() + " The world has moved on: look, then carry out again.");
}

void UndoPage::Show(const UndoProgress& progress) {
    running = progress.running;
    gaugeUndo.Show(progress.done, progress.all);
    auto words = std::to_string(progress.done) + " of " + std::to_string(progress.all);
    if (running && progress.ends != 0) words += ", ends about " + ClockTime(progress.ends);
    if (running && !progress.held.empty()) words += "; waits: " + progress.held;
    if (!running) words += ", " + std::to_string(progress.failures.size()) + " failed.";
    lblProgress.SetCaption(words);
    std::string failures;
    for (const auto& failure : progress.failures) failures += failure + "\r\n";
    if (!failures.empty()) txtMoved.SetText("Failed:\r\n" + failures);
    cmdStop.SetEnabled(running);
    SayTicks();
    if (!running && onUndone) onUndone();
}

} // namespace halyard
