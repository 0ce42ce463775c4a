#include "surface/bridge/watch/AlarmHost.h"

#include "base/Latin1.h"
#include "bridge/ledger/reading/Moments.h"
#include "bridge/ledger/reading/Newcomers.h"
#include "commands/CommandContext.h"
#include "platform/Platform.h"
#include "surface/bridge/LedgerHost.h"
#include "surface/frmMain.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

constexpr std::int64_t AlarmDay = 86'400'000; // ms

} // namespace

AlarmHost::AlarmHost(frmMain& main, NewsFan& heard, const Truth& truth, LedgerHost& ledger,
                     std::function<void(const std::string&)> tell)
    : book(main.Context().platform), ears(main.Context().platform, main.Control().Tell(), truth, book),
      main(main), ledger(ledger), truth(truth), tell(std::move(tell)),
      messages(main.Context().platform, main.Control()), command(main.Context().platform, this->tell),
      byMessage(main.Context().platform,
                {[&main] { return main.Control().LoggedOn(); },
                 [this](const std::string& name, const std::string& text) { messages.Send(name, text); },
                 [this] { return Health(); }}) {
    Bind();
    ears.Listen(heard);
}

AlarmHost::~AlarmHost() { ledger.onHealth = nullptr; }

void AlarmHost::Bind() {
    book.onRing = [this](const Ring& ring) { Hear(ring); };
    book.onKeep = [this](const Ring& ring) {
        if (auto* parts = ledger.Open())
            parts->ledger.Keep(AlarmFact{ring.at, static_cast<int>(ring.kind), ring.subject,
                                         static_cast<int>(ring.reason), ring.words});
    };
    ears.raids.newcomersOf = [this](const RaidAlarms::Names& names, auto then) {
        AskLedger(names, std::move(then));
    };
    ledger.onHealth = [this](bool works, const std::string& words) {
        ears.files.LedgerWritten(works, words);
    };
}

void AlarmHost::Take(const AlarmTerms& terms) {
    book.SetTerms(terms);
    command.command = terms.command;
    byMessage.Take(terms.messages, terms.daily);
}

void AlarmHost::Hear(const Ring& ring) {
    const auto words = SentenceOf(ring);
    if (book.Terms().list) tell(words);
    if (book.Terms().tray) main.Context().platform.DesktopShell().Notify("Halyard", words);
    command.Hear(ring);
    byMessage.Hear(ring);
}

/// Where nothing is kept nobody is known.
void AlarmHost::AskLedger(const RaidAlarms::Names& names,
                          std::function<void(const RaidAlarms::Names&)> then) {
    auto* parts = ledger.Open();
    if (!parts || !parts->ledger.Records()) return then(names);
    const auto now = main.Context().platform.CalendarMilliseconds();
    auto found = std::make_shared<RaidAlarms::Names>();
    std::vector<std::string> asked;
    for (const auto& name : names) asked.push_back(ToUtf8(name));
    parts->ledger.Read([found, asked, today = ReadMoment(ShownDay(now), now).value_or(now)](
                           Connection& file) { *found = NewcomersOf(file, asked, today); },
                       [found, names, then = std::move(then)](const DatabaseResult& result) {
                           if (!result.Ok()) return then(names);
                           for (auto& name : *found) name = FromUtf8(name);
                           then(*found);
                       });
}

std::string AlarmHost::Health() const {
    const auto now = main.Context().platform.CalendarMilliseconds();
    const auto rang = std::ranges::count_if(book.Rang(), [now](const Ring& ring) {
        return ring.reason != RingReason::Ended && now - ring.at < AlarmDay;
    });
    std::string text = main.Control().LoggedOn() ? "on line, in " : "off line, in ";
    text += std::to_string(main.Control().Chat.Count()) +
            " rooms. Alarms of the last day: " + std::to_string(rang) + ".";
    const auto ringing = book.Ringing();
    if (ringing.empty()) return text + " None rings now.";
    text += " What rings now:";
    for (const auto& alarm : ringing)
        text += " " + std::string(TextOf(alarm.kind).words) +
                (alarm.subject.empty() ? ";" : " " + alarm.subject + ";");
    text.back() = '.';
    return text;
}

} // namespace halyard
