#pragma once

// Checks that no room hears lines of one class closer together than the class's pause. The templates of a run
// carry a mark by which a line tells its class, whatever else the bot may think of it.

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace halyard {

class TillerSock;

/// Puts the mark of its class before every template that has none: '1' to '3', and "~".
void MarkTemplates(TillerSock& control);

class PacingWatch {
  public:
    /// A line went out on a stream at a moment in ms. False when it came too early.
    bool Heard(std::uint64_t stream, std::string_view line, std::int64_t now);
    /// A new stay in a room begins with no pause running.
    void Ended(std::uint64_t stream) { last.erase(stream); }

  private:
    std::map<std::uint64_t, std::array<std::int64_t, 4>> last; ///< of each class; 0 before the first
};

} // namespace halyard
