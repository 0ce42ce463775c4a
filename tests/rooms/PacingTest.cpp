#include "tests/rooms/RoomScenario.h"

namespace halyard {

namespace {

class Pacing : public RoomScenario {
  protected:
    void Ban(const std::string& name, const std::string& mask) {
        Send(room, "autobanned", "Auto: %p, matches: %s", name, mask);
    }
    /// Sends each "key|template|name|other value|type" of the script, apart by "; ".
    void Sends(const std::string& script) {
        for (const auto& step : Split(script, "; ")) {
            auto parts = Split(step, "|");
            parts.resize(5);
            Send(room, parts[0], parts[1], parts[2], parts[3], parts[4].empty() ? "msg2" : parts[4]);
        }
    }
    Chats& room = OpenRoom("Lobby", 3);
};

TEST_F(Pacing, NamesThatWaitBecomeOneLinePerMask) {
    for (const char* name : {"ann", "abe", "bob", "amy"}) Ban(name, std::string(1, name[0]) + "*");
    Heard(30, "0 Auto: ann, matches: a*; 8.2 Auto: abe, amy, matches: a*; 16.4 Auto: bob, matches: b*");
    Ban("ava", "a*"); // the class has gone idle
    EXPECT_EQ(Transcript().back(), "30 Auto: ava, matches: a*");
}

// An empty second value is not remembered as the one to go by.
TEST_F(Pacing, ANameWithoutMaskJoinsTheNextMask) {
    for (const char* mask : {"", "", "a*", "b*"}) Ban(mask[0] ? mask : "none", mask);
    Heard(20, "0 Auto: none, matches: ; 8.2 Auto: none, b*, matches: b*; 16.4 Auto: a*, matches: a*");
}

// Template, name and list may have 210 characters together; separators do not count. A pass steps over the
// entry behind each one it takes, so that "c" comes after "d" and "f".
TEST_F(Pacing, WhatPassesTheLimitWaitsForTheNextFiring) {
    const auto names = [](const std::string& letters) {
        std::string list;
        for (char c : letters) list += (list.empty() ? "" : ", ") + std::string(50, c);
        return list;
    };
    for (const std::string text : {"%p 456", "%p 4567"}) {
        for (char c = 'a'; c <= 'f'; ++c) Send(room, "oped", text, names({c}));
        RunTo(Second() + 30);
    }
    EXPECT_EQ(Transcript(), (Lines{"0 " + names("a") + " 456", "8.2 " + names("bdfc") + " 456",
                                   "16.4 " + names("e") + " 456", "30 " + names("a") + " 4567",
                                   "38.2 " + names("bdf") + " 4567", "46.4 " + names("ce") + " 4567"}));
}

TEST_F(Pacing, AFoldedLineTakesTheValuesOfTheEntryReadLast) {
    Sends("oped|Op: %p|first; oped|Old: %p %d|ann|1; notop|Not: %p|between; oped|New: %p %d|bob|2");
    Heard(20, "0 Op: first; 8.2 New: ann, bob 2; 16.4 Not: between");
}

// They come one by one; a merged send that stands before one is lost, and the setting line is said twice.
TEST_F(Pacing, ASettingLineTakesTheHeadOfTheQueueWithIt) {
    Sends("bl|Level: %p|all");
    RunTo(1);
    Sends("oped|Op: %p|ann; oped|Op: %p|lost; bp|Pause: %p|2; cb|Char: %p|on");
    Heard(60, "0 Level: all; 1 Op: ann; 8.5 Pause: 2; 17 Pause: 2; 25.5 Char: on");
}

TEST_F(Pacing, ASettingLineLeavesAQueueWithoutItsLikeAlone) {
    Sends("oped|Op: %p|ann; oped|Op: %p|bob; bl|Level: %p|all");
    Heard(10, "0 Op: ann; 0 Level: all; 8.2 Op: bob");
}

TEST_F(Pacing, AnswersWithinElevenSecondsAreLost) {
    Send(room, "help", "%p has no perms", "ann");
    RunTo(5);
    Send(room, "info", "Info: %p --- %d", "bob", "away", "msg2");
    EXPECT_EQ(room.MsgQueue.Count(), 0U);
    RunTo(12);
    Send(room, "status", "Status: %p", "12:30");
    Heard(Second(), "0 ann has no perms; 12 Status: 12:30");
}

TEST_F(Pacing, OnlyStatusAndBanPauseEscapeTheLinkGuard) {
    Sends("banned|Banned: %p|a.b@c:d; bp|Pause: %p|2.5; banrated|%p again: %d|0.5|x.y");
    Heard(Second(), "0 Banned: a . b @ c : d; 0 Pause: 2.5; 0 0 . 5 again: x.y");
}

TEST_F(Pacing, KeysOfNoGroupSayNothing) {
    for (const char* key : {"ghostbanned", "", "Banned", "msg1"}) Send(room, key, "%p", "ann");
    EXPECT_TRUE(Transcript().empty());
    EXPECT_EQ(room.MsgQueue.Count(), 0U);
}

// What one room made of the strings is what the next room gets.
TEST_F(Pacing, StringsStayRewrittenForTheNextRoom) {
    auto& other = OpenRoom("Annex", 4);
    for (const char* key : {"banned", "help"}) {
        std::string name = "a.b", text = "%p!";
        for (auto* each : {&room, &other}) each->PrepareChatSend(name, "%p", text, "", key, "msg1");
        EXPECT_EQ(name, "a  .  b");
    }
    Heard(Second(), "0 a . b!; 0 a  .  b!; 0 a . b!; 0 a . b!");
}

TEST_F(Pacing, ThePlaceholdersOfTheWrongGroupStay) {
    Send(room, "untbanned", "%s minutes, %p: %d %t", "ann", "5");
    RunTo(9);
    Sends("oped|%p %s %d %t|bob|x; msgrated|%p %s %d %t|1|note");
    Heard(Second(), "0 5 minutes, ann: %d %t; 9 bob %s x %t; 9 1 %s note %t");
}

TEST_F(Pacing, TheNumberOfBansIsThatOfTheFirstListOfTheName) {
    const auto sayBoth = [this] {
        for (const char* key : {"banned", "autobanned"}) {
            Send(room, key, "%p %d", "cid");
            RunTo(Second() + 10);
        }
    };
    sayBoth();
    for (int exchange : {5, 4}) {
        auto list = std::make_shared<EjectList>();
        list->ChatName = "lob BY";
        list->Exchange = static_cast<std::int16_t>(exchange);
        for (int i = 0; i < exchange; ++i) list->AddEject("user" + std::to_string(i));
        host.lists.Add(list);
    }
    sayBoth();
    Heard(Second(), "0 cid 0; 10 cid %d; 20 cid 5; 30 cid 5");
}

TEST_F(Pacing, ClearingTheQueueEndsThePauses) {
    for (const char* key : {"oped", "bl", "help"})
        for (const char* name : {"1", "2"}) Send(room, key, "%p", name);
    room.BanQueue.Add("waits");
    room.ClearQueue(2);
    EXPECT_EQ(room.MsgQueue.Count(), 2U);
    room.ClearQueue(1);
    for (const char* key : {"oped", "bl", "help"}) Send(room, key, "%p", "3");
    Heard(Second(), "0 1; 0 1; 0 1; 0 3; 0 3; 0 3");
    EXPECT_EQ(room.BanQueue.Count(), 1U);
    room.ClearQueue(0);
    EXPECT_EQ(room.BanQueue.Count(), 0U);
}

TEST_F(Pacing, ARoomThatEndsWhileItSpeaksIsSafe) {
    Sends("oped|Op: %p|ann; oped|Op: %p|bob; oped|Op: %p|cid");
    host.onSay = [this] { CloseRoom(1); };
    Heard(60, "0 Op: ann; 8.2 Op: bob, cid");
    EXPECT_EQ(rooms.Count(), 0U);
}

} // namespace

} // namespace halyard
