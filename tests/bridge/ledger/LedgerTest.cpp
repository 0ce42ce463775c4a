// What the ledger makes of what the desk tells: acts and their causes, what became of them, lists and
// options.

#include "tests/bridge/ledger/LedgerScene.h"

namespace halyard {
namespace {

TEST(LastLines, FindsAPersonsLinesInWhateverSpellingUntilTheyAreWrittenOver) {
    LastLines lines;
    const auto of = [&](const std::string& name, std::size_t count = 3, std::int64_t since = 0) {
        std::string all;
        for (const auto& line : lines.Of(name, since, count)) all += line.text + ";";
        return all;
    };
    EXPECT_EQ(of("bob"), "");
    for (const auto* text : {"one", "two", "three", "four"}) lines.Add(10, 2, "Bob The \x8A\x9F", text);
    lines.Add(20, 2, "alice", std::string(3000, 'x'));
    lines.Add(20, 3, "", "nobody's");
    lines.Add(30, 2, "b O bthe\x9A\xFF", "five");
    EXPECT_EQ(of("bobthe\x9A\xFF"), "three;four;five;");
    EXPECT_EQ(of("bobthe\x9A\xFF", 3, 11), "five;");
    EXPECT_EQ(of("ALICE").size(), 1001U);
    // A name too long for one look at it.
    lines.Add(30, 2, "a name of more than sixteen", "long");
    EXPECT_EQ(of("ANameOfMoreThanSixteen"), "long;");
    for (std::size_t bytes = 0; bytes < LastLines::Bytes - 4000; bytes += 1000)
        lines.Add(40, 2, "flood", std::string(959, 'y'));
    EXPECT_EQ(of("bobthe\x9A\xFF", 1), "five;");
    for (int more = 0; more < 20; ++more) lines.Add(40, 2, "flood", std::string(959, 'y'));
    EXPECT_EQ(of("bobthe\x9A\xFF"), "");
    EXPECT_EQ(of("flood").size(), 3 * 960U);
}

TEST(Ledger, KeepsABanWithItsCauseItsEvidenceAndItsStages) {
    LedgerScene scene;
    for (const auto* line : {"old", "hi", "you <i>all</i>", std::string_view("nul\0here", 8).data()})
        scene.ledger->LineHeard(2, "Bo B", line);
    scene.ledger->LineHeard(2, "alice", "not me");
    scene.OpBans(7, "bob");
    EXPECT_EQ(scene.ledger->Records() != nullptr, true);
    scene.Wait(40);
    scene.Yes(7, "bob");
    scene.ledger->BanAnswered(2, 7, BanVerdict::Accepted, 0); // again
    EXPECT_EQ(scene.Acts(), (Lines{"1|1|bob|1||1"}));
    EXPECT_EQ(
        scene.Rows("SELECT p.key, r.key, o.spelled, a.asked, a.answered, ifnull(a.queued, '-') FROM acts a "
                   "JOIN persons p ON p.id = a.person JOIN rooms r ON r.id = a.room "
                   "JOIN persons o ON o.id = a.op"),
        (Lines{"bob|thelobby|Room Boss|0|40|-"}));
    EXPECT_EQ(scene.Rows("SELECT line, reason FROM causes"), (Lines{"<b>ban bob/was rude</b>|was rude"}));
    EXPECT_EQ(scene.Rows("SELECT line FROM evidence"), (Lines{"hi", "you <i>all</i>", "nul"}));
    EXPECT_EQ(scene.Rows("SELECT wire, ifnull(act, '-'), verdict FROM requests"), (Lines{"7|1|1", "7|-|1"}));
    EXPECT_EQ(scene.Rows("SELECT act, op, entry FROM changes"), (Lines{"1|1|bob"}));
    for (const auto* word : {"rude", "bob", "\xEE\x80\x80o1", "\xEE\x80\x80qrude", "\xEE\x80\x80k1"})
        EXPECT_EQ(scene.Rows(std::string("SELECT rowid FROM words WHERE words MATCH '\"") + word + "\"'"),
                  (Lines{"1"}))
            << word;
    EXPECT_EQ(scene.Rows("SELECT rowid FROM words WHERE words MATCH 'b'"), Lines{}) << "a tag is no word";
    EXPECT_EQ(scene.Findings(), Lines{});
}

TEST(Ledger, SaysWhatBecameOfEachRequest) {
    struct Case {
        const char* what;
        std::function<void(LedgerScene&)> happens;
        const char* act; ///< kind, person, outcome, code
        const char* requests = "";
    };
    const Case cases[] = {
        {"refused",
         [](LedgerScene& s) { s.Ban(7, "bob"), s.ledger->BanAnswered(2, 7, BanVerdict::Refused, 72); },
         "1|bob|2|72", "1|2|72"},
        {"not enforced",
         [](LedgerScene& s) { s.Ban(7, "bob"), s.ledger->BanAnswered(2, 7, BanVerdict::NotEnforced, 1); },
         "1|bob|3|1", "1|3|1"},
        {"another room answers",
         [](LedgerScene& s) { s.Ban(7, "bob"), s.ledger->BanAnswered(3, 7, BanVerdict::Accepted, 0); },
         "1|bob|5|", "1||;|1|"},
        {"rated",
         [](LedgerScene& s) { s.ledger->BanDropped(2, 0, BanKind::Kick, "bob", "", DropReason::Rated); },
         "3|bob|4|2"},
        {"waited and was cleared",
         [](LedgerScene& s) {
             s.ledger->BanWanted(2, 7, BanKind::TimeBan, "bob", "");
             s.ledger->BanDropped(2, 7, BanKind::TimeBan, "bob", "", DropReason::Cleared);
         },
         "4|bob|4|3"},
        {"room left", [](LedgerScene& s) { s.Ban(7, "bob"), s.ledger->RoomLeft(2, "The Lobby", "error"); },
         "1|bob|5|", "1||"},
        {"id given out again",
         [](LedgerScene& s) {
             s.Ban(7, "bob"), s.Ban(7, "eve"), s.ledger->BanAnswered(2, 7, BanVerdict::Accepted, 0);
         },
         "1|bob|6|", "1||;2|1|"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        LedgerScene scene;
        each.happens(scene);
        scene.ledger->SignedOff();
        EXPECT_EQ(
            scene.Rows("SELECT kind || '|bob|' || outcome || '|' || ifnull(code, '') FROM acts WHERE id = 1"),
            (Lines{Split(each.act, "~")[0].substr(0, std::string(each.act).find_last_not_of('|') + 1)}));
        std::string requests;
        for (const auto& row : scene.Rows("SELECT ifnull(act, '') || '|' || ifnull(verdict, '') || '|' || "
                                          "ifnull(word, '') || ';' FROM requests"))
            requests += row;
        EXPECT_EQ(requests, each.requests[0] ? std::string(each.requests) + ";" : "");
        EXPECT_EQ(scene.Findings(), Lines{});
    }
    LedgerScene scene;
    scene.ledger->BanWanted(2, 7, BanKind::Ban, "bob", "");
    scene.Wait(1300);
    scene.ledger->BanAsked(2, 7, BanRequestKind::Ban, "bob");
    EXPECT_EQ(scene.Rows("SELECT queued, asked FROM acts"), (Lines{"0|1300"}));
}

TEST(Ledger, GivesChangesOfListsAndOptionsTheirCauses) {
    LedgerScene scene;
    auto& options = scene.options;
    auto& tell = scene.control.Tell();
    Hand(tell, options.Controls.txtChat, [&] { options.Autobans.Add("sp4m*"); });
    scene.OpBans(7, "bob");
    scene.Yes(7, "bob");
    scene.OpBans(8, "eve");
    { // a kick's second half has the cause of its first
        scene.ledger->BanAnswered(2, 8, BanVerdict::Accepted, 0);
        const CauseScope reply(tell, {.kind = CauseKind::Reply, .room = 2, .request = 8});
        scene.Ban(9, "eve", BanKind::UnbanKick);
    }
    for (const auto* text : {"s", "sp", "spa"}) // typed
        Hand(tell, options.Controls.txtChat, [&] { options.Controls.txtChat.SetText(text); });
    Hand(tell, options.Controls.txtEx,
         [&] { options.Ops.Add("carol"), options.SetPerms("carol", FullPerms); });
    EXPECT_EQ(scene.Acts(), (Lines{"1|6||7||5|sp4m*", "2|1|bob|1||1", "3|1|eve|1||1", "4|5|eve|0||1",
                                   "5|6|carol|7||5|carol", "6|9||7||5|chat", "7|9||7||5|perms:carol"}));
    EXPECT_EQ(scene.Rows("SELECT entry, ifnull(before, '-'), after FROM changes WHERE op = 4"),
              (Lines{"chat||spa", std::string("perms:carol|-|") + FullPerms}));
    { // a file of many names is one act
        const CauseScope hand(tell, {.kind = CauseKind::Hand, .entry = "cmdLoad"});
        const CauseScope load(tell, {.kind = CauseKind::Load, .entry = "/lists.hys"});
        options.Autobans.Clear();
        for (int name = 0; name < 1000; ++name) options.Autobans.Add("name" + std::to_string(name));
        options.WordBanOn = true;
    }
    { // no scope: its own act, of an unknown cause
        options.Autobans.Remove("name7");
    }
    EXPECT_EQ(scene.Acts("a.id > 7"), (Lines{"8|10||7||6|/lists.hys", "9|7|name7|7||0|name7"}));
    EXPECT_EQ(scene.Rows("SELECT count(*) FROM changes"), Lines{"6"});
    EXPECT_EQ(scene.Rows("SELECT list, begins FROM wholes WHERE after_change = 5"), (Lines{"3|1", "0|1"}));
    EXPECT_EQ(scene.Findings(), Lines{});
    scene.ledger->TakeBack(20, 1);
    options.Autobans.Remove("name8");
    scene.ledger->TakeBack(0, 0);
    EXPECT_EQ(scene.Rows("SELECT undone FROM acts WHERE id = 1"), Lines{"20"});
    EXPECT_EQ(scene.Rows("SELECT id FROM acts WHERE undoes = 1"), Lines{"10"});
}

} // namespace
} // namespace halyard
