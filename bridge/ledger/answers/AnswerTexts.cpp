#include "bridge/ledger/answers/AnswerTexts.h"

#include "bridge/ledger/reading/Moments.h"
#include "bridge/ledger/reading/Views.h"
#include "bridge/ledger/reading/Visible.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr std::size_t ActsOfWhy = 3;
constexpr std::size_t ActsLookedAt = 50;

std::vector<ActRow> NewestOf(Connection& connection, std::string Search::*field, std::string_view name,
                             std::size_t count) {
    Search search;
    search.*field = name;
    return FindActs(connection, search, 0, count);
}

bool CanBeUndone(const ActRow& act) {
    if (act.undone != 0) return false;
    switch (act.kind) {
    case ActKind::Ban:
    case ActKind::TimeBan: return act.outcome == ActOutcome::Accepted || act.outcome == ActOutcome::Open;
    case ActKind::ListAdd:
    case ActKind::ListRemove:
    case ActKind::Option: return true;
    default: return false;
    }
}

} // namespace

std::string ActSentence(const ActRow& act) {
    auto text = "#" + std::to_string(act.number) + " " + ShownMoment(act.at) + ": ";
    text += ActWord(act.kind);
    if (!act.personName.empty()) text += " of " + act.personName;
    if (!act.entry.empty()) text += " " + act.entry;
    if (act.list != ListName::None) text += std::string(" (") + ListWord(act.list) + ")";
    if (!act.roomName.empty()) text += " in " + act.roomName;
    text += ", " + act.outcomeWords;
    if (act.undone != 0) text += ", taken back by #" + std::to_string(act.undone);
    if (!act.cause.empty()) text += "; " + act.cause;
    return Visible(text);
}

std::string WhyText(Connection& connection, std::string_view person) {
    const auto row = FindPerson(connection, person);
    const auto page = row == 0 ? std::nullopt : ReadPerson(connection, row);
    if (!page) return "Nothing is known of " + Visible(person) + ".";
    std::string text;
    for (const auto& standing : page->standing) {
        if (standing.list != ListName::Ejects) continue;
        const auto act = standing.act == 0 ? std::nullopt : ReadAct(connection, standing.act);
        text += Visible(page->name) + " is out of " + Visible(standing.roomName) + " since " +
                ShownMoment(standing.since) + (standing.wasSeen ? "" : " or longer") +
                (act ? ": " + Visible(act->cause) : ".") + "\n";
    }
    if (text.empty()) text = Visible(page->name) + " stands on no eject list.\n";
    for (const auto& act : NewestOf(connection, &Search::person, page->key, ActsOfWhy))
        text += ActSentence(act) + "\n";
    text.pop_back();
    return text;
}

std::string LastText(Connection& connection, std::string_view op, int count) {
    std::string text;
    for (const auto& act : NewestOf(connection, &Search::op, op, ActsLookedAt)) {
        if (act.kind == ActKind::Answer) continue; // to have asked is no deed
        text += ActSentence(act) + "\n";
        if (--count == 0) break;
    }
    if (text.empty()) return "Nothing was done on your word.";
    text.pop_back();
    return text;
}

std::optional<ActRow> LastToUndo(Connection& connection, std::string_view op, std::string_view person) {
    const auto acts = person.empty() ? NewestOf(connection, &Search::op, op, ActsLookedAt)
                                     : NewestOf(connection, &Search::person, person, ActsLookedAt);
    const auto found = std::ranges::find_if(acts, CanBeUndone);
    if (found == acts.end()) return std::nullopt;
    return *found;
}

} // namespace halyard
