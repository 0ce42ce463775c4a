#include "practice/people/Script.h"

#include "base/Text.h"

#include <algorithm>
#include <cmath>

namespace halyard {

namespace {

/// What follows a verb.
enum class Tail { Nothing, Target, Text, TargetAndText };

struct VerbRow {
    std::string_view word;
    ScriptVerb verb;
    Tail tail;
};

constexpr VerbRow verbs[] = {
    {"enters", ScriptVerb::Enters, Tail::Nothing},
    {"leaves", ScriptVerb::Leaves, Tail::Nothing},
    {"says", ScriptVerb::Says, Tail::Text},
    {"ims", ScriptVerb::Ims, Tail::TargetAndText},
    {"bans", ScriptVerb::Bans, Tail::Target},
    {"unbans", ScriptVerb::Unbans, Tail::Target},
    {"limits", ScriptVerb::Limits, Tail::TargetAndText},
    {"warns", ScriptVerb::Warns, Tail::TargetAndText},
    {"clears", ScriptVerb::Clears, Tail::TargetAndText},
    {"pauses", ScriptVerb::Pauses, Tail::Target},
    {"resumes", ScriptVerb::Resumes, Tail::Target},
    {"migrates", ScriptVerb::Migrates, Tail::Target},
    {"drops", ScriptVerb::Drops, Tail::Target},
    {"fills", ScriptVerb::Fills, Tail::Target},
    {"closes", ScriptVerb::Closes, Tail::Target},
};

const VerbRow* FindVerb(std::string_view word) {
    for (const auto& row : verbs)
        if (row.word == word) return &row;
    return nullptr;
}

/// Takes the first word off `text`, and the blanks behind it.
std::string TakeWord(std::string& text) {
    auto end = std::min(text.find(' '), text.size());
    auto word = text.substr(0, end);
    text = Trim(Mid(text, end + 1));
    return word;
}

/// "NAME verb TAIL", where the name ends before the first verb.
bool ReadDoing(std::string text, ScriptLine& line) {
    const VerbRow* row = nullptr;
    line.who = TakeWord(text);
    while (!text.empty()) {
        auto word = TakeWord(text);
        row = FindVerb(word);
        if (row) break;
        line.who += " " + word;
    }
    if (!row) return false;
    line.verb = row->verb;
    switch (row->tail) {
    case Tail::Nothing: return text.empty();
    case Tail::Text: line.text = text; break;
    case Tail::Target: line.target = text; break;
    case Tail::TargetAndText: line.target = TakeWord(text), line.text = text; break;
    }
    return !text.empty();
}

bool ReadNumber(const std::string& text, double most, double& number) {
    if (!IsNumeric(text)) return false;
    number = Val(text);
    return number >= 0 && number <= most;
}

bool ReadSetting(Scene& scene, const std::string& word, const std::string& rest) {
    double number = 0;
    if (word == "owner") return scene.owner = rest, !rest.empty();
    if (word == "clock") return scene.fromStart = rest == "start", rest == "start" || rest == "join";
    if (word == "here") {
        for (const auto& name : Split(rest, ","))
            if (auto trimmed = Trim(name); !trimmed.empty()) scene.here.push_back(trimmed);
        return !scene.here.empty();
    }
    if (word == "exchange" && ReadNumber(rest, 65535, number))
        return scene.exchange = static_cast<int>(number), true;
    if (word == "max" && ReadNumber(rest, 65535, number))
        return scene.maxPeople = static_cast<int>(number), true;
    if (word != "repeat" || !ReadNumber(rest, 1000000, number) || number < 1) return false;
    scene.repeat = static_cast<std::int64_t>(number * 1000);
    return true;
}

bool ReadLine(Script& script, std::string text) {
    auto word = TakeWord(text);
    if (word == "room") {
        script.scenes.emplace_back().room = text;
        return !text.empty();
    }
    if (script.scenes.empty()) return false;
    auto& scene = script.scenes.back();
    double seconds = 0;
    if (!ReadNumber(word, 1000000, seconds)) return ReadSetting(scene, word, text);
    ScriptLine line{std::llround(seconds * 1000), ScriptVerb::Says, "", "", ""};
    if (!ReadDoing(text, line)) return false;
    scene.lines.push_back(line);
    return true;
}

} // namespace

std::optional<Script> ParseScript(std::string_view text, std::string& problem) {
    Script script;
    int number = 0;
    for (const auto& raw : Split(text, "\n")) {
        ++number;
        auto line = Trim(Replace(Replace(raw, "\r", ""), "\t", " "));
        if (line.empty() || line[0] == '#' || ReadLine(script, line)) continue;
        problem = "line " + std::to_string(number) + " cannot be read: " + line;
        return std::nullopt;
    }
    for (auto& scene : script.scenes)
        std::stable_sort(scene.lines.begin(), scene.lines.end(),
                         [](const auto& a, const auto& b) { return a.milliseconds < b.milliseconds; });
    return script;
}

} // namespace halyard
