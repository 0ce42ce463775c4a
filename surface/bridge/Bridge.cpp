#include "surface/bridge/Bridge.h"

#include "base/Text.h"
#include "bridge/networks/Refusals.h"
#include "commands/CommandContext.h"
#include "platform/Platform.h"
#include "platform/Tls.h"
#include "surface/frmMain.h"
#include "surface/look/Theme.h"

#include <functional>
#include <utility>

namespace halyard {

namespace {

constexpr int WrongPassword = 5;
constexpr const char* RoastedStage = "Sending roasted login...";

bool IsSpared(const Options& options, const std::string& name) {
    const auto key = NormalizeName(name);
    return CheckCollection(key, options.Ops) || CheckCollection(key, options.Immunes);
}

} // namespace

Bridge::Bridge(frmMain& main)
    : watch(main, heard), file(main.Context().platform.FileSystem()), foot(main.Context().platform),
      chosen(main, file), check(main.Context().platform, main.Control()),
      window(main.Context(), file, chosen, foot, check), ledgerWindow(main.Context()),
      ledgerTerms(main.Context(), file),
      answers(main.Context().platform, [this](const std::string& text) { foot.Tell(text); }),
      enforcement(main.Context().platform, main.Control(),
                  {[&main](const std::string& name) { return IsSpared(main.options, name); },
                   [this](const std::string& text) { foot.Tell(text); },
                   main.Context().platform.FileSystem().BridgeFolder()}),
      ledger(main, heard, [this](const std::string& text) { foot.Tell(text); }),
      wiring(main, ledger, ledgerWindow),
      alarms(main, heard, watch.truth, ledger, [this](const std::string& text) { foot.Tell(text); }),
      alarmTerms(main.Context(), file), watchWindow(main.Context(), watch, alarms, ledger),
      watchWiring(main, watch, ledger, alarms, {foot, watchWindow, ledgerWindow}),
      guards({main.Context().platform, main.Control(), ledger.DoorsOfDesk(),
              [this](const std::string& text) { foot.Tell(text); },
              [this](const GuardAlarm& alarm) { Ring(alarm); },
              [this]() -> Ledger* { return ledger.Open() ? &ledger.Open()->ledger : nullptr; }, main.options,
              main.Engine()}),
      trueShow(main), guardsWindow(main.Context(), file), main(main) {
    BindControls();
    heard.Add(*this);
    heard.Add(answers);
    heard.Add(enforcement);
    heard.Add(check.Listener());
    guards.Listen(heard);
    heard.Add(trueShow);
    main.Control().SetNews(&heard);
}

Bridge::~Bridge() {
    main.Control().SetNews(nullptr);
    main.options.onSettingsFile = nullptr;
    main.connection.onMayLogin = nullptr;
}

void Bridge::BindControls() {
    chosen.onHappened = [this](const std::string& text) { row.Tell(text); };
    chosen.onTell = [this](const std::string& text) { foot.Tell(text); };
    chosen.onChanged = [this] { Refresh(); };
    main.options.onSettingsFile = [this](Options::FileUse use, const std::string& path) {
        chosen.Follow(use, path);
    };
    main.connection.onMayLogin = [this](ConnectionPanel::By by) { return MayLogin(by); };
    row.cmbNetwork.Click = [this](int index) {
        if (index < static_cast<int>(file.Networks().size())) chosen.Choose(row.cmbNetwork.Text());
    };
    row.cmdNetwork.Click = [this] { window.ShowAt(NetworkWindow::Ways); };
    bar.mnuNetwork.Click = [this] { window.ShowAt(NetworkWindow::Ways); };
    bar.mnuLedger.Click = [this] { ledgerWindow.Show(); };
    bar.mnuWatch.Click = [this] { watchWindow.Show(); };
    bar.mnuFootLine.Click = [this] {
        const bool seen = !file.Watch().foot;
        ShowFoot(seen);
        if (!file.SetWatch({.foot = seen})) foot.Tell("bridge.toml could not be written.");
    };
    for (auto& label : foot.lblStanding) label.Click = [this] { watchWindow.Show(); };
    bar.mnuLedgerTerms.Click = [this] { ledgerTerms.Show(); };
    bar.mnuAlarms.Click = [this] { alarmTerms.Show(); };
    alarmTerms.onApplied = [this](const AlarmTerms& terms) { alarms.Take(terms); };
    bar.mnuGuards.Click = [this] { guardsWindow.Show(); };
    guardsWindow.onApplied = [this](const GuardTerms& terms) { TakeGuards(terms); };
    guardsWindow.onCounts = [this](std::function<void(const GuardCounts&)> then) {
        guards.book.Ask(std::move(then));
    };
    guardsWindow.paused.onTakeBack = [this](const Fuse::Entry& entry, std::int64_t since) {
        return wiring.TakeBack(entry.rule, entry.text, since);
    };
    guards.bans.fuse.onChanged = [this] { guardsWindow.paused.Show(guards.bans.fuse); };
    guardsWindow.paused.onResume = [this](const Fuse::Entry& entry) { guards.bans.fuse.Resume(entry); };
    guardsWindow.onUnanswering = [this] { return guards.silence.Unanswering(); };
    ledgerTerms.onApplied = [this](const LedgerTerms& terms) {
        ledger.Take(terms);
        wiring.Reopened();
        watchWiring.Reopened();
    };
    window.management.onApplied = [this](const std::string& network) {
        if (network == chosen.OfSignOn()) Enforce(network);
    };
    window.management.onBan = [this](std::int16_t room, const std::string& name) {
        if (!enforcement.BanByHand(room, name)) foot.Tell(name + " can't be banned there now.");
    };
    enforcement.onSameAddress = [this](std::int16_t room, const std::string& name, const std::string& other) {
        window.management.AddSuspect(room, name, other);
    };
    foot.lblFoot.Click = [this] { window.ShowAt(NetworkWindow::Told); };
}

void Bridge::Start() {
    row.EachControl(Theme());
    bar.lblBridge.SetColors(Theme::ButtonBack, Theme::ButtonFore); // as the entries above it
    foot.EachControl(Theme());
    file.Load();
    for (const auto& problem : file.Problems()) foot.Tell("bridge.toml: " + problem);
    TakeGuards(file.Guards());
    alarms.Take(file.Alarms());
    ledger.Take(file.Ledger());
    wiring.Reopened();
    ShowFoot(file.Watch().foot);
    watch.samples.Start();
    watchWiring.Reopened();
    chosen.Follow(Options::FileUse::Read, {});
}

void Bridge::ShowFoot(bool seen) {
    foot.FrameFoot.SetVisible(seen);
    bar.mnuFootLine.SetCaption(seen ? "Hide Foot Line" : "Show Foot Line");
}

void Bridge::TakeGuards(const GuardTerms& terms) {
    for (std::size_t index = 0; index < DepartureCount; ++index) {
        const auto departure = static_cast<Departure>(index);
        main.Control().Switches().SetGuard(departure, terms.Of(departure));
    }
    guards.SwitchesChanged();
    trueShow.SwitchesChanged();
}

void Bridge::Ring(const GuardAlarm& alarm) {
    const auto kind = AlarmOfGuard(alarm.guard);
    if (alarm.over)
        alarms.book.End(kind, alarm.subject, alarm.words);
    else
        alarms.book.Raise(kind, alarm.subject, alarm.words);
}

void Bridge::Refresh() {
    OfferNetworks(row.cmbNetwork, file, chosen.Name());
    row.Stand(chosen.Standing());
    if (window.Loaded()) window.Refresh();
    guardsWindow.Refresh();
}

/// What a person has to set right isn't tried again by the bot, where that guard is on. Asked once.
bool Bridge::MayTryAgain() {
    if (!alarms.ears.account.NeedsPerson()) return stopsForPerson.reset(), true;
    if (!stopsForPerson) stopsForPerson = main.Control().Guarded(Departure::StopsAreStops);
    return !*stopsForPerson;
}

bool Bridge::MayLogin(ConnectionPanel::By by) {
    if (by == ConnectionPanel::By::WayBack && !MayTryAgain()) return false;
    if (!chosen.MayLogin(by)) return false;
    window.check.GiveWay();
    Enforce(chosen.OfSignOn());
    ledger.SetNetwork(chosen.OfSignOn());
    return true;
}

void Bridge::Enforce(const std::string& network) {
    const auto terms = file.Management(network);
    enforcement.SetTerms(terms);
    answers.enforcedElsewhere = alarms.ears.counts.enforcedElsewhere = terms.enforce;
}

void Bridge::SignOnStage(const std::string& text) {
    if (text == RoastedStage) chosen.BeforeRoasting();
}

void Bridge::SignOnRefused(int code, const std::string&) {
    auto words = RefusalText(RefusalKind::SignOn, code);
    if (const auto hint = chosen.SaltHint(); code == WrongPassword && !hint.empty()) words += " " + hint;
    row.Tell(words);
}

void Bridge::SignedOn(const std::string&) { row.Tell(""); }

void Bridge::SignedOffElsewhere(int reason, const std::string& page) {
    const auto words = OneLine(RefusalText(RefusalKind::SignOff, reason) + (page.empty() ? "" : " " + page));
    row.Tell(words);
    foot.Tell(words);
}

void Bridge::SocketFailed(int socket, int number, const std::string& words) {
    if (number != TlsFailed) return;
    foot.Tell(words);
    if (socket == 0) refusedByTls = words;
}

void Bridge::ConnectionEnded(int socket, const std::string&) {
    if (socket != 0) return;
    const auto tls = std::exchange(refusedByTls, {});
    row.Tell(tls.empty() ? RefusalText(RefusalKind::SignOff, -1) : tls);
}

void Bridge::RoomEntered(std::int16_t room, const std::string&, std::int16_t) {
    window.management.ForgetRoom(room);
}

/// The code is a reason of the room's where it is one, else the word of a bare error answer.
void Bridge::RoomRefused(int code, const std::string&, const std::string&) {
    const bool bare = !FindRefusal(RefusalKind::Room, code) && FindRefusal(RefusalKind::Error, code);
    row.Tell("The room is refused. " + RefusalText(bare ? RefusalKind::Error : RefusalKind::Room, code));
}

void Bridge::RateTold(std::int16_t, int code, int classId) {
    row.Tell(RefusalText(RefusalKind::Rate, code) + " Class " + std::to_string(classId) + ".");
}

} // namespace halyard
