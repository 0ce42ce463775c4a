#include "bridge/guards/Guards.h"

#include "bridge/NewsFan.h"

namespace halyard {

Guards::Guards(const GuardHands& hands)
    : book(hands.platform, hands.control, hands.ledger), signOffs(hands), silence(hands), roomsAgain(hands) {}

void Guards::Listen(NewsFan& fan) {
    fan.Add(book);
    fan.Add(signOffs);
    fan.Add(silence);
    fan.Add(roomsAgain);
}

void Guards::SwitchesChanged() {
    silence.SwitchesChanged();
    roomsAgain.SwitchesChanged();
}

} // namespace halyard
