#include "commands/Targets.h"

#include "base/Text.h"
#include "commands/Branches.h"
#include "commands/CommandTable.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"

#include <algorithm>
#include <utility>

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

std::vector<std::string> AllContaining(const Collection<std::string>& names, const std::string& part) {
    std::vector<std::string> found;
    for (const auto& name : names)
        if (ContainsNoCase(name, part)) found.push_back(name);
    return found;
}

Meant MeantBy(const CommandContext& context, const CommandCall& call, const Collection<std::string>& names,
              const std::string& part) {
    auto found = AllContaining(names, part);
    if (found.size() > 1 && CheckCollection(part, names) &&
        context.control.Guarded(Departure::NamesMeanPersons, call.intChatIndex, part))
        found = {part};
    return {std::move(found)};
}

Meant PeopleMeantBy(const CommandContext& context, const CommandCall& call, const std::string& part) {
    const auto& options = context.options;
    auto& control = context.control;
    auto meant = MeantBy(context, call, call.room->PeopleHere, part);
    const auto isSpared = [&](const std::string& name) {
        return name != part &&
               (CheckCollection(name, options.Ops) || CheckCollection(name, options.Immunes) ||
                SameName(name, control.SignOnName()));
    };
    if (std::none_of(meant.names.begin(), meant.names.end(), isSpared) ||
        !control.Guarded(Departure::NamesMeanPersons, call.intChatIndex, part))
        return meant;
    const auto fits = meant.names;
    std::erase_if(meant.names, isSpared);
    meant.passedOver = meant.names.empty();
    if (meant.passedOver && control.Tell().news)
        control.Tell().news->PartHitNobody(call.intChatIndex, call.strUser, part, fits);
    return meant;
}

void branches::ListCommand(const CommandContext& context, const CommandCall& call) {
    const auto& rule = RuleOf(call.index);
    bool partial = IsOn(context.options.PartialOn, rule.partial);
    bool chain = IsOn(context.options.ChainOn, rule.chain);
    ForEachTarget(context, call, [&](const std::string& target) {
        const auto meant = partial || chain ? PeopleMeantBy(context, call, target) : Meant();
        if (meant.passedOver) return true;
        if (meant.names.empty() || !chain) {
            rule.act(context.lists, meant.names.empty() ? target : meant.First(), call.intChatColIndex);
            return true;
        }
        for (const auto& name : meant.names) rule.act(context.lists, name, call.intChatColIndex);
        return false; // the rest of the list is dropped without a word
    });
}

} // namespace halyard
