#pragma once

// The desk as it is at one moment, copied for a plan that is made beside the loop.

#include "bridge/ledger/reading/UndoPlan.h"

namespace halyard {

class Options;
class TillerSock;

/// Copies lists, switches and eject lists; what is asked of the copy is worked out where it is asked, by one
/// job after the other. A name that an autoword banned is hit again only by saying something, so words are
/// not looked at.
DeskNow CopyDesk(Options& options, const TillerSock& control);

} // namespace halyard
