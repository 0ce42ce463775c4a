#include "state/Counters.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"

#include <string_view>
#include <unordered_map>

namespace halyard {

namespace {

struct Stat {
    const char* name;
    const char* caption;
};

constexpr int ActionLimit = 20;
constexpr int TotalCommand = 10;
constexpr int TotalCurrentBan = 11;

constexpr std::array<Stat, Counters::StatCount> stats{{
    {"op", "Ops:"},
    {"imm", "Imms:"},
    {"ab", "ABs:"},
    {"aw", "AWs:"},
    {"lockop", "Lock Ops:"},
    {"lockimm", "Lock Imms:"},
    {"lockbans", "Lock Bans:"},
    {"totalopen", "Total Opens: "},
    {"totallogin", "Total Logins:"},
    {"totalchatjoin", "Total Chat Joins: "},
    {"totalcommand", "Total Commands: "},
    {"totalcurrentban", "Total Current Bans:"},
    {"totalban", "Total Bans:"},
    {"totalunbans", "Total Unbans:"},
    {"#ofownedchats", "# of Owned Chats: "},
    {"totalbanattempt", "Total Ban Attempts: "},
    {"totalunbanattempt", "Total Unban Attempts:"},
    {"totalautorejoinattempt", "Total Auto Rejoin Attempts:"},
    {"totalautoownerattempt", "Total Auto Owner Attempts:"},
    {"totalautologinattempt", "Total Auto Login Attempts:"},
    {"totalchatcloseattempt", "Total Chat Close Attempts:"},
}};

std::unordered_map<std::string_view, int> IndexStats() {
    std::unordered_map<std::string_view, int> byName;
    for (int index = 0; index < Counters::StatCount; ++index)
        byName.emplace(Counters::StatName(index), index); // the first of a name counts
    return byName;
}

int StatIndex(const std::string& name) {
    static const auto byName = IndexStats();
    const auto found = byName.find(name);
    return found == byName.end() ? -1 : found->second;
}

double CurrentBans(const TillerSock& control) {
    std::size_t bans = 0;
    for (const auto& list : control.EjectLists) bans += list->GetEjects().Count();
    return static_cast<double>(bans);
}

} // namespace

Counters::Counters(const Options& options, const TillerSock& control) : options(options), control(control) {
    for (int index = 0; index < StatCount; ++index)
        lblStat.emplace_back("lblStat(" + std::to_string(index) + ")", "0");
}

const char* Counters::StatName(int index) { return stats[static_cast<std::size_t>(index)].name; }
const char* Counters::StatCaption(int index) { return stats[static_cast<std::size_t>(index)].caption; }

void Counters::UpdateStat(const std::string& strStat, bool Increment) {
    if (strStat == "all") {
        for (int index = 0; index < StatCount; ++index) Show(index);
        return;
    }
    int index = StatIndex(strStat);
    if (index < 0) return;
    if (index == TotalCurrentBan)
        SetKept(index, CurrentBans(control));
    else if (index >= FirstKept)
        SetKept(index, Kept(index) + (index == TotalCommand && !Increment ? -1 : 1));
    Show(index);
}

void Counters::AddAction(const std::string& strAction) {
    if (lstActions.ListCount() >= ActionLimit) lstActions.RemoveItem(0);
    lstActions.AddItem(strAction);
    lstActions.Select(lstActions.ListCount() - 1);
}

void Counters::ClearStats() {
    kept.fill(0);
    UpdateStat("all");
}

void Counters::Show(int index) {
    auto value = index < FirstKept ? ListCountOf(index) : Kept(index);
    lblStat[static_cast<std::size_t>(index)].SetCaption(NumberText(value));
}

double Counters::ListCountOf(int index) const {
    const std::array<std::size_t, FirstKept> counts{options.Ops.Count(),      options.Immunes.Count(),
                                                    options.Autobans.Count(), options.Autowords.Count(),
                                                    options.LockOps.Count(),  options.LockImms.Count(),
                                                    options.LockBans.Count()};
    return static_cast<double>(counts[static_cast<std::size_t>(index)]);
}

} // namespace halyard
