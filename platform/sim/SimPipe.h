#pragma once

// One direction of a simulated connection: bytes under way from one socket to another, in order, and how the
// stream ends. Owned by its SimConnection.

#include "platform/sim/SimClock.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace halyard {

class SimConnection;
class SimSocket;

class SimPipe {
  public:
    enum class Ending { None, Closed, Reset };

    explicit SimPipe(SimConnection& connection) : connection(connection) {}
    SimPipe(const SimPipe&) = delete;
    SimPipe& operator=(const SimPipe&) = delete;

    SimSocket* sender = nullptr;
    SimSocket* receiver = nullptr;

    void Send(std::string_view bytes);
    /// The stream ends behind what was sent; with Reset at once, and what is under way is lost.
    void End(Ending how);
    Ending Ended() const { return ending; }
    /// What was sent finds no answer: the sender hears of it.
    void GiveUp();

  private:
    struct Segment {
        std::int64_t due;
        std::size_t length;
    };

    std::size_t UnderWay() const { return bytes.size() - delivered; }
    std::int64_t NextDue();
    void Schedule();
    void Pump();
    std::string TakeDue();
    std::string Take(std::size_t count);
    void Watch();

    SimConnection& connection;
    std::string bytes;            // sent; the first `delivered` of them have arrived
    std::size_t delivered = 0;    // cut off now and then, so that a long stream is not moved at every step
    std::deque<Segment> segments; // of what is under way
    Ending ending = Ending::None;
    std::int64_t endDue = 0;
    std::int64_t lastDue = 0;
    std::int64_t heldUntil = 0; // the rest of a cut delivery
    SimClock::Ticket pump;
    SimClock::Ticket giveUp;
};

} // namespace halyard
