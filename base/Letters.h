#pragma once

// Texts that are composed from single letters at run time, so that nobody finds or changes them by looking
// through the program's file: the banner and the place of the statistics.

#include <cstdint>
#include <initializer_list>
#include <string>

namespace halyard {

/// A letter as it stands in the program's file: turned, so that letters side by side there make no text.
class Letter {
  public:
    static constexpr std::uint8_t Turn = 0x80;
    consteval Letter(char letter) : turned(static_cast<std::uint8_t>(letter) ^ Turn) {}
    std::uint8_t Turned() const { return turned; }

  private:
    std::uint8_t turned;
};

std::string FromLetters(std::initializer_list<Letter> letters);

} // namespace halyard
