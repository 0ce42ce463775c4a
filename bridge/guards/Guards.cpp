#include "bridge/guards/Guards.h"

#include "bridge/NewsFan.h"

namespace halyard {

Guards::Guards(const GuardHands& hands) : book(hands.platform, hands.ledger), bans(hands) {}

void Guards::Listen(NewsFan& fan) {
    fan.Add(book);
    bans.Listen(fan);
}

void Guards::SwitchesChanged() { bans.SwitchesChanged(); }

} // namespace halyard
