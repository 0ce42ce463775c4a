#pragma once

// Compares what the watch says with the engine's own state after every event, and with the service's once the
// network has been quiet for long enough. It doesn't look at words, at what was heard, nor at who is to blame
// for what waits.

#include "soak/watch/ForecastWatch.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace halyard {

class Chats;
class PracticeNetwork;
class Truth;
class frmMain;
struct RoomTruth;

class TruthWatch {
  public:
    /// All outlive it. `bot` is the bot's name on the service.
    TruthWatch(frmMain& window, const PracticeNetwork& network, const Truth& truth, std::string bot);

    /// From this moment on until the next one the service's view counts, ms.
    void Trust(std::int64_t from) { trusted = from; }
    /// After an event. What is untrue; empty when nothing is.
    std::string Check(std::int64_t now);

    /// How many rooms a guard waits to enter; empty: the desk's own queue counts.
    std::function<std::size_t()> awaitedByGuard;
    ForecastWatch forecast; ///< News too: it hears what the watch hears, behind it

  private:
    std::string CheckAccount(std::int64_t now) const;
    std::string CheckNavigation() const;
    std::string CheckRoom(const Chats& room, std::int64_t now);
    std::string CheckWaiting(const Chats& room, const RoomTruth& said);
    std::string CheckPauses(const Chats& room, const RoomTruth& said, std::int64_t now) const;
    std::string CheckService(std::int64_t now);

    frmMain& window;
    const PracticeNetwork& network;
    const Truth& truth;
    const std::string bot;
    std::int64_t trusted = 0;
    std::int64_t differsSince = -1;                                     // from the service
    std::map<std::int16_t, std::pair<std::size_t, std::size_t>> counts; // of what waited, by room
};

} // namespace halyard
