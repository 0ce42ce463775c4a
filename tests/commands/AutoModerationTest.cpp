// What the bot does by itself, and commands by instant message.

#include "tests/commands/RoomScene.h"

namespace halyard {

namespace {

class AutoModerationTest : public RoomScene {
  protected:
    AutoModerationTest() { confirmBans = false; }
    Lines Entering(const std::string& name) {
        transcript.clear();
        Joins(name);
        return Taken();
    }
};

TEST_F(AutoModerationTest, JoinChecksInOrder) {
    for (const char* entry : {"exact", "bob*", "*xb"}) options.Autobans.Add(entry);
    options.CharBanNum = 5;
    EXPECT_EQ(Entering("Exact"), Lines()) << "everything is off";
    options.AutobanLevel = 1;
    options.BanAllICQs = options.CharBanOn = true;
    EXPECT_EQ(Entering("Exact"), Lines{"ban exact"}) << "once, although it has 5 characters";
    EXPECT_EQ(control.RequestIDs.Item(1), "ab:1:1:exact:exact");
    EXPECT_EQ(Entering("exactly"), Lines());
    EXPECT_EQ(Entering("x BOB x"), Lines{"ban xbobx"}) << "where the asterisk stands has no meaning";
    EXPECT_EQ(control.RequestIDs.Item(2), "ab:1:2:xbobx:bob*") << "the first entry in list order";
    EXPECT_EQ(Entering("12345"), Lines{"ban 12345"}) << "ICQ, and no char ban behind it";
    EXPECT_EQ(Entering("abc de"), Lines{"ban abcde"});
    options.AutobanLevel = 2;
    EXPECT_EQ(Entering("678"), (Lines{"ban 678", "ban 678"}));
    EXPECT_EQ(control.RequestIDs.Item(5), "ab:1:5:678:*ALL*");
    options.Immunes.Add("54321", "54321");
    EXPECT_EQ(Entering("54321"), Lines());
    OpenRoom("Cellar", false);
    transcript.clear();
    Joins("crowd", 2);
    EXPECT_EQ(Taken(), Lines()) << "who was there before the bot";
    EXPECT_EQ(counters.lstActions.Text(), "User joined in chat 'Cellar': crowd");
}

TEST_F(AutoModerationTest, WordBans) {
    for (const char* word : {"badword", "<font", "bad"}) options.Autowords.Add(word);
    EXPECT_EQ(Answers("Bob", "bad"), Lines());
    options.WordBanOn = true;
    const struct {
        bool html;
        const char* line;
        const char* record; // what the request remembers as the word
    } cases[] = {
        {false, "a BAD WORD", "bad"}, // blanks stay, so the stored phrase isn't met
        {false, "aBADWORDs", "badword"},        {false, "b<i>a</i>d", "bad"},
        {true, "b<i>a</i>d", nullptr},          {true, "<FONT color=1>bad", "&lt;font"},
        {false, "<FONT color=1>good", nullptr}, {false, "", nullptr},
    };
    for (const auto& each : cases) {
        options.WordBanHTML = each.html;
        auto id = std::to_string(control.CurrentRequestID);
        EXPECT_EQ(Answers("Bob", each.line), each.record ? Lines{"ban bob"} : Lines()) << each.line;
        EXPECT_EQ(control.RequestIDs.Item(id), each.record ? "aw:1:" + id + ":bob:" + each.record : "");
    }
    options.WordBanOn = false;
    options.WordBanAll = true;
    EXPECT_EQ(Answers("Bob", "good day"), Lines{"ban bob"});
    options.Immunes.Add("bob", "bob");
    EXPECT_EQ(Answers("Bob", "bad"), Lines());
}

TEST_F(AutoModerationTest, AloneTheBotComesBackAsOwner) {
    options.Controls.chkAutoOwner.SetValue(1);
    ASSERT_TRUE(options.AutoOwner);
    Joins("third");
    Leaves("Third");
    EXPECT_EQ(control.Chat.Count(), 1U);
    told.clear();
    Leaves("B ob");
    EXPECT_EQ(told, Lines{"-B ob"});
    EXPECT_EQ(Taken(), Lines{"left Lobby manual"});
    EXPECT_FALSE(options.AutoOwner);
    EXPECT_EQ(options.Controls.chkAutoOwner.Value(), 0);
    EXPECT_EQ(counters.Kept(18), 1);
    EXPECT_EQ(counters.lstActions.Text(), "User left in chat 'Lobby': B ob");
}

TEST_F(AutoModerationTest, ScanOnUnrateBansOncePerEntry) {
    for (const char* entry : {"*ob", "bo*", "judge", "absent"}) options.Autobans.Add(entry);
    options.Immunes.Add("judge", "judge");
    engine.ScanAutobansOnUnrate(1);
    EXPECT_EQ(Taken(), Lines());
    options.ABOnUnrate = true;
    engine.ScanAutobansOnUnrate(1);
    engine.ScanAutobansOnUnrate(2); // no such room
    EXPECT_EQ(Taken(), (Lines{"ban bob", "ban bob"}));
}

TEST_F(AutoModerationTest, CommandsByIM) {
    OpenRoom("2");
    transcript.clear();
    auto helped = [this](const std::string& user, const std::string& text) {
        engine.InstantMessage(user, text);
        return Taken().size() == 1;
    };
    EXPECT_FALSE(helped("Judge", "lobby:help")) << "off";
    options.SetIMComs(true);
    EXPECT_EQ(told, Lines{"IM Judge: lobby:help"});
    EXPECT_TRUE(helped("Ju dge", "<b>Lob by</b>: he lp"));
    EXPECT_TRUE(helped("Judge", "1:help"));
    EXPECT_TRUE(helped("Judge", "2:help"));
    for (const char* text :
         {"nosuchroom:help", "0:help", "3:help", "-1:help", "99999:help", ":help", "help", ""})
        EXPECT_FALSE(helped("Judge", text)) << text;
    EXPECT_FALSE(helped("Bob", "1:help")) << "strangers get no answer";
    options.Ccoms.strTrigger = "!";
    EXPECT_TRUE(helped("Judge", "1:help")) << "the trigger does not apply";
    engine.InstantMessage("Judge", "1:gban a:b");
    EXPECT_EQ(Taken(), Lines{"ban a:b"});
}

TEST_F(AutoModerationTest, AnyBytesAsACommand) {
    const std::string pieces[] = {"",
                                  ",",
                                  "*",
                                  ":",
                                  "\"",
                                  "<b>",
                                  "\xE9\xFF",
                                  "1e400",
                                  "%p%d%s",
                                  "/",
                                  std::string(3, '\0'),
                                  std::string(3000, 'a'),
                                  std::string(1500, ',')};
    for (int index = 0; index < CcomCount; ++index) {
        if (index == CcomRejoin) continue;
        for (const auto& first : pieces)
            for (const auto& second : pieces) {
                Says("Judge", options.Ccoms.GetCcom(index) + first + second);
                engine.InstantMessage("Judge", first + ":" + options.Ccoms.GetCcom(index) + second);
            }
    }
    world.RunFor(600000);
    for (const auto& line : transcript) EXPECT_TRUE(line.size() <= 250 || !line.starts_with("«")) << line;
    EXPECT_EQ(control.Chat.Count(), 1U);
}

} // namespace

} // namespace halyard
