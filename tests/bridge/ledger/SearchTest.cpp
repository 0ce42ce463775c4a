// What people type, and what is found by it.

#include "bridge/ledger/IndexWords.h"
#include "bridge/ledger/reading/Moments.h"
#include "tests/bridge/ledger/FilledLedger.h"

#include <cstdlib>
#include <ctime>

namespace halyard {
namespace {

/// The machine's zone, for as long as the test runs.
class Zone {
  public:
    explicit Zone(const char* name) {
        setenv("TZ", name, 1);
        tzset();
    }
    ~Zone() {
        unsetenv("TZ");
        tzset();
    }
};

constexpr std::int64_t Now = 1'764'000'000'000; // 2025-11-24 16:00 UTC

/// All that was understood, or the mistake with its place.
std::string Understood(std::string_view text) {
    const auto read = ReadSearch(text, Now);
    if (const auto* mistake = std::get_if<SearchMistake>(&read))
        return std::to_string(mistake->place) + ": " + mistake->words.substr(0, mistake->words.find(';'));
    const auto& search = std::get<Search>(read);
    std::string all;
    const auto add = [&](const std::string& part) { all += (all.empty() ? "" : " ") + part; };
    const auto name = [&](const char* field, const std::string& value) {
        if (!value.empty()) add(std::string(field) + "=" + value);
    };
    const auto moment = [&](const char* field, const std::optional<std::int64_t>& value) {
        if (value) add(field + std::to_string((*value - Now) / 60'000) + "min");
    };
    for (const auto& word : search.words) add(word.word + (word.begins ? "~" : ""));
    name("room", search.room);
    name("op", search.op);
    name("person", search.person);
    name("rule", search.rule);
    if (search.kind) add("kind=" + std::string(ActWord(*search.kind)));
    moment("since", search.since);
    moment("until", search.until);
    for (const auto& word : search.reason) add("reason=" + word.word + (word.begins ? "~" : ""));
    if (search.act) add("#" + std::to_string(*search.act));
    return all;
}

TEST(SearchTest, UnderstandsWhatPeopleType) {
    const Zone zone("CET-1");
    const std::pair<const char*, const char*> table[] = {
        {"", ""},
        {" \t bob ", "bob"},
        {"room:lobby op:\"room boss\" rule:*sp4m* kind:LIST-ADD reason:rud* 16:9 person:bob",
         "16 9 room=lobby op=room boss person=bob rule=*sp4m* kind=list-add reason=rud~"},
        {"\"say \"\"hi\"\"\"* r\303\274de*", "say hi~ r\303\274de~"},
        {"ROOM:x since:2d until:90m", "room=x since-2880min until-90min"},
        {"since:2025-11-24", "since-1020min"},
        {"since:2025-11-24T14:05 until:2025-11-24T14:05:59Z", "since-175min until-114min"},
        {"#1234 reason:a reason:b", "reason=a reason=b #1234"},
        {"bob room:", "9: Something has to stand behind \"room:\"."},
        {"bob http://x", "4: There is no field \"http\""},
        {"kind:bann", "5: There is no kind \"bann\""},
        {"x \"open", "2: This quote isn't closed."},
        {"op:a op:b", "5: \"op:\" stands here for the second time."},
        {"since:2025-02-29", "6: \"2025-02-29\" is no time"},
        {"since:2025-11-24T14", "6: \"2025-11-24T14\" is no time"},
        {"since:9999999999999999999d", "6: \"9999999999999999999d\" is no time"},
        {"x \xC3\xBC*", "2: In front of * stand at least two letters or digits."},
        {"#12x", "0: Behind # stands the number of an act."},
        {"!?", "0: No letter or digit stands here that could be looked for."},
        {"\xE2\x80\xAE\xFF", "0: No letter or digit stands here that could be looked for."},
    };
    for (const auto& [text, understood] : table) EXPECT_EQ(Understood(text), understood) << text;
    EXPECT_EQ(Understood(FieldText("room", "a \"b\" c")), "room=a \"b\" c");
    EXPECT_EQ(ShownMoment(Now), "2025-11-24 17:00:00 CET");
}

// The index knows no phrases, so a word that it took for two would find nothing, or be a mistake.
TEST(SearchTest, PartsWordsAsTheIndexDoes) {
    FilledLedger ledger;
    auto& file = ledger.File();
    file.Execute("CREATE VIRTUAL TABLE temp.parts USING fts5vocab(main, words, 'row')");
    for (int code = 1; code < 256; ++code) {
        const auto text = ToUtf8("a" + std::string(1, static_cast<char>(code)) + "b");
        file.Execute("INSERT INTO words(words) VALUES('delete-all')");
        file.Prepare("INSERT INTO words(rowid, text) VALUES(1, ?)").Bind(1, text).Step();
        auto& parts = file.Prepare("SELECT count(*) FROM temp.parts");
        ASSERT_TRUE(parts.Step());
        EXPECT_EQ(static_cast<std::size_t>(parts.Integer(0)), WordsOf(text).size()) << code;
        parts.Reset();
    }
}

class FoundTest : public testing::Test {
  protected:
    FoundTest() {
        ledger.Ban("Bob", "Lobby",
                   FilledLedger::Op("Room Boss", "ban bob/was r\374de, again", "was r\374de, again"));
        ledger.Ban("Eve", "den",
                   FilledLedger::By(RuleKind::Autoword, "*sp4m*", "<b>buy</b> SP4M-now \"cheap\""));
        middle = ledger.clock + 500;
        ledger.Act(ActKind::Kick, "Bob", "den", FilledLedger::Op("Anna", "kick bob"));
        ledger.Ban("1000123", "lobby", FilledLedger::By(RuleKind::ICQ, ""));
        ledger.Enter(ListName::Autowords, "*rude*", FilledLedger::Hand("lstAWs"));
    }
    /// The numbers of what is found, newest first.
    std::string Find(const std::string& text, std::int64_t before = 0, std::size_t limit = 10) {
        const auto read = ReadSearch(text, ledger.clock);
        if (const auto* mistake = std::get_if<SearchMistake>(&read)) return mistake->words;
        std::string numbers;
        for (const auto& act : FindActs(ledger.File(), std::get<Search>(read), before, limit))
            numbers += (numbers.empty() ? "" : " ") + std::to_string(act.number);
        return numbers;
    }
    FilledLedger ledger;
    std::int64_t middle = 0;
};

TEST_F(FoundTest, FindsActsByWordsAndFields) {
    const std::pair<std::string, const char*> table[] = {
        {"", "5 4 3 2 1"},
        {"BOB", "3 1"},
        {"bo", ""},
        {"bo*", "3 1"},
        {"rude", "5 1"}, // accents don't count, and neither do marks around
        {"reason:rude", "1"},
        {"reason:again reason:was", "1"},
        {"sp4m", "2"},
        {"b", ""}, // tags aren't words of the line
        {"\"cheap now\"", "2"},
        {"room:LOB*", ""},
        {"room:lobby", "4 1"},
        {"room:lobby op:roomboss kind:ban bob", "1"},
        {"op:\"Room Boss\"", "1"},
        {"op:nobody", ""},
        {"rule:autoword", "2"},
        {"rule:SP4M", "2"},
        {"rule:ghost", ""},
        {"rule:icq", "4"},
        {"kind:list-add", "5"},
        {"person:bob", "3 1"},
        {"#3", "3"},
        {"#3 kind:ban", ""},
        {"#9223372036854775807", ""},
        {"until:0d", "4 3 2 1"},
        {"since:0d", "5"},
        {"\"or\" and not near", ""},
        {"rule:\"') OR 1 --\"", ""},
    };
    for (const auto& [text, numbers] : table) EXPECT_EQ(Find(text), numbers) << text;
    EXPECT_EQ(Find("", 4, 2), "3 2");
    EXPECT_EQ(Find("bob", 3, 2), "1");
    EXPECT_EQ(FirstActSince(ledger.File(), middle), 3);
    EXPECT_EQ(FirstActSince(ledger.File(), ledger.clock + 1), 6);
}

TEST_F(FoundTest, TellsCausesAndOutcomesInWords) {
    ledger.Act(ActKind::Ban, "Eve", "den", {CauseKind::OpIM, "Anna", "den:ban eve"}, ActOutcome::Dropped);
    ledger.File().Execute("UPDATE acts SET code = 1 WHERE id = 6;"
                          "UPDATE persons SET key = NULL, spelled = NULL, forgotten = 1 WHERE key = 'bob'");
    const char* table[] = {
        "Room Boss: ban bob/was r\303\274de, again|stone 1|accepted",
        "autoword *sp4m*|Eve|accepted",
        "Anna: kick bob|stone 1|accepted",
        "icq|1000123|accepted",
        "operator's hand on lstAWs||done",
        "Anna by IM: den:ban eve|Eve|dropped: the room wasn't open",
    };
    for (std::int64_t number = 1; number <= 6; ++number) {
        const auto act = ReadAct(ledger.File(), number);
        ASSERT_TRUE(act);
        EXPECT_EQ(act->cause + "|" + act->personName + "|" + act->outcomeWords, table[number - 1]);
    }
    EXPECT_FALSE(ReadAct(ledger.File(), 7));
}

} // namespace
} // namespace halyard
