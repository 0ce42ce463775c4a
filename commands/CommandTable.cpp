#include "commands/CommandTable.h"

#include "commands/Branches.h"
#include "state/ListWorkers.h"

#include <array>

namespace halyard {

namespace {

template <void (ListWorkers::*Worker)(const std::string&, std::int16_t)>
void Act(ListWorkers& lists, const std::string& name, std::int16_t intChatColIndex) {
    (lists.*Worker)(name, intChatColIndex);
}

void ActAddOp(ListWorkers& lists, const std::string& name, std::int16_t intChatColIndex) {
    lists.AddOp(name, intChatColIndex, "");
}

constexpr std::size_t Longest = 100;
constexpr int No = NoOption;
using L = ListWorkers;
using namespace branches;

// The option columns are uneven on purpose: the first partial option serves op and unop, the second imm and
// unimm, the lock commands share those of their lists, and unban answers a missing permission with the ban
// command's line.
constexpr std::array<CommandRule, CcomCount> rules{{
    {3, 7, Longest, 0, 0, ActAddOp, ListCommand},                     // op
    {4, 8, Longest, 0, 1, Act<&L::RemoveOp>, ListCommand},            // unop
    {11, 15, Longest, 1, 2, Act<&L::AddImm>, ListCommand},            // imm
    {12, 16, Longest, 1, 3, Act<&L::RemoveImm>, ListCommand},         // unimm
    {19, 23, Longest, No, No, Act<&L::AddAB>, ListCommand},           // ab
    {20, 24, Longest, No, No, Act<&L::RemoveAB>, ListCommand},        // unab
    {27, 31, Longest, No, No, Act<&L::AddAW>, ListCommand},           // aw
    {28, 32, Longest, No, No, Act<&L::RemoveAW>, ListCommand},        // unaw
    {34, 35, Longest, 2, No, nullptr, KickOrBan},                     // kick
    {38, 39, AnyLength, 2, No, nullptr, KickOrBan},                   // ban
    {38, 43, AnyLength, 3, 4, nullptr, Unban},                        // unban
    {45, 46, AnyLength, No, No, nullptr, Gban},                       // gban
    {49, 0, AnyLength, No, No, nullptr, Status},                      // status
    {51, 52, AnyLength, 4, No, nullptr, Info},                        // info
    {54, 55, AnyLength, No, No, nullptr, SetAutobanLevel},            // bl
    {56, 0, AnyLength, No, No, nullptr, Rejoin},                      // rejoin
    {58, 59, AnyLength, No, No, nullptr, SetBanPause},                // bp
    {62, 66, Longest, 0, 0, Act<&L::AddLockOp>, ListCommand},         // lop
    {63, 67, Longest, 0, 1, Act<&L::RemoveLockOp>, ListCommand},      // uop
    {72, 76, Longest, 1, 2, Act<&L::AddLockImm>, ListCommand},        // limm
    {73, 77, Longest, 1, 3, Act<&L::RemoveLockImm>, ListCommand},     // uimm
    {82, 86, AnyLength, No, No, Act<&L::AddLockBan>, ListCommand},    // lban
    {83, 87, AnyLength, No, No, Act<&L::RemoveLockBan>, ListCommand}, // uban
    {89, 90, AnyLength, No, No, nullptr, SetCharBan},                 // cb
    {92, 93, AnyLength, No, No, nullptr, SetCharBanNum},              // sc
    {95, 96, AnyLength, No, No, nullptr, SetICQBan},                  // icq
    {98, 99, Longest, No, No, nullptr, AskUserInfo},                  // uinfo
    {101, 102, Longest, 2, No, nullptr, Tban},                        // tban
}};

} // namespace

const CommandRule& RuleOf(int index) { return rules[static_cast<std::size_t>(index)]; }

ParsedCommand ParseCommand(const CcomTable& ccoms, const std::string& strCommand) {
    for (int i = 0; i < CcomCount; ++i) {
        const auto& ccom = ccoms.CcomNames[static_cast<std::size_t>(i)];
        if (strCommand.starts_with(ccom)) return {i, strCommand.substr(ccom.size())};
    }
    if (strCommand.starts_with("help")) return {ParsedCommand::Help, {}};
    return {};
}

} // namespace halyard
