#include "surface/bridge/ledger/LedgerWindow.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/reading/Moments.h"
#include "platform/Platform.h"
#include "surface/look/ControlArrays.h"

#include <variant>

namespace halyard {

namespace {

constexpr std::size_t MostBefore = 50;

} // namespace

LedgerWindow::LedgerWindow(const SurfaceContext& context)
    : Opened(context), list(hooks.read), person(context, hooks), op(context.platform, hooks.read),
      rule(hooks.read), undo(context, hooks), evidence(hooks.read),
      exporting(context.platform.FileSystem(), hooks.read) {
    form.SetVisible(false);
    BindButtons();
    list.onChosen = [this] { Chosen(); };
    list.tblActs.KeyDown = [this](int key) { Key(key); };
    list.tblActs.DblClick = [this] { cmdPerson.Press(); };
    person.onHappened = [this](const std::string& words) { Tell(words); };
    exporting.onTell = [this](const std::string& words) { Tell(words); };
    op.onGo = [this](std::int64_t row, const std::string& name) { Go({Op, row, name, look.search}); };
    rule.onGo = [this](std::int64_t row, const std::string& name) { Go({Rule, row, name, look.search}); };
    undo.onUndone = [this] { list.Refresh(); };
    undo.onLeave = [this] { ShowPage(false); };
    Chosen();
}

void LedgerWindow::BindButtons() {
    optSide.Click = [this](int side) {
        if (!taking) GoSide(static_cast<Side>(side));
    };
    const auto enter = [this](int key) {
        if (key == EnterKey) Typed();
    };
    txtWho.KeyPress = enter;
    txtSearch.KeyPress = enter;
    cmdSearch.Click = [this] { Typed(); };
    cmdBack.Click = [this] { Back(); };
    cmdPerson.Click = [this] { GoSide(Person); };
    cmdOp.Click = [this] { GoSide(Op); };
    cmdRule.Click = [this] { GoSide(Rule); };
    cmdPerson.ToolTip = "P in the acts";
    cmdOp.ToolTip = "O in the acts";
    cmdRule.ToolTip = "R in the acts";
    cmdBack.ToolTip = "Backspace in the acts";
    cmdUndo.ToolTip = "U in the acts";
    cmdUndo.Click = [this] { Undo(); };
    cmdCopy.Click = [this] { Copy(); };
    cmdExport.Click = [this] { Export(); };
    cmdBackUp.Click = [this] { BackUp(); };
}

void LedgerWindow::Fill() {
    ShowPage(false);
    Tell("");
    cmdBackUp.SetEnabled(static_cast<bool>(hooks.backUp));
    Take(look);
}

void LedgerWindow::Written() {
    if (Loaded()) list.Written();
}

void LedgerWindow::Reopened() {
    if (Loaded()) Fill();
}

void LedgerWindow::ShowPerson(const std::string& name) {
    if (!Loaded()) Show();
    Go({Person, 0, ToUtf8(name), {}});
    Show();
}

void LedgerWindow::ShowBetween(std::int64_t since, std::int64_t until) {
    if (!Loaded()) Show();
    ShowPage(false);
    Go({All, 0, {}, "since:" + WrittenMoment(since) + " until:" + WrittenMoment(until)});
    Show();
}

void LedgerWindow::Go(const Look& wanted) {
    auto here = look;
    here.place = list.Here();
    if (!Take(wanted)) return;
    before.push_back(std::move(here));
    if (before.size() > MostBefore) before.erase(before.begin());
    cmdBack.SetEnabled(true);
}

void LedgerWindow::Back() {
    if (before.empty()) return;
    const auto last = before.back();
    before.pop_back();
    Take(last);
}

/// False, and only the mistake is shown, when the search has one.
bool LedgerWindow::Take(const Look& wanted) {
    const auto text = ToUtf8(wanted.search);
    auto read = ReadSearch(text, context.platform.CalendarMilliseconds());
    if (const auto* mistake = std::get_if<SearchMistake>(&read)) {
        const auto place = FromUtf8(std::string_view(text).substr(0, mistake->place)).size();
        lblMistake.SetCaption("At character " + std::to_string(place + 1) + ": " + Readable(mistake->words));
        if (onMistake) onMistake(static_cast<int>(place));
        return false;
    }
    auto search = std::get<Search>(read);
    look = wanted;
    taking = true;
    optSide.Select(look.side);
    txtWho.SetText(FromUtf8(look.who));
    txtSearch.SetText(look.search);
    taking = false;
    lblMistake.SetCaption("");
    lblWho.SetCaption(look.side == Rule ? "Entry" : "Name");
    txtWho.SetEnabled(look.side != All);
    cmdBack.SetEnabled(!before.empty());
    FrameSide.SetVisible(look.side != All);
    person.FramePerson.SetVisible(look.side == Person);
    op.FrameOp.SetVisible(look.side == Op);
    rule.FrameRule.SetVisible(look.side == Rule);
    if (look.side == Person) search.personRow = look.row, person.Show(look.row, look.who);
    if (look.side == Op) search.opRow = look.row, op.Show(look.row, look.who);
    if (look.side == Rule) search.ruleRow = look.row, rule.Show(look.row, look.who);
    if (look.row == 0) {
        if (look.side == Person) search.person = look.who;
        if (look.side == Op) search.op = look.who;
        if (look.side == Rule) search.rule = RuleSearch(look.who);
    }
    if (look.side != All && look.row == 0 && look.who.empty())
        list.Clear("Whose acts?");
    else
        list.List(search, look.place);
    return true;
}

/// What stands in the boxes.
void LedgerWindow::Typed() {
    Look wanted{static_cast<Side>(optSide.Index()), 0, ToUtf8(Trim(txtWho.Text())), txtSearch.Text()};
    if (wanted.side == All) wanted.who.clear();
    if (wanted.who == look.who) wanted.row = look.row;
    Go(wanted);
}

/// The chosen act's person, op or rule; with none, whoever is asked for by name.
void LedgerWindow::GoSide(Side side) {
    Look wanted{side, 0, {}, look.search};
    if (const auto* act = list.Chosen()) {
        if (side == Person) wanted.row = act->person, wanted.who = act->personName;
        if (side == Op) wanted.row = act->op, wanted.who = act->opName;
        if (side == Rule && act->rule != 0)
            wanted.row = act->rule, wanted.who = RuleName(act->ruleKind, act->ruleEntry);
    }
    Go(wanted);
}

void LedgerWindow::Chosen() {
    const auto* act = list.Chosen();
    cmdPerson.SetEnabled(act && act->person != 0);
    cmdOp.SetEnabled(act && act->op != 0);
    cmdRule.SetEnabled(act && act->rule != 0);
    evidence.Drop();
    if (!act) return txtAct.SetText("");
    const auto words = ActDetail(*act);
    txtAct.SetText(words);
    evidence.Ask([number = act->number](Connection& connection) { return ReadEvidence(connection, number); },
                 [this, words](const DatabaseResult& result, const std::vector<EvidenceLine>& lines) {
                     if (result.Ok()) txtAct.SetText(words + EvidenceWords(lines));
                 });
}

void LedgerWindow::Key(int key) {
    switch (key) {
    case 'P': return cmdPerson.Press();
    case 'O': return cmdOp.Press();
    case 'R': return cmdRule.Press();
    case 'U': return cmdUndo.Press();
    case TableBox::BackKey: return cmdBack.Press();
    case TableBox::CopyKey: return cmdCopy.Press();
    case TableBox::HomeKey: return list.Home();
    default: break;
    }
}

void LedgerWindow::ShowPage(bool ofUndo) {
    FrameActs.SetVisible(!ofUndo);
    undo.FrameUndo.SetVisible(ofUndo);
}

void LedgerWindow::Undo() {
    const auto* act = list.Chosen();
    auto acts = list.Ticked();
    std::optional<ActRow> chosen;
    if (act) chosen = *act;
    if (acts.empty() && act) acts.push_back(act->number);
    ShowPage(true);
    undo.Open(std::move(acts), std::move(chosen));
}

void LedgerWindow::Copy() {
    const auto text = list.Copied();
    if (text.empty()) return Tell("Tick acts first, or choose one.");
    context.platform.DesktopShell().Copy(text);
    Tell("Copied.");
}

void LedgerWindow::Export() {
    auto& files = context.platform.FileSystem();
    const auto path = context.platform.Boxes().Save(
        "Export", "CSV (*.csv)|*.csv|JSON Lines (*.jsonl)|*.jsonl|", files.ProgramFolder());
    if (path) exporting.Start(list.Asked(), *path);
}

void LedgerWindow::BackUp() {
    const auto path = context.platform.Boxes().Save("Back up", "Ledger (*.db)|*.db|",
                                                    context.platform.FileSystem().ProgramFolder());
    if (!path) return;
    Tell("Backing up\x85");
    hooks.backUp(*path, [this](const std::string& words) {
        Tell(words.empty() ? "The ledger is backed up." : words);
    });
}

} // namespace halyard
