#include "base/Letters.h"

namespace halyard {

std::string FromLetters(std::initializer_list<Letter> letters) {
    volatile std::uint8_t turn =
        Letter::Turn; // volatile keeps compilers from turning the letters back themselves
    std::string text;
    for (auto letter : letters) text.push_back(static_cast<char>(letter.Turned() ^ turn));
    return text;
}

} // namespace halyard
