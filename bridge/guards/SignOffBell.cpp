#include "bridge/guards/SignOffBell.h"

#include "bridge/networks/Refusals.h"

namespace halyard {

void SignOffBell::GuardAsked(Departure guard, bool acts, std::int16_t, const std::string&) {
    if (guard == Departure::MainSignOffs) pending = acts;
}

void SignOffBell::SignedOffElsewhere(int reason, const std::string& page) {
    Ring(RefusalText(RefusalKind::SignOff, reason) + (page.empty() ? "" : " " + page));
}

void SignOffBell::ConnectionEnded(int socket, const std::string&) {
    if (socket == 0 && pending) Ring("The service has ended the main connection and given no reason.");
}

void SignOffBell::SignedOn(const std::string& name) {
    pending = false;
    if (!ringing) return;
    ringing = false;
    hands.raise({Departure::MainSignOffs, {}, name + " is signed on again.", true});
}

void SignOffBell::Ring(const std::string& words) {
    pending = false;
    ringing = true;
    hands.raise({Departure::MainSignOffs, {}, words});
}

} // namespace halyard
