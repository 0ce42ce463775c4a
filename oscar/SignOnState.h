#pragma once

// The small parts of the protocol control's state, each emptied as a whole by a reset.

#include "base/Collection.h"
#include "platform/Tls.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace halyard {

/// Who signs on, and how far it has come.
struct SignOnState {
    std::string strLoginName; ///< as given, then as the server formats it
    std::string strLoginPassword;
    std::string strLoginEmail;
    std::string strAuthHost;
    std::string strPeer;         ///< the auth server's address
    std::optional<TlsTerms> tls; ///< those of the auth server; nothing: the whole session is plain
    bool OnAuthServer = false;
    bool LoggedOn = false;
    bool UseMD5Reply = true;
    bool LoginInvisible = false; ///< stored and otherwise unused
    bool ServerPaused = false;
    std::int64_t MessagesRatedUntil = 0; ///< ms; with Departure::RateClassesAsTold no message goes out before
    std::array<std::string, 7> ICBMParameters; ///< 0004 0005, sent back by 0004 0002
};

/// A room that somebody wants to be in.
struct RoomWish {
    std::string strName;
    std::int16_t intExchange = 0;
    std::int16_t intInstance = 0;
};

/// Where the next connection goes, and what it serves.
struct ServiceState {
    std::string strServiceHost;
    std::int32_t lngServicePort = 0;
    std::string strServiceCookie;
    std::string strServiceFamily; ///< four hex digits
    Collection<std::string> ServiceVersions;
    RoomWish wish; ///< the room that a connection of family 000E was asked for
};

/// Which socket serves what; 0 is none, which for BOS is also its socket.
struct ServiceSlots {
    int BOSIndex = 0;
    int ChatNavIndex = 0;
    int AdminIndex = 0;
    int IconIndex = 0;
    int EmailIndex = 0;
    int FreeSockIndex = 0; ///< chosen for a redirect; 0 at rest
};

/// The one room that is being asked for.
struct RoomRequest {
    std::string strJoinName;
    std::int16_t intJoinExchange = 0;
    std::int16_t intJoinInstance = 0;
    std::string strJoinCookie;
    bool ChatNavPending = false; ///< navigation is being brought up
    bool JoinPending = false;
    int creationsUnanswered = 0; ///< on the navigation connection that stands
    bool underWay = false;       ///< asked for, and neither opened nor refused
    int tries = 0;
};

/// What the account's list on the service says of privacy and presence (family 0013).
struct PresenceState {
    std::int16_t PrivacyItemID = 0;
    std::int16_t PresenceItemID = 0;
    std::int16_t PrivacyLevel = 0;
    bool AllowIdle = false;
    bool AllowTyping = false;
    bool AllowMobile = false;
};

} // namespace halyard
