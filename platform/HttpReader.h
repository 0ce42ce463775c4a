#pragma once

// Puts an HTTP/1.1 request or answer together from the bytes of a stream, with bounds. For the ends that
// speak HTTP over a Socket: the simulated client and the practice network's management.

#include <cstddef>
#include <string>
#include <string_view>

namespace halyard {

class HttpReader {
  public:
    enum class Kind { Request, Answer };
    enum class State { Partial, Whole, Broken };
    static constexpr std::size_t LargestHead = 16384;
    static constexpr std::size_t LargestBody = 65536;

    explicit HttpReader(Kind kind) : kind(kind) {}

    /// Takes bytes; what follows a whole message is dropped.
    State Add(std::string_view bytes);
    /// The stream has ended, which makes an answer without a length whole.
    State End();
    State Now() const { return state; }

    // Of a whole message.
    const std::string& FirstLine() const { return firstLine; }
    const std::string& Body() const { return bytes; }
    /// Of an answer: 100 to 999, 0 when the first line is none.
    int Status() const;

  private:
    State TakeHead();
    State TakeBody();
    bool TakeHeader(std::string_view line);

    Kind kind;
    State state = State::Partial;
    bool headRead = false;
    bool toTheEnd = false; ///< the body ends with the stream
    std::size_t length = 0;
    std::string firstLine;
    std::string bytes;
};

} // namespace halyard
