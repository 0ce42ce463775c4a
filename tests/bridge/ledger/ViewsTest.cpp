// The ledger seen from a person, an op and a rule, and its acts as text for other programs.

#include "bridge/ledger/reading/Views.h"

#include "bridge/ledger/reading/Export.h"
#include "bridge/ledger/reading/Visible.h"
#include "tests/bridge/ledger/FilledLedger.h"

#include <nlohmann/json.hpp>

namespace halyard {
namespace {

using L = FilledLedger;

std::string Told(const std::vector<Standing>& places) {
    std::string told;
    for (const auto& place : places)
        told += std::string(ListWord(place.list)) + " " + place.roomName + " #" + std::to_string(place.act) +
                (place.wasSeen ? "\n" : "?\n");
    return told;
}

TEST(ViewsTest, FoldsOnWhichListsSomebodyStands) {
    L ledger;
    ledger.Whole(ListName::Ejects, "lobby", "al\nbobby");
    ledger.Whole(ListName::Ops, {}, "bob\nanna");
    ledger.Ban("bob", "den", L::Op("anna", "ban bob"));
    ledger.Ban("bob", "lobby", L::Op("anna", "ban bob"));
    ledger.Enter(ListName::Autobans, "bob", L::Hand("lstABs"));
    const auto bob = ledger.Person("Bob");
    const auto stands = [&] { return Told(StandsOn(ledger.File(), "bob", bob)); };
    EXPECT_EQ(stands(), "ops  #0?\nautobans  #3\neject list lobby #2\neject list den #1\n");
    EXPECT_EQ(Told(StandsOn(ledger.File(), "bob", 0)), "ops  #0?\nautobans  #3\n");

    // Let in again in one room, and the other room's list is emptied.
    const auto unban = ledger.Act(ActKind::Unban, "bob", "den", L::Op("anna", "unban bob"));
    ledger.Change(unban, ListName::Ejects, ChangeOp::Removed, "bob", "den");
    const auto clear = ledger.Act(ActKind::ListClear, {}, "lobby", L::Hand("lstEjected"), ActOutcome::Done,
                                  ListName::Ejects);
    ledger.Change(clear, ListName::Ejects, ChangeOp::Cleared, {}, "lobby");
    ledger.Enter(ListName::Ops, {}, L::Hand("cmdClearOps"), ChangeOp::Cleared);
    EXPECT_EQ(stands(), "autobans  #3\n");
    EXPECT_EQ(ContentNow(ledger.File(), ListName::Ops), std::vector<std::string>());
    EXPECT_EQ(ContentBefore(ledger.File(), ListName::Ops, 6), (std::vector<std::string>{"bob", "anna"}));

    // A new run says what it begins with: what it says nothing of begins empty, and what is still there is
    // there since it came.
    ledger.BeginRun();
    EXPECT_EQ(stands(), "");
    ledger.Whole(ListName::Autobans, {}, "bob");
    ledger.Whole(ListName::Immunes, {}, "bo\nbob");
    EXPECT_EQ(stands(), "immunes  #0?\nautobans  #3\n");
}

TEST(ViewsTest, FindsNamesThatLookAlike) {
    const std::tuple<const char*, const char*, bool> table[] = {
        {"bob", "b0b", true},          {"bob", "8o8", true},        {"illini", "1ll1n!", true},
        {"corner", "comer", true},     {"vvalter", "walter", true}, {"j\xF6rg", "j0rg", true},
        {"mary-ann", "maryann", true}, {"bob", "bobb", false},      {"bob", "rob", false},
        {"bob", "obb", false},         {"anna", "hanna", false},
    };
    for (const auto& [one, other, same] : table) {
        EXPECT_EQ(Skeleton(one) == Skeleton(other), same) << one << " " << other;
        EXPECT_EQ(Skeleton(Skeleton(one)), Skeleton(one));
    }
    L ledger;
    for (const auto* name : {"B0b", "bobb", "rob", "Bo", "obb", "robb", "b.o.b"}) ledger.Person(name);
    ledger.Ban("rob", "den", L::Op("anna", "ban rob"));
    const auto page = ReadPerson(ledger.File(), ledger.Person("bob"));
    std::string found;
    for (const auto& other : page->lookalikes) found += other.name + (other.same ? "= " : " ");
    EXPECT_EQ(found, "B0b= b.o.b= rob Bo bobb ");
    EXPECT_TRUE(OneEditFrom(std::string(41, 'a')).empty());
}

TEST(ViewsTest, ShowsAPersonAnOpAndARule) {
    L ledger;
    ledger.Whole(ListName::Autowords, {}, "*sp4m*\nnever\n*bad*");
    ledger.Ban("bob", "den", L::By(RuleKind::Autoword, "*sp4m*", "sp4m"));
    ledger.Ban("eve", "den", L::By(RuleKind::Autoword, "*sp4m*", "sp4m"));
    ledger.Ban("bob", "lobby", L::By(RuleKind::Autoword, "*sp4m*", "sp4m"));
    ledger.Ban("carl", "lobby", L::Op("anna", "ban carl/rude", "rude"));
    ledger.clock += 86'400'000;
    ledger.Ban("dave", "lobby", L::Op("anna", "ban dave"));
    auto& file = ledger.File();
    file.Execute("UPDATE acts SET undone = 9 WHERE id IN (1, 4);"
                 "INSERT INTO evidence(act, at, room, line) VALUES(1, 5, 1, 'first'), (1, 6, 1, NULL), (1, "
                 "7, 1, 'then');"
                 "INSERT INTO notes(person, at, author, kind, text) VALUES(1, 5, NULL, 1, 'a note'), (1, 6, "
                 "1, 2, 'hi')");

    const auto bob = ReadPerson(file, FindPerson(file, " B O B"));
    ASSERT_TRUE(bob);
    EXPECT_EQ(std::tie(bob->name, bob->acts, bob->takenBack), std::make_tuple("bob", 2, 1));
    EXPECT_EQ(bob->notes.front().text + bob->notes.front().author + bob->notes.back().text, "hiboba note");
    EXPECT_EQ(ReadEvidence(file, 1).back().line, "then");
    EXPECT_EQ(ReadEvidence(file, 1).size(), 2U);
    EXPECT_EQ(FindPerson(file, "nobody") + FindPerson(file, "stone 99") + FindPerson(file, "stone 1x"), 0);
    EXPECT_EQ(FindPerson(file, "stone 1"), 1);

    const auto anna = ReadOp(file, FindPerson(file, "anna"), 0);
    ASSERT_TRUE(anna);
    const auto counts = [](const ActCounts& all) {
        return std::to_string(all.acts) + "/" + std::to_string(all.takenBack) + "/" +
               std::to_string(all.noReason);
    };
    ASSERT_EQ(anna->days.size(), 2U);
    EXPECT_EQ(counts(anna->all) + " " + counts(anna->days[0]) + " " + counts(anna->days[1]),
              "2/1/1 1/0/1 1/1/0");
    EXPECT_EQ(counts(ReadOp(file, anna->person, ledger.clock)->all), "1/0/1");
    EXPECT_EQ(ReadOps(file).front().name, "anna");

    const auto rules = ReadRules(file, "SP4M");
    ASSERT_EQ(rules.size(), 1U);
    EXPECT_EQ(rules.front().name + std::to_string(rules.front().acts), "autoword *sp4m*3");
    const auto rule = ReadRule(file, rules.front().row);
    ASSERT_TRUE(rule);
    EXPECT_EQ(rule->persons[0].name + rule->persons[1].name + std::to_string(rule->persons[0].acts),
              "bobeve2");
    EXPECT_EQ(std::tie(rule->acts, rule->takenBack, rule->stands), std::make_tuple(3, 1, true));
    std::string never;
    for (const auto& entry : ReadNeverHit(file)) never += RuleName(entry.kind, entry.entry) + ",";
    EXPECT_EQ(never, "autoword never,autoword *bad*,");
    EXPECT_FALSE(ReadPerson(file, 99) || ReadOp(file, 99, 0) || ReadRule(file, 99));
}

// What strangers wrote comes back as it was, or visibly escaped.
TEST(ViewsTest, ExportsHostileTexts) {
    const std::pair<std::string, std::string> visible[] = {
        {"a\r\n\tb\x1B[31m\x7F", "a\\x0D\\x0A\\x09b\\x1B[31m\\x7F"},
        {std::string("\0", 1), "\\x00"},
        {"r\xC3\xBC\xE2\x80\xAE"
         "de\xC2\x9B",
         "r\xC3\xBC\\u202Ede\\x9B"},
        {"\xFF\xC3(\xED\xA0\x80\xF0\x9F\x98\x80\xE2\x82",
         "\xEF\xBF\xBD\xEF\xBF\xBD("
         "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xF0\x9F\x98\x80\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& [text, shown] : visible) EXPECT_EQ(Visible(text), shown);
    EXPECT_EQ(CsvRow(std::vector<std::string>{"=1+2", "+a", "-a", "@a", "\ta", "\ra", "a=1",
                                              "say \"hi\", bob", ""}),
              "'=1+2,'+a,'-a,'@a,'\\x09a,'\\x0Da,a=1,\"say \"\"hi\"\", bob\",\r\n");

    L ledger;
    ledger.Ban("=cmd()", "d,en",
               L::Op("an\"na", "ban =cmd()\n" + std::string(8192, 'x') + "/=reason", "=reason"));
    auto act = *ReadAct(ledger.File(), 1);
    const auto row = CsvRow(act);
    EXPECT_EQ(row.find('\n'), row.size() - 1);
    EXPECT_NE(row.find(",ban,'=cmd(),\"d,en\",4,\"an\"\"na: ban =cmd()\\x0Axxx"), std::string::npos) << row;
    EXPECT_NE(row.find(",'=reason,,,accepted,,\r\n"), std::string::npos) << row;
    act.reason += "\xFF\xE2\x80\xAE";
    const auto line = JsonLine(JsonOf(act));
    EXPECT_EQ(line.find_first_of("\n\x80\xE2\xEF\xFF"), line.size() - 1);
    const auto back = nlohmann::json::parse(line);
    EXPECT_EQ(back["line"], act.line);
    EXPECT_EQ(back["reason"], "=reason\xEF\xBF\xBD\xE2\x80\xAE");
    EXPECT_EQ(back["at"], "2025-11-24T16:00:01.000Z");
}

} // namespace
} // namespace halyard
