#pragma once

// Which rate class a service counts a request in, as its answer 0001 0007 tells.

#include <cstdint>
#include <map>
#include <string_view>

namespace halyard {

class RateTable {
  public:
    /// Reads the body of 0001 0007: a count of classes; for each its id and 28 bytes of figures, 33 where the
    /// service tells the long form; then for each class its id, a count, and as many pairs of family and
    /// subtype. What is cut short counts as far as it goes.
    static RateTable Read(std::string_view body);

    /// The class of a request by its eight hex digits of family and subtype; 1 for one that no class names.
    int ClassOf(std::uint32_t familyAndSubtype) const;
    bool Known() const { return !classes.empty(); }

  private:
    std::map<std::uint32_t, int> classes;
};

inline constexpr std::uint32_t RoomLineRequest = 0x000E0005;
inline constexpr std::uint32_t BanRequestKey = 0x000E0024;
inline constexpr std::uint32_t MessageRequest = 0x00040006;

} // namespace halyard
