#pragma once

// Why a person is to be banned, or let in again.

namespace halyard {

/// What a confirmed one leads to stands in `oscar/BanWire.cpp`.
enum class BanKind {
    Ban,       ///< an op's "ban", or the operator's
    Unban,     ///< an op's "unban", or the operator's
    UnbanKick, ///< lets in again who was kicked, or whose time ban is over
    Kick,      ///< a ban that is lifted as soon as it is confirmed
    Autoban,   ///< a name on the autoban list came in
    Autoword,  ///< an autoword was said
    Ghost,     ///< an op's "gban"
    AutoGhost, ///< somebody spoke who isn't in the room's list
    Char,      ///< a name as long as is forbidden
    ICQ,       ///< a name of digits alone
    TimeBan,   ///< an op's "tban": it ends by itself
};

/// True for those that let in again.
constexpr bool IsReadmission(BanKind kind) { return kind == BanKind::Unban || kind == BanKind::UnbanKick; }

/// What became of a request to the desk.
enum class BanOutcome {
    Asked,   ///< it went out
    Waiting, ///< it stands in the room's queue until the ban pause is over
    Dropped, ///< there is no such room, or its rate class 1 is limited
};

} // namespace halyard
