#pragma once

// The guards that live on the bridge, since they remember or begin something by themselves; the others are
// questions that the desk asks where it stands (TillerSock::Guarded). Each asks the desk's switches whether
// it is on whenever it would act. The bridge owns the one.

#include "bridge/guards/GuardBook.h"
#include "bridge/guards/GuardHands.h"
#include "bridge/guards/RoomsAgain.h"
#include "bridge/guards/SignOffBell.h"
#include "bridge/guards/SilenceGuard.h"

namespace halyard {

class NewsFan;

class Guards {
  public:
    explicit Guards(const GuardHands& hands);
    Guards(const Guards&) = delete;
    Guards& operator=(const Guards&) = delete;

    /// All of them hear the desk by `fan`; it outlives them, or says no more by then.
    void Listen(NewsFan& fan);
    /// The switches have been set anew.
    void SwitchesChanged();

    GuardBook book;
    SignOffBell signOffs;
    SilenceGuard silence;
    RoomsAgain roomsAgain;
};

} // namespace halyard
