#include "bridge/guards/bans/BanGuards.h"

#include "bridge/NewsFan.h"
#include "commands/CommandEngine.h"
#include "oscar/TillerSock.h"

namespace halyard {

BanGuards::BanGuards(const GuardHands& hands)
    : hands(hands), file(hands.platform), kept(hands.platform, hands.control, hands.options),
      timeBans(hands.platform, hands.control, file), fuse(hands, file), parts(hands) {
    file.onTrouble = [this](const std::string& words) {
        const bool over = words.empty();
        this->hands.raise({.guard = Departure::TimeBansAreKept,
                           .words = over ? "What guards remember is kept again."
                                         : "What guards remember isn't kept over a restart: " + words + ".",
                           .over = over});
    };
    hands.engine.SetFuse(&fuse);
}

BanGuards::~BanGuards() { hands.engine.SetFuse(nullptr); }

void BanGuards::Listen(NewsFan& fan) {
    fan.Add(kept);
    fan.Add(timeBans);
    fan.Add(parts);
}

void BanGuards::SwitchesChanged() {
    timeBans.SwitchesChanged();
    const auto& control = hands.control;
    // A file of an earlier run is opened as well, for what is no guard's any more to be let go.
    if (!control.Departs(Departure::TimeBansAreKept) && !control.Departs(Departure::RunawayFuse) &&
        !file.Stands())
        return;
    file.Open([this](const GuardsFile::Rows& rows) {
        timeBans.Restore(rows);
        fuse.Restore(rows);
    });
}

} // namespace halyard
