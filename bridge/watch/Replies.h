#pragma once

// Which of a connection's own requests were answered, by the family and subtype of what goes out and comes
// in. Nothing is asked for it: it looks at what passes anyway.

#include <array>
#include <cstdint>
#include <string_view>

namespace halyard {

class Replies {
  public:
    /// A frame on channel 2 goes out. `snac` is its body, `now` in ms.
    void Sent(std::string_view snac, std::int64_t now);
    /// One came in. When it answers a request of the connection's: when that one went out; -1 otherwise.
    std::int64_t Heard(std::string_view snac) { return owed == 0 ? -1 : Find(snac); }
    bool NothingOwed() const { return owed == 0; }
    /// Something came in, whatever it was: the other end lives.
    void Lives() { silentSince = -1; }
    /// Since when something was asked that is always answered, and nothing at all came in; -1: nothing is
    /// owed.
    std::int64_t SilentSince() const { return silentSince; }

  private:
    std::int64_t Find(std::string_view snac);

    static constexpr std::size_t Kinds = 12;
    std::array<std::int64_t, Kinds> asked{}; // by kind: when it went out, 0 when it was answered
    int owed = 0;                            // how many aren't
    std::int64_t silentSince = -1;
};

} // namespace halyard
