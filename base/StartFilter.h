#pragma once

// Where in a text one of many patterns may begin: by the first four characters of those that have as many,
// and by all of the shorter ones. The text is taken as it is: one bit tells most capitals from their small
// letters and isn't looked at, and the others are marked both ways.

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace halyard {

class StartFilter {
  public:
    /// With room for so many patterns; more of them make it let more positions pass, never fewer.
    explicit StartFilter(std::size_t patterns = 0);

    /// `pattern` is in lower case. An empty one begins at the start of every text, and isn't looked for
    /// behind it.
    void Mark(std::string_view pattern);
    /// The first position from `from` on, counted from 0, at which a marked pattern may begin, upper and
    /// lower case alike; behind the text's size when there is none. It may let pass what begins none.
    std::size_t Next(std::string_view text, std::size_t from) const;

  private:
    static constexpr std::size_t Whole = 4; ///< characters of a start

    void MarkFrom(std::array<char, Whole>& start, std::size_t at, std::size_t size);
    void MarkStart(std::string_view start);
    bool IsShort(std::string_view text, std::size_t at) const;

    std::vector<std::uint8_t> fours;   ///< 1 at the places of starts of four characters; a power of two
    std::array<bool, Whole> shorter{}; ///< by their length: there are patterns that short
    std::bitset<256> ones;
    std::vector<bool> twos;
    std::vector<bool> threes; ///< by a number that a few starts share
};

} // namespace halyard
