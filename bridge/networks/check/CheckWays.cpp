// The rows about a network's ways: what was seen of the habit that each is there for.

#include "bridge/networks/check/CheckSteps.h"
#include "oscar/wire/ModOscarFunctions.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

/// A habit: whether the check would have met it, and what it met.
struct Habit {
    Departure way;
    bool judged;
    std::string seen; ///< empty when it wasn't met
};

bool KnowsNoBans(const CheckHeard& heard) {
    return std::any_of(heard.banReplies.begin(), heard.banReplies.end(),
                       [](const auto& reply) { return reply.second.verdict == BanVerdict::NotEnforced; });
}

std::vector<Habit> HabitsOf(const CheckHeard& heard) {
    const bool inRoom = heard.room != 0;
    const auto rates = inRoom ? heard.RatesOf(heard.room) : RatesTold();
    const auto when = [](bool met, std::string seen) { return met ? std::move(seen) : std::string(); };
    return {
        {Departure::NavigationAnswers, inRoom,
         when(heard.strayAnswers > 0, "answers of the navigation came that nothing had asked for (" +
                                          std::to_string(heard.strayAnswers) + ")")},
        {Departure::BareJoinRefusals, false,
         when(heard.bareRefusal.has_value(), "the room was refused with the bare word " +
                                                 StrToHex(WordToStr(heard.bareRefusal.value_or(0))))},
        {Departure::UnenforcedBans, !heard.banReplies.empty(),
         when(KnowsNoBans(heard), "a ban was answered with a bare word")},
        {Departure::RateClassesAsTold, rates.known,
         when(rates.known && !rates.AsLaidDown(),
              "room lines or bans are in other classes than those laid down")},
        {Departure::ReachableRedirects, heard.signedOn && !heard.host.empty(),
         when(!heard.farRedirect.empty(), "a redirect leads to " + heard.farRedirect)},
        {Departure::WholeMessageBlocks, false,
         when(heard.textFirst, "a line's text came before its encoding")},
        {Departure::NamesAreNoCommands, false,
         when(!heard.oddName.empty(), "somebody in the room is named " + heard.oddName)},
    };
}

} // namespace

std::vector<CheckRow> WayRows(const CheckHeard& heard, const Network& network) {
    std::vector<CheckRow> rows;
    for (const auto& habit : HabitsOf(heard)) {
        const bool met = !habit.seen.empty();
        if (!met && !habit.judged) continue;
        const bool on = network.ways.test(static_cast<std::size_t>(habit.way));
        const auto row = std::string("Way ") + TextOf(habit.way).name;
        if (!met)
            rows.push_back({row, CheckVerdict::Works, "not met here"});
        else if (on)
            rows.push_back({row, CheckVerdict::Works, habit.seen + ", and the network's way answers it"});
        else
            rows.push_back({row, CheckVerdict::DoesNot,
                            habit.seen + ", and the network lacks the way. " + TextOf(habit.way).laidDown});
    }
    return rows;
}

} // namespace halyard
