#include "state/LetterText.h"

#include "oscar/ModOscarFunctions.h"

namespace halyard {

std::string LettersToHex(std::initializer_list<Letter> letters) {
    volatile std::uint8_t turn =
        Letter::Turn; // volatile keeps compilers from turning the letters back themselves
    std::string text;
    for (auto letter : letters) text.push_back(static_cast<char>(letter.Turned() ^ turn));
    return StrToHex(text);
}

} // namespace halyard
