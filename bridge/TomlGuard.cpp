#include "bridge/TomlGuard.h"

namespace halyard {

namespace {

constexpr int MostDots = 128;

bool IsOneOf(char c, std::string_view characters) { return characters.find(c) != std::string_view::npos; }

bool IsPlain(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           IsOneOf(c, "_-+.=,[]{}# \t\r\n");
}

/// Tells, of the characters outside of texts and comments, which the library takes for a number: from its
/// first one on all up to a blank, a comma or a closing bracket, whatever they are.
class NumberWatch {
  public:
    bool InNumber() const { return inNumber; }

    void Take(char c) {
        constexpr std::string_view blanks = " \t\r\n";
        if (IsOneOf(c, ",]}") || IsOneOf(c, blanks)) inNumber = false;
        if (!inNumber && wantsValue && begins) inNumber = (c >= '0' && c <= '9') || c == '+' || c == '-';
        if (!inNumber) Follow(c);
        begins = IsOneOf(c, "=[,") || IsOneOf(c, blanks);
    }
    void PassText() { begins = false; }

  private:
    /// A bracket at the start of a line holds keys, as a brace does.
    void Follow(char c) {
        const bool wasHeader = c == '[' && !wantsValue;
        if (IsOneOf(c, "[{") && !wasHeader) open += c;
        if (IsOneOf(c, "]}") && !open.empty()) open.pop_back();
        if (c == '=') wantsValue = true;
        if (IsOneOf(c, "[{,\n") && !wasHeader) wantsValue = !open.empty() && open.back() == '[';
    }

    std::string open; // brackets and braces
    bool wantsValue = false, begins = false, inNumber = false;
};

/// Goes from character to character and knows where it is. Behind a mistake of the form, where the library
/// stops, it may be wrong.
class TomlWalk {
  public:
    explicit TomlWalk(std::string_view utf8) : text(utf8) {}

    bool Ended() const { return at >= text.size(); }
    char Here() const { return text[at]; }
    std::string_view Rest() const { return text.substr(at); }
    TomlMistake Wrong(const char* what) const { return {place, what}; }

    void Step() {
        if (text[at++] == '\n')
            ++place.line, place.column = 1;
        else if (Ended() || (static_cast<unsigned char>(text[at]) & 0xC0) != 0x80)
            ++place.column; // that was the last byte of a character
    }

    void PassComment() {
        while (!Ended() && Here() != '\n') Step();
    }

    /// From the quotation mark on; a text that doesn't end ends with its line.
    void PassText() {
        const char mark = Here();
        Step();
        while (!Ended() && Here() != mark && Here() != '\n') {
            if (Here() == '\\' && mark == '"') Step();
            if (!Ended()) Step();
        }
        if (!Ended()) Step();
    }

  private:
    std::string_view text;
    std::size_t at = 0;
    TomlPlace place{1, 1};
};

} // namespace

std::optional<TomlMistake> RefusedToml(std::string_view utf8) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (utf8.starts_with(byteOrderMark)) utf8.remove_prefix(byteOrderMark.size());
    TomlWalk walk(utf8);
    NumberWatch watch;
    int dots = 0;
    while (!walk.Ended()) {
        const char c = walk.Here();
        if (c == '"' || c == '\'') {
            if (walk.Rest().starts_with(std::string(3, c))) return walk.Wrong("a text may have but one line");
            if (watch.InNumber()) return walk.Wrong("a number may have no quotation mark");
            walk.PassText();
            watch.PassText();
            continue;
        }
        if (!IsPlain(c)) return walk.Wrong("this character may only stand in quotes");
        if (c == '.' && ++dots > MostDots) return walk.Wrong("the key has too many parts");
        if (IsOneOf(c, ",={}[]\n")) dots = 0;
        watch.Take(c);
        if (c == '#')
            walk.PassComment();
        else
            walk.Step();
    }
    return std::nullopt;
}

} // namespace halyard
