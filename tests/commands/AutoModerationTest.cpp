// What the bot does by itself, and commands by instant message.

#include "tests/commands/RoomScene.h"

namespace halyard {

struct AutoModerationTest : RoomScene {
    AutoModerationTest() { confirmBans = false; }
};

TEST_F(AutoModerationTest, JoinChecksInOrder) {
    for (const char* entry : {"exact", "bob*", "*xb"}) options.Autobans.Add(entry);
    options.CharBanNum = 5;
    Play("", "Exact -> # everything is off");
    options.AutobanLevel = 1;
    options.BanAllICQs = options.CharBanOn = true;
    Play("", R"(Exact -> ban exact # once, although it has 5 characters
                exactly ->
                x BOB x -> ban xbobx # where the asterisk stands has no meaning
                12345 -> ban 12345 # ICQ, and no char ban behind it
                abc de -> ban abcde)");
    options.AutobanLevel = 2;
    Immune("54321");
    Play("", "678 -> ban 678 | ban 678; 54321 ->");
    EXPECT_EQ(control.RequestIDs.Item(1), "ab:1:1:exact:exact");
    EXPECT_EQ(control.RequestIDs.Item(2), "ab:1:2:xbobx:bob*") << "the first entry in list order";
    EXPECT_EQ(control.RequestIDs.Item(5), "ab:1:5:678:*ALL*");
    OpenRoom("Cellar", false);
    transcript.clear();
    Joins("crowd", 2);
    EXPECT_EQ(Taken(), Lines()) << "who was there before the bot";
    EXPECT_EQ(counters.lstActions.Text(), "User joined in chat 'Cellar': crowd");
}

TEST_F(AutoModerationTest, WordBans) {
    for (const char* word : {"badword", "<font", "bad"}) options.Autowords.Add(word);
    Play("Bob", "bad ->");
    options.WordBanOn = true;
    const std::tuple<bool, const char*, std::string> cases[] = {
        {false, "a BAD WORD", "bad"}, // blanks stay, so the stored phrase isn't met
        {false, "aBADWORDs", "badword"},   {false, "b<i>a</i>d", "bad"},
        {true, "b<i>a</i>d", ""},          {true, "<FONT color=1>bad", "&lt;font"},
        {false, "<FONT color=1>good", ""}, {false, "", ""}};
    for (const auto& [html, line, word] : cases) {
        options.WordBanHTML = html;
        auto id = std::to_string(control.CurrentRequestID);
        EXPECT_EQ(Answers("Bob", line), word.empty() ? Lines() : Lines{"ban bob"}) << line;
        EXPECT_EQ(control.RequestIDs.Item(id), word.empty() ? "" : "aw:1:" + id + ":bob:" + word);
    }
    options.WordBanOn = false;
    options.WordBanAll = true;
    Play("Bob", "good day -> ban bob");
    Immune("bob");
    Play("Bob", "bad ->");
}

TEST_F(AutoModerationTest, AloneTheBotComesBackAsOwner) {
    options.Controls.chkAutoOwner.SetValue(1);
    Joins("third");
    Leaves("Third");
    told.clear();
    Leaves("B ob");
    EXPECT_EQ(told, Lines{"-B ob"});
    EXPECT_EQ(Taken(), Lines{"left Lobby manual"});
    EXPECT_FALSE(options.AutoOwner || options.Controls.chkAutoOwner.Value());
    EXPECT_EQ(counters.Kept(18), 1);
    EXPECT_EQ(counters.lstActions.Text(), "User left in chat 'Lobby': B ob");
}

TEST_F(AutoModerationTest, ScanOnUnrateBansOncePerEntry) {
    for (const char* entry : {"*ob", "bo*", "judge", "absent"}) options.Autobans.Add(entry);
    Immune("judge");
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
    options.Ccoms.strTrigger = "!"; // does not apply
    for (const char* text : {"<b>Lob by</b>: he lp", "1:help", "2:help"}) EXPECT_TRUE(helped("Ju dge", text));
    for (const auto& text : Split("nosuchroom:help|0:help|3:help|-1:help|99999:help|:help|help|", "|"))
        EXPECT_FALSE(helped("Judge", text)) << text;
    EXPECT_FALSE(helped("Bob", "1:help")) << "strangers get no answer";
    engine.InstantMessage("Judge", "1:gban a:b");
    EXPECT_EQ(Taken(), Lines{"ban a:b"});
}

} // namespace halyard
