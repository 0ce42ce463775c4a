#include "bridge/ledger/IndexWords.h"

#include "base/Latin1.h"

namespace halyard {

namespace {

constexpr std::string_view FieldMark = "\xEE\x80\x80"; // U+E000

/// Letters and numbers as Unicode has them.
bool IsWordPart(char c) {
    const auto code = static_cast<unsigned char>(c);
    if ((code >= '0' && code <= '9') || (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z'))
        return true;
    if (code >= 0xC0) return code != 0xD7 && code != 0xF7;
    return code >= 0x80 &&
           std::string_view("\x83\x88\x8A\x8C\x8E\x9A\x9C\x9E\x9F\xAA\xB2\xB3\xB5\xB9\xBA\xBC\xBD\xBE")
                   .find(c) != std::string_view::npos;
}

} // namespace

std::string FieldWord(WordField field, std::int64_t number) {
    return FieldWord(field, std::to_string(number));
}

std::string FieldWord(WordField field, std::string_view word) {
    std::string made(FieldMark);
    made += static_cast<char>(field);
    return made.append(word);
}

std::vector<std::string> WordsOf(std::string_view utf8) {
    std::vector<std::string> words;
    std::string word;
    for (const char c : FromUtf8(utf8) + " ") {
        if (IsWordPart(c)) {
            word += c;
        } else if (!word.empty()) {
            words.push_back(ToUtf8(word));
            word.clear();
        }
    }
    return words;
}

} // namespace halyard
