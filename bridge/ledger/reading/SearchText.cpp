#include "bridge/ledger/reading/SearchText.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/IndexWords.h"
#include "bridge/ledger/reading/Moments.h"
#include "bridge/ledger/reading/Visible.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace halyard {

namespace {

/// Characters in front of a "*".
constexpr std::size_t ShortestBegin = 2;
/// More words are no search that anybody types.
constexpr std::size_t MostWords = 40;

bool IsFieldLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// One part of the text between blanks.
struct Part {
    std::size_t place = 0;
    std::string field = {}; ///< lower case; empty for a plain word
    std::size_t valuePlace = 0;
    std::string value = {};
    bool quoted = false;
};

class SearchReader {
  public:
    SearchReader(std::string_view text, std::int64_t now) : text(text), now(now) {}

    std::variant<Search, SearchMistake> Read() {
        while (!mistake) {
            const auto part = Next();
            if (!part) break;
            Take(*part);
            if (found.words.size() + found.reason.size() > MostWords)
                Wrong(part->place, "These are too many words.");
        }
        if (mistake) return *mistake;
        return found;
    }

  private:
    void Wrong(std::size_t place, const std::string& words) {
        if (!mistake) mistake = {place, words};
    }

    std::optional<Part> Next() {
        while (at < text.size() && IsBlank(text[at])) ++at;
        if (at == text.size()) return std::nullopt;
        Part part{.place = at};
        auto end = at;
        while (end < text.size() && IsFieldLetter(text[end])) ++end;
        if (end > at && end < text.size() && text[end] == ':') {
            part.field = Lower(text.substr(at, end - at));
            at = end + 1;
        }
        part.valuePlace = at;
        part.quoted = at < text.size() && text[at] == '"';
        part.value = part.quoted ? Quoted() : Plain();
        return part;
    }

    std::string Plain() {
        const auto begin = at;
        while (at < text.size() && !IsBlank(text[at])) ++at;
        return std::string(text.substr(begin, at - begin));
    }

    std::string Quoted() {
        const auto begin = at++;
        std::string value;
        for (; at < text.size(); ++at) {
            if (text[at] != '"') {
                value += text[at];
            } else if (at + 1 < text.size() && text[at + 1] == '"') {
                value += text[at++];
            } else {
                ++at;
                if (at < text.size() && text[at] == '*') value += text[at++];
                return value;
            }
        }
        Wrong(begin, "This quote isn't closed.");
        return value;
    }

    void Take(const Part& part) {
        if (part.field.empty())
            return part.value.starts_with('#') && !part.quoted ? TakeAct(part) : TakeWords(part, found.words);
        if (part.value.empty())
            return Wrong(part.valuePlace, "Something has to stand behind \"" + part.field + ":\".");
        if (part.field == "room") return TakeName(part, found.room);
        if (part.field == "op") return TakeName(part, found.op);
        if (part.field == "person") return TakeName(part, found.person);
        if (part.field == "rule") return Once(part, found.rule.empty()), void(found.rule = part.value);
        if (part.field == "kind") return TakeKind(part);
        if (part.field == "since") return TakeMoment(part, found.since);
        if (part.field == "until") return TakeMoment(part, found.until);
        if (part.field == "reason") return TakeWords(part, found.reason);
        Wrong(part.place,
              "There is no field \"" + Visible(part.field) +
                  "\"; there are room, op, person, rule, kind, since, until and reason. A word with a "
                  "colon wants quotes.");
    }

    void Once(const Part& part, bool first) {
        if (!first) Wrong(part.place, "\"" + part.field + ":\" stands here for the second time.");
    }

    void TakeName(const Part& part, std::string& name) {
        Once(part, name.empty());
        name = part.value;
    }

    void TakeAct(const Part& part) {
        if (found.act) return Wrong(part.place, "One act at a time can be looked for.");
        std::int64_t number = 0;
        const auto* end = part.value.data() + part.value.size();
        const auto [stop, failure] = std::from_chars(part.value.data() + 1, end, number);
        if (failure != std::errc() || stop != end || number <= 0)
            return Wrong(part.place, "Behind # stands the number of an act.");
        found.act = number;
    }

    void TakeKind(const Part& part) {
        Once(part, !found.kind);
        const int kind = ActOfWord(part.value);
        if (kind != 0) {
            found.kind = static_cast<ActKind>(kind);
            return;
        }
        std::string kinds;
        for (int number = 1; !ActWord(static_cast<ActKind>(number)).empty(); ++number)
            kinds.append(number == 1 ? "" : ", ").append(ActWord(static_cast<ActKind>(number)));
        Wrong(part.valuePlace, "There is no kind \"" + Visible(part.value) + "\"; there are " + kinds + ".");
    }

    void TakeMoment(const Part& part, std::optional<std::int64_t>& moment) {
        Once(part, !moment);
        moment = ReadMoment(part.value, now);
        if (!moment)
            Wrong(part.valuePlace,
                  "\"" + Visible(part.value) +
                      "\" is no time; times are 2d, 3h, 90m, 2026-11-23, 2026-11-23T14:05 or, in UTC, "
                      "2026-11-23T14:05Z.");
    }

    void TakeWords(const Part& part, std::vector<SearchWord>& into) {
        const auto words = WordsOf(part.value);
        if (words.empty())
            return Wrong(part.valuePlace, "No letter or digit stands here that could be looked for.");
        for (const auto& word : words) into.push_back({word, false});
        into.back().begins = part.value.ends_with('*');
        // A single letter begins a good part of all words there are.
        if (into.back().begins && FromUtf8(into.back().word).size() < ShortestBegin)
            Wrong(part.valuePlace, "In front of * stand at least two letters or digits.");
    }

    static bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

    std::string_view text;
    std::int64_t now;
    std::size_t at = 0;
    Search found;
    std::optional<SearchMistake> mistake;
};

} // namespace

std::variant<Search, SearchMistake> ReadSearch(std::string_view text, std::int64_t now) {
    return SearchReader(text, now).Read();
}

std::string FieldText(std::string_view field, std::string_view value) {
    return std::string(field) + ":\"" + Replace(value, "\"", "\"\"") + "\"";
}

std::string SearchOfArguments(const std::vector<std::string>& arguments) {
    std::string text;
    for (const auto& argument : arguments) {
        if (!text.empty()) text += ' ';
        const bool whole =
            argument.find_first_of(" \t\n\r") == std::string::npos || argument.find('"') != std::string::npos;
        const auto colon = argument.find(':');
        const bool isField =
            colon != std::string::npos &&
            std::all_of(argument.begin(), argument.begin() + static_cast<std::ptrdiff_t>(colon),
                        IsFieldLetter);
        if (whole)
            text += argument;
        else if (isField)
            text += FieldText(argument.substr(0, colon), argument.substr(colon + 1));
        else
            text += "\"" + argument + "\"";
    }
    return text;
}

} // namespace halyard
