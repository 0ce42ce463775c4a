#include "bridge/guards/Guards.h"

#include "bridge/NewsFan.h"

namespace halyard {

Guards::Guards(const GuardHands& hands) : book(hands.platform, hands.ledger) {}

void Guards::Listen(NewsFan& fan) { fan.Add(book); }

void Guards::SwitchesChanged() {}

} // namespace halyard
