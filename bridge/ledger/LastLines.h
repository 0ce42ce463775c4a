#pragma once

// What was said lately, in memory and of bounded bytes, so that an act upon a person can show that person's
// last lines. The ledger owns the one and fills it while its switch is on. A line costs a copy and a few
// stores: nothing is allocated.

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

class LastLines {
  public:
    static constexpr std::size_t Bytes = std::size_t{1} << 20;

    struct Line {
        std::int64_t at;
        std::int16_t room;
        std::string text;
    };

    /// Of `line` the first LongestText characters; a line of nobody is passed over.
    void Add(std::int64_t at, std::int16_t room, std::string_view name, std::string_view line);
    /// The last `count` lines of a person, in whatever spelling, said at `since` or later; the oldest first.
    std::vector<Line> Of(std::string_view name, std::int64_t since, std::size_t count) const;
    /// Gives back the memory.
    void Clear();

  private:
    struct Head {
        std::uint64_t before; ///< where the line before begins whose name falls into the same slot, plus 1
        std::int64_t at;
        std::int16_t room;
        std::uint16_t nameLength;
        std::uint16_t lineLength;
    };
    static constexpr std::size_t Slots = 2048;

    std::unique_ptr<char[]> ring;
    std::uint64_t end = 0; ///< of all that was ever added; a place is one modulo Bytes
    std::array<std::uint64_t, Slots> last{};
};

} // namespace halyard
