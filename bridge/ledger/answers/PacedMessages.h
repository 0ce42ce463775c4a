#pragma once

// Instant messages of the bridge's own: one at a time, seconds apart, so that no answer costs the account its
// pace.

#include "platform/Timer.h"

#include <deque>
#include <memory>
#include <string>
#include <string_view>

namespace halyard {

class Platform;
class TillerSock;

class PacedMessages {
  public:
    static constexpr int Pause = 3000; ///< ms between two of them
    static constexpr std::size_t MostWaiting = 50;
    static constexpr std::size_t Longest = 900; ///< characters of the text, without what HTML makes of it

    /// Both outlive it.
    PacedMessages(Platform& platform, TillerSock& control);

    /// Plain text, Windows-1252: what HTML would take for its own is escaped, what is too long is cut with
    /// "…". False, and nothing is sent, when too many wait already. What waits is lost when the bot isn't on
    /// line.
    bool Send(const std::string& name, std::string_view text);

  private:
    void SendNext();

    struct Message {
        std::string name, html;
    };
    TillerSock& control;
    std::deque<Message> waiting;
    std::unique_ptr<Timer> pause; ///< runs while the next one has to wait
};

} // namespace halyard
