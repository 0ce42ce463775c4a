#include "soak/Plan.h"

#include "base/Text.h"

#include <cstdlib>

namespace halyard {

namespace {

bool Assign(SoakPlan& plan, const std::string& word, double number, std::uint64_t whole) {
    auto between = [&](int low, int high, int& field) {
        if (number < low || number > high) return false;
        field = static_cast<int>(number);
        return true;
    };
    if (word == "--seed") return plan.seed = whole, true;
    if (word == "--days") return plan.days = number, number > 0 && number <= 36600;
    if (word == "--rooms") return between(1, 40, plan.rooms);
    if (word == "--people") return between(1, 2000, plan.people);
    if (word == "--faults") return between(0, 9, plan.faults);
    if (word == "--journal") return between(0, 2, plan.journal);
    if (word == "--lines") return between(1, 36000, plan.lines);
    return false;
}

} // namespace

SoakPlan DayPlan(std::uint64_t number) {
    SoakPlan plan;
    plan.seed = number;
    plan.faults = static_cast<int>(number % 10);
    plan.rooms = 1 + static_cast<int>(number / 10 % 4);
    plan.people = 12 * plan.rooms;
    plan.lines = 600;
    return plan;
}

std::optional<SoakPlan> ReadPlan(const std::vector<std::string>& given) {
    auto words = given;
    const bool management = std::erase(words, "--management") > 0;
    const bool ledger = std::erase(words, "--ledger") > 0;
    const bool raids = std::erase(words, "--raids") > 0;
    const bool drill = std::erase(words, "--drill") > 0 || raids;
    const bool guards = std::erase(words, "--guards") > 0;
    const bool bridge = std::erase(words, "--bridge") > 0 || ledger || drill || guards;
    SoakPlan plan;
    bool seed = false;
    bool days = false;
    for (std::size_t i = 0; i < words.size(); i += 2) {
        if (i + 1 < words.size() && words[i] == "--network") {
            plan.openServer = words[i + 1] == "open-server";
            if (!plan.openServer) return std::nullopt;
            continue;
        }
        if (i + 1 >= words.size() || !IsNumeric(words[i + 1])) return std::nullopt;
        const auto whole = std::strtoull(words[i + 1].c_str(), nullptr, 10);
        const bool day = words[i] == "--day" && i == 0;
        if (day) plan = DayPlan(whole);
        if (!day && !Assign(plan, words[i], Val(words[i + 1]), whole)) return std::nullopt;
        seed = seed || day || words[i] == "--seed";
        days = days || day || words[i] == "--days";
    }
    plan.management = management;
    plan.bridge = bridge;
    plan.ledger = ledger;
    plan.drill = drill;
    plan.raids = raids;
    plan.guards = guards;
    if (drill && (plan.faults > 0 || plan.openServer || plan.rooms > 1)) return std::nullopt;
    if (!seed || !days || (ledger && guards) || (management && (bridge || !plan.openServer)))
        return std::nullopt;
    return plan;
}

std::string ReplayLine(const SoakPlan& plan) {
    return "halyard-soak --seed " + std::to_string(plan.seed) + " --days " + NumberText(plan.days) +
           " --rooms " + std::to_string(plan.rooms) + " --people " + std::to_string(plan.people) +
           " --faults " + std::to_string(plan.faults) + " --lines " + std::to_string(plan.LinesAnHour()) +
           (plan.openServer ? " --network open-server" : "") + (plan.management ? " --management" : "") +
           (plan.raids   ? " --raids"
            : plan.drill ? " --drill"
                         : "") +
           (plan.ledger ? " --ledger" : "") + (plan.guards ? " --guards" : "") +
           (plan.bridge && !plan.ledger && !plan.guards && !plan.drill ? " --bridge" : "");
}

} // namespace halyard
