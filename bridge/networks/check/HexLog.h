#pragma once

// Frames in hexadecimal, a line each, for a person to read or to send on. What would let somebody in stands
// as two middle dots: bodies on channel 1 (the roasted password, cookies), bodies of family 0017, and TLV
// 0006 (a cookie) on channel 4, of redirects (0001 0005) and of migrations (0001 0012).

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace halyard {

class HexLog {
  public:
    static constexpr std::size_t Most = 2 * 1024 * 1024; ///< bytes that are kept

    /// Adds the line "MS ms, socket N, sent|came on channel C, FFFF SSSS: BYTES"; without family and subtype
    /// where the body is too short for them. `body` is what stands behind the six bytes of the frame's head.
    /// Beyond Most the older half of the lines goes, and the first line says how many have gone.
    void Add(std::int64_t milliseconds, int socket, bool sent, int channel, std::string_view body);
    void Clear();
    /// Windows-1252, each line ended by LF; for a file it goes through ToUtf8.
    std::string Text() const;

  private:
    void DropOlderHalf();

    std::string lines;
    std::size_t gone = 0; // lines
};

} // namespace halyard
