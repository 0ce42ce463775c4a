#pragma once

// The guards of bans and of whom they hit, as far as they live on the bridge. Guards owns the one.

#include "bridge/guards/GuardHands.h"
#include "bridge/guards/bans/BansKept.h"
#include "bridge/guards/bans/Fuse.h"
#include "bridge/guards/bans/GuardsFile.h"
#include "bridge/guards/bans/PartTeller.h"
#include "bridge/guards/bans/TimeBanKeeper.h"

namespace halyard {

class NewsFan;

class BanGuards {
  public:
    explicit BanGuards(const GuardHands& hands);
    ~BanGuards();
    BanGuards(const BanGuards&) = delete;
    BanGuards& operator=(const BanGuards&) = delete;

    void Listen(NewsFan& fan);
    void SwitchesChanged();

  private:
    GuardHands hands;
    GuardsFile file;

  public:
    BansKept kept;
    TimeBanKeeper timeBans;
    Fuse fuse;

  private:
    PartTeller parts;
};

} // namespace halyard
