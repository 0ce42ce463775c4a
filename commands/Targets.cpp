#include "commands/Targets.h"

#include "base/Text.h"
#include "commands/Branches.h"
#include "commands/CommandTable.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"

namespace halyard {

namespace {

constexpr std::size_t Shortest = 2;

bool IsOn(const std::array<bool, 5>& options, int subscript) {
    return subscript != NoOption && options[static_cast<std::size_t>(subscript)];
}

} // namespace

std::string KeepFirstAsterisk(std::string text) {
    auto first = text.find('*');
    if (first == std::string::npos) return text;
    return text.substr(0, first + 1) + Replace(text.substr(first + 1), "*", "");
}

bool LengthFits(const CommandRule& rule, const std::string& element) {
    return element.size() >= Shortest && element.size() <= rule.longest;
}

void ForEachTarget(const CommandContext& context, const CommandCall& call,
                   const std::function<bool(const std::string&)>& act) {
    const auto& rule = RuleOf(call.index);
    if (call.rest.empty()) ReplyInvalid(context, call, call.strUser, rule.size);
    for (auto& element : Split(call.rest, ",")) {
        if (call.index == CcomAb || call.index == CcomLban) element = KeepFirstAsterisk(element);
        if (!LengthFits(rule, element))
            ReplyInvalid(context, call, call.strUser, rule.size);
        else if (!act(element))
            return;
    }
}

std::string FirstContaining(const Collection<std::string>& names, const std::string& part) {
    for (const auto& name : names)
        if (ContainsNoCase(name, part)) return name;
    return {};
}

std::vector<std::string> AllContaining(const Collection<std::string>& names, const std::string& part) {
    std::vector<std::string> found;
    for (const auto& name : names)
        if (ContainsNoCase(name, part)) found.push_back(name);
    return found;
}

void branches::ListCommand(const CommandContext& context, const CommandCall& call) {
    const auto& rule = RuleOf(call.index);
    const auto& people = call.room->PeopleHere;
    bool partial = IsOn(context.options.PartialOn, rule.partial);
    bool chain = IsOn(context.options.ChainOn, rule.chain);
    ForEachTarget(context, call, [&](const std::string& target) {
        auto found = partial || chain ? FirstContaining(people, target) : std::string();
        if (found.empty() || !chain) {
            rule.act(context.lists, found.empty() ? target : found, call.intChatColIndex);
            return true;
        }
        for (const auto& name : AllContaining(people, target))
            rule.act(context.lists, name, call.intChatColIndex);
        return false; // the rest of the list is dropped without a word
    });
}

} // namespace halyard
