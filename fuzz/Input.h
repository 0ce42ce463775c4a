#pragma once

// What a fuzz target reads its input through.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace halyard::fuzz {

/// Bytes from the front of an input; behind its end everything is 0 or empty.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : left(reinterpret_cast<const char*>(data), size) {}

    bool Empty() const { return left.empty(); }
    int Byte() {
        auto bytes = Bytes(1);
        return bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]);
    }
    int Word() {
        auto high = Byte();
        return high * 256 + Byte();
    }
    std::string_view Bytes(std::size_t count) {
        auto taken = left.substr(0, count);
        left.remove_prefix(taken.size());
        return taken;
    }
    std::string_view Rest() { return Bytes(left.size()); }
    /// Up to the next line feed.
    std::string_view Line() {
        auto taken = Bytes(left.find('\n') == std::string_view::npos ? left.size() : left.find('\n'));
        Bytes(1);
        return taken;
    }

  private:
    std::string_view left;
};

} // namespace halyard::fuzz
