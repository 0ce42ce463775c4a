#pragma once

// Whom the bot has banned from one room. It outlives the room object, since the service keeps bans after the
// bot has left, and is matched to a room again by name and exchange. TillerSock owns all of them in
// EjectLists.

#include "base/Collection.h"

#include <cstdint>
#include <string>

namespace halyard {

class RoomHost;
struct Telling;

class EjectList {
  public:
    /// `telling` outlives it: who hears of its changes. Null for nobody.
    explicit EjectList(Telling* telling = nullptr) : telling(telling) {}

    std::int16_t Exchange = 0;
    std::int16_t Instance = 0;
    std::string ChatName;
    std::int16_t ChatColIndex =
        0;                      ///< position of the room in Chat, set only when a list is loaded from a file
    std::int16_t ChatIndex = 0; ///< socket slot of the room when the list was made or bound

    /// Adds the name in lower case without blanks; one that is there is ignored.
    void AddEject(const std::string& strUser);
    /// An absent name is ignored.
    void RemoveEject(const std::string& strUser);
    const Collection<std::string>& GetEjects() const { return Ejects; }
    void ClearEjects();
    /// It is about to be nobody's list any more: that its names are on none is told, though it keeps them.
    void TellGone() const;
    /// Asks for every ban to be lifted. Names leave the list one by one, as the service answers.
    void UnbanAll(RoomHost& host) const;
    /// True when the list is of the room with this name (compared in lower case without blanks) and exchange.
    bool IsOf(const std::string& strChatName, std::int16_t intExchange) const;

  private:
    Telling* telling;
    Collection<std::string> Ejects; // the name is both item and key
};

} // namespace halyard
