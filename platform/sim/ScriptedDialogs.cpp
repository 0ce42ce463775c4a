#include "platform/sim/ScriptedDialogs.h"

#include <utility>

namespace halyard {

void ScriptedDialogs::Note(const std::string& title, const std::string& text) {
    shown.push_back({Kind::Note, title, text, {}});
}

void ScriptedDialogs::Error(const std::string& title, const std::string& text) {
    shown.push_back({Kind::Error, title, text, {}});
}

bool ScriptedDialogs::YesNo(const std::string& title, const std::string& text) {
    shown.push_back({Kind::YesNo, title, text, {}});
    if (yesNo.empty()) return false;
    auto answer = yesNo.front();
    yesNo.pop_front();
    return answer;
}

std::optional<std::size_t> ScriptedDialogs::Choose(const std::string& title, const std::string& text,
                                                   const std::vector<std::string>& answers) {
    std::string offered;
    for (const auto& answer : answers) offered += answer + "|";
    shown.push_back({Kind::Choose, title, text, offered});
    if (choices.empty()) return std::nullopt;
    const auto choice = choices.front();
    choices.pop_front();
    return choice;
}

std::optional<std::string> ScriptedDialogs::Open(const std::string& title, const std::string& filter,
                                                 const std::string& folder) {
    shown.push_back({Kind::Open, title, filter, folder});
    return NextText();
}

std::optional<std::string> ScriptedDialogs::Save(const std::string& title, const std::string& filter,
                                                 const std::string& folder) {
    shown.push_back({Kind::Save, title, filter, folder});
    return NextText();
}

std::optional<std::string> ScriptedDialogs::Font(const std::string& title, const std::string& current) {
    shown.push_back({Kind::Font, title, current, {}});
    return NextText();
}

std::optional<std::string> ScriptedDialogs::NextText() {
    if (texts.empty()) return std::nullopt;
    auto answer = std::move(texts.front());
    texts.pop_front();
    return answer;
}

} // namespace halyard
