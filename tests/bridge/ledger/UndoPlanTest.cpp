// What taking acts back is found to mean, read as a person would see it.

#include "bridge/ledger/reading/UndoPlan.h"

#include "tests/bridge/ledger/FilledLedger.h"

#include <map>
#include <set>

namespace halyard {
namespace {

using L = FilledLedger;

class UndoPlanTest : public testing::Test {
  protected:
    std::int64_t Ban(const std::string& person, const std::string& room, const L::Why& why) {
        out.insert(room + "/" + person);
        return ledger.Ban(person, room, why);
    }
    UndoPlan Plan(const UndoAsk& ask) {
        const DeskNow now{
            .holds =
                [&](const ListEntry& entry) {
                    return standing.count({entry.list, entry.entry}) != 0;
                },
            .isOut = [&](const std::string& room, std::int16_t,
                         const std::string& name) { return out.count(room + "/" + name) != 0; },
            .isLocked = [&](const std::string& name) { return name == locked; },
            .hits =
                [&](const std::string& name, const std::vector<ListEntry>& without) {
                    const ListEntry mask{ListName::Autobans, "b*"};
                    const bool goes = std::find(without.begin(), without.end(), mask) != without.end();
                    return name[0] == 'b' && !goes ? std::string("autoban b*") : std::string();
                },
            .option =
                [&](const std::string& key) {
                    const auto found = options.find(key);
                    return found == options.end() ? std::nullopt : std::optional(found->second);
                },
        };
        return PlanUndo(ledger.File(), ask, now);
    }
    static std::string Told(const UndoPlan& plan) {
        std::string told;
        const auto add = [&](const UndoItem& item) {
            told += (item.ticked    ? "[x] "
                     : item.mayTick ? "[ ] "
                                    : "    ") +
                    ("#" + std::to_string(item.act)) + " " + item.words +
                    (item.marks.empty() ? "" : " (" + item.marks + ")") + "\n";
        };
        for (const auto& item : plan.first) add(item);
        if (!plan.first.empty()) told += "--\n";
        for (const auto& item : plan.items) add(item);
        return told;
    }
    std::string ToldOf(std::vector<std::int64_t> acts) {
        return Told(Plan({.what = UndoAsk::What::Acts, .acts = std::move(acts), .row = 0, .since = 0}));
    }

    L ledger;
    std::set<std::string> out;
    std::set<std::pair<ListName, std::string>> standing;
    std::map<std::string, std::string> options;
    std::string locked;
};

TEST_F(UndoPlanTest, TakesBackWhatOneBadWordDid) {
    const auto sp4m = L::By(RuleKind::Autoword, "*sp4m*", "buy sp4m");
    ledger.Enter(ListName::Autowords, "*sp4m*", L::Op("anna", "aword *sp4m*"));
    standing.insert({ListName::Autowords, "*sp4m*"});
    Ban("bob", "den", sp4m);
    Ban("carl", "den", sp4m);
    Ban("dave", "den", sp4m);
    Ban("dave", "den", L::Op("anna", "ban dave")); // a person said so, too
    Ban("eve", "den", sp4m);
    Ban("eve", "den", L::By(RuleKind::ICQ, ""));
    ledger.Ban("fay", "den", sp4m); // and came in again meanwhile, nobody told how
    ledger.Act(ActKind::Ban, "gus", "den", sp4m, ActOutcome::Refused);
    ledger.Act(ActKind::Ban, "hal", "den", sp4m, ActOutcome::Open);
    Ban("ian", "den", L::Hand("cmdBan"));
    Ban("ian", "den", sp4m);
    locked = "carl";
    const auto rule = ledger.Rule(RuleKind::Autoword, "*sp4m*");
    const UndoAsk everything{.what = UndoAsk::What::Rule, .acts = {}, .row = rule, .since = 0};
    const auto shown = Plan(everything);
    EXPECT_EQ(Told(shown), "[x] #1 takes *sp4m* off autowords\n"
                           "--\n"
                           "[ ] #12 lets ian in again in den (banned before by the operator (#11))\n"
                           "[x] #10 lets hal in again in den once the ban is answered\n"
                           "    #9 it never took effect: refused (0x0000)\n"
                           "    #8 fay isn't on the eject list of den any more\n"
                           "[ ] #6 lets eve in again in den (banned since by icq (#7))\n"
                           "    #4 lets dave in again in den (banned since by anna (#5))\n"
                           "[ ] #3 lets carl in again in den (Lock Bans holds the name)\n"
                           "[x] #2 lets bob in again in den (would be banned again by autoban b*)\n");
    EXPECT_EQ(std::tie(shown.lastAct, shown.lastChange), std::make_tuple(12, 10));
    EXPECT_TRUE(shown.items[1].waits);
    EXPECT_TRUE(Difference(shown, Plan(everything)).empty());

    // The world moves on before the operator confirms.
    standing.clear();
    ledger.File().Execute(
        "UPDATE acts SET outcome = 2, code = 5 WHERE id = 10; UPDATE acts SET undone = 13 WHERE id = 2");
    Ban("jim", "den", sp4m);
    const auto other = Difference(shown, Plan(everything));
    const std::vector<std::string> told = {
        "gone: #1 takes *sp4m* off autowords",
        "new: #13 lets jim in again in den",
        "was: #10 lets hal in again in den once the ban is answered; is now: #10 it never took effect: "
        "refused (0x0005)",
        "was: #2 lets bob in again in den (would be banned again by autoban b*); is now: #2 taken back "
        "already by #13",
    };
    EXPECT_EQ(other, told);
    EXPECT_EQ(
        Plan({.what = UndoAsk::What::Rule, .acts = {}, .row = rule, .since = ledger.clock}).items.size(), 1U);
}

TEST_F(UndoPlanTest, TakesBackListsAndOptionsOneAfterTheOther) {
    const auto anna = [](const std::string& line) { return L::Op("anna", line); };
    ledger.Whole(ListName::Ops, {}, "anna\nbob\ncarl");
    ledger.Enter(ListName::Autobans, "b*", anna("aban b*"));
    standing = {{ListName::Autobans, "b*"}, {ListName::Ops, "carl"}};
    ledger.Enter(ListName::Immunes, "eve", anna("imm eve"));
    ledger.Enter(ListName::Immunes, "eve", anna("-imm eve"), ChangeOp::Removed);
    ledger.Enter(ListName::Ops, {}, anna("clear ops"), ChangeOp::Cleared);
    const auto option = [&](const std::string& before, const std::string& after) {
        const auto act =
            ledger.Act(ActKind::Option, {}, {}, anna("set"), ActOutcome::Done, ListName::None, "delay");
        ledger.Change(act, ListName::None, ChangeOp::Option, "delay", {}, before, after);
    };
    option("1", "2");
    option("2", "3");
    options["delay"] = "3";
    Ban("bob", "den", anna("ban bob"));
    ledger.Act(ActKind::Kick, "bob", "den", anna("kick bob"));
    ledger.Act(ActKind::Answer, "anna", {}, anna("why bob"), ActOutcome::Done);
    Ban("bob", "den", anna("ban bob"));
    const UndoAsk all{.what = UndoAsk::What::Op, .acts = {}, .row = ledger.Person("anna"), .since = 0};
    ASSERT_EQ(Told(Plan(all)),
              "[x] #10 lets bob in again in den\n" // the mask goes with it, so nothing hits again
              "    #9 a line that was said can't be taken back\n"
              "    #8 a kick can't be taken back\n"
              "    #7 goes with #10\n"
              "[x] #6 sets delay back to \"2\"\n"
              "[x] #5 sets delay back to \"1\"\n"
              "[x] #4 puts 2 entries back on ops\n"
              "[x] #3 puts eve back on immunes\n"
              "[x] #2 takes eve off immunes\n"
              "[x] #1 takes b* off autobans\n");
    EXPECT_EQ(Plan(all).items[6].entries, (std::vector<std::string>{"anna", "bob"}));
    options["delay"] = "7";
    standing.insert({ListName::Immunes, "eve"});
    EXPECT_EQ(ToldOf({5, 3, 99, 3}), "[ ] #5 sets delay back to \"1\" (changed since, to \"7\")\n"
                                     "    #3 eve is on immunes again\n");
    const UndoAsk run{.what = UndoAsk::What::Run, .acts = {}, .row = ledger.run, .since = ledger.clock};
    EXPECT_EQ(Told(Plan(run)), "[ ] #10 lets bob in again in den (banned before by anna (#7); would be "
                               "banned again by autoban b*)\n");

    // Let in and banned again: what stands is the later ban.
    const auto unban = ledger.Act(ActKind::Unban, "bob", "den", anna("unban bob"));
    Ban("bob", "den", L::By(RuleKind::Ghost, ""));
    EXPECT_EQ(ToldOf({10}), "    #10 let in again since, by #" + std::to_string(unban) + "\n");
}

} // namespace
} // namespace halyard
