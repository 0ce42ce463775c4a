#include "bridge/watch/alarms/AccountAlarms.h"

#include "bridge/networks/Refusals.h"
#include "bridge/watch/Truth.h"
#include "bridge/watch/alarms/AlarmBook.h"
#include "bridge/watch/alarms/AlarmOrders.h"
#include "platform/Platform.h"

#include <algorithm>
#include <array>
#include <utility>

namespace halyard {

namespace {

/// Those that the same name and password meet again until a person does something about it.
bool IsForPerson(int code) {
    constexpr std::array codes{0x01, 0x04, 0x05, 0x07, 0x08, 0x09, 0x11, 0x20, 0x22};
    return std::ranges::find(codes, code) != codes.end();
}

} // namespace

void AccountAlarms::SignOnBegun(const std::string& /*name*/) {
    if (!comeback && !wanted) offSince = platform.Milliseconds();
    if (!comeback) wanted = true; // else it goes on coming back, whether still wanted or not
    attempt = platform.Milliseconds();
    if (IsOrderedByHand(telling)) needsPerson = false;
}

void AccountAlarms::SignOnRefused(int code, const std::string& /*text*/) {
    attempt = -1;
    GoOff();
    why = RefusalText(RefusalKind::SignOn, code);
    if (!IsForPerson(code)) return;
    needsPerson = true;
    if (wanted) book.Raise(AlarmKind::NeedsYou, {}, why);
}

void AccountAlarms::SignedOn(const std::string& name) {
    wanted = online = true;
    needsPerson = false;
    attempt = -1;
    why.clear();
    for (const auto kind : {AlarmKind::NeedsYou, AlarmKind::GivenUp, AlarmKind::OffLine})
        book.End(kind, {}, name + " is on line.");
}

void AccountAlarms::SignedOff() {
    attempt = -1;
    GoOff();
    if (!IsOrderedByHand(telling)) return;
    wanted = false;
    for (const auto kind : {AlarmKind::NeedsYou, AlarmKind::GivenUp, AlarmKind::OffLine}) book.Withdraw(kind);
}

void AccountAlarms::SignedOffElsewhere(int reason, const std::string& page) {
    GoOff();
    why = RefusalText(RefusalKind::SignOff, reason) + (page.empty() ? "" : " " + page);
}

void AccountAlarms::ConnectionEnded(int socket, const std::string& text) {
    if (socket != 0) return;
    attempt = -1;
    GoOff();
    // Another slot of the service's may have given a lost one its name.
    if (why.empty()) why = text.starts_with("The service") ? text : "The connection to the service is lost.";
}

void AccountAlarms::GoOff() {
    if (std::exchange(online, false)) offSince = platform.Milliseconds();
}

/// A move to another server, or a late answer to an earlier sign-on, may never come to its end.
void AccountAlarms::LookAtMain(std::int64_t now) {
    const auto& main = truth.Main();
    if (main.stage == Stage::On) {
        if (std::exchange(mainOffSince, -1) >= 0)
            book.End(AlarmKind::OffLine, {}, "The main connection stands again.");
        return;
    }
    if (mainOffSince < 0) mainOffSince = now;
    const auto minutes = book.Terms().Of(AlarmKind::OffLine).minutes;
    if (now - mainOffSince >= std::int64_t{minutes} * 60'000)
        book.Raise(AlarmKind::OffLine, {}, "For " + std::to_string(minutes) + " minutes. " + main.words);
}

void AccountAlarms::Look() {
    const auto now = platform.Milliseconds();
    if (online) return LookAtMain(now);
    mainOffSince = -1;
    if (!wanted) return;
    if (attempt >= 0 && now - attempt < LongestAttempt) return;
    const auto reason = why.empty() ? "" : " " + why;
    if (book.Fires(AlarmKind::NeedsYou, {})) return; // which says it already, as the next
    if (!comeback) book.Raise(AlarmKind::GivenUp, {}, "Nothing tries to come back on line." + reason);
    if (book.Fires(AlarmKind::GivenUp, {})) return;
    const auto minutes = book.Terms().Of(AlarmKind::OffLine).minutes;
    if (now - offSince >= std::int64_t{minutes} * 60'000)
        book.Raise(AlarmKind::OffLine, {}, "For " + std::to_string(minutes) + " minutes." + reason);
}

} // namespace halyard
