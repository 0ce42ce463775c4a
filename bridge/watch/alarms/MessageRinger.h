#pragma once

// Tells rings by instant message: one in ten minutes, while on line; later ones are counted in the next. And
// a line a day, if wanted. The bridge owns the one.

#include "bridge/watch/alarms/AlarmBook.h"
#include "platform/Timer.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class MessageRinger {
  public:
    static constexpr int Pause = 600'000; ///< ms between two

    struct Doors {
        std::function<bool()> online;
        std::function<void(const std::string& name, const std::string& text)> send;
        std::function<std::string()> health; ///< what the line a day says
    };
    /// `platform` outlives it.
    MessageRinger(Platform& platform, Doors doors);

    /// To whom, normalised; empty: nobody is told. With a line a day or without.
    void Take(const std::vector<std::string>& names, bool daily);
    void Hear(const Ring& ring);

  private:
    void Tick();
    void SendWaiting();
    void SendAll(const std::string& text);

    Platform& platform;
    Doors doors;
    std::vector<std::string> names;
    std::string first;            ///< of what waits
    std::size_t waiting = 0;      ///< rings
    std::int64_t nextAt = 0;      ///< ms; no message before
    std::int64_t day = 0;         ///< of the last line a day, since 1970; 0: none is wanted
    std::unique_ptr<Timer> timer; ///< runs while anybody is to be told
};

} // namespace halyard
