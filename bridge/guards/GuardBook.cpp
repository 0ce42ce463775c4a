#include "bridge/guards/GuardBook.h"

#include "bridge/guards/GuardScope.h"
#include "bridge/ledger/Ledger.h"
#include "oscar/Departures.h"
#include "platform/Platform.h"

#include <string_view>
#include <utility>

namespace halyard {

namespace {

constexpr std::int64_t DaySeconds = 86'400;

void CountRow(GuardCounts& counts, std::string_view name, bool acted, std::int64_t count) {
    for (std::size_t index = 0; index < DepartureCount; ++index) {
        if (name != TextOf(static_cast<Departure>(index)).name) continue;
        (acted ? counts[index].acted : counts[index].wouldHave) += count;
    }
}

} // namespace

GuardBook::GuardBook(Platform& platform, TillerSock& control, std::function<Ledger*()> ledger)
    : platform(platform), control(control), ledger(std::move(ledger)), timer(platform.NewTimer()) {
    timer->onTick = [this] { Flush(); };
    timer->SetInterval(Pause);
}

GuardBook::~GuardBook() { Flush(); }

std::int64_t GuardBook::Today() { return platform.CalendarSeconds() / DaySeconds; }

void GuardBook::GuardAsked(Departure guard, bool acts, std::int16_t room, const std::string& who) {
    ++waiting[{Today(), guard, acts}];
    timer->SetEnabled(true);
    if (acts) TellAct(guard, room, who);
}

void GuardBook::TellAct(Departure guard, std::int16_t room, const std::string& who) {
    auto& next = nextAct[static_cast<std::size_t>(guard)];
    const auto now = platform.Milliseconds();
    auto* book = OpenLedger();
    if (!book || now < next) return;
    next = now + Pause;
    const GuardScope scope(control, guard, room, who);
    book->Tell({.kind = ActKind::Guard, .person = who, .entry = TextOf(guard).name});
}

/// While its file isn't open, a ledger passes over what it is told, or may yet.
Ledger* GuardBook::OpenLedger() const {
    auto* book = ledger();
    return book && book->Records() ? book : nullptr;
}

void GuardBook::Flush() {
    timer->SetEnabled(false);
    if (auto* book = OpenLedger()) {
        for (const auto& [place, count] : waiting) {
            const auto& [day, guard, acted] = place;
            book->Keep(GuardFact{day, TextOf(guard).name, acted, count});
        }
        waiting.clear();
    }
    while (!waiting.empty() && std::get<0>(waiting.begin()->first) <= Today() - Days)
        waiting.erase(waiting.begin());
}

void GuardBook::AddWaiting(GuardCounts& counts) {
    for (const auto& [place, count] : waiting) {
        const auto& [day, guard, acted] = place;
        if (day <= Today() - Days) continue;
        auto& counted = counts[static_cast<std::size_t>(guard)];
        (acted ? counted.acted : counted.wouldHave) += count;
    }
}

void GuardBook::Ask(std::function<void(const GuardCounts&)> then) {
    Flush();
    auto counts = std::make_shared<GuardCounts>();
    auto* book = OpenLedger();
    if (!book) {
        AddWaiting(*counts);
        return then(*counts);
    }
    const auto since = Today() - Days;
    book->Read(
        [counts, since](Connection& connection) {
            auto& rows = connection.Prepare("SELECT guard, acted, sum(count) FROM guard_counts WHERE day > ? "
                                            "GROUP BY guard, acted");
            rows.Bind(1, since);
            while (rows.Step()) CountRow(*counts, rows.Text(0), rows.Integer(1) != 0, rows.Integer(2));
            rows.Reset();
        },
        [this, counts, then = std::move(then), alive = std::weak_ptr(life)](const DatabaseResult&) {
            if (alive.expired()) return;
            AddWaiting(*counts);
            then(*counts);
        });
}

} // namespace halyard
