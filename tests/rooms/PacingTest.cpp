#include "tests/rooms/RoomScenario.h"

namespace halyard {

class Pacing : public RoomScenario {
  protected:
    /// Sends each "key|template|name|other value" of the script, apart by "; "; "@5" is the fifth second.
    void Sends(const std::string& script) {
        for (const auto& step : Split(script, "; ")) {
            auto parts = Split(step, "|");
            parts.resize(4);
            if (step[0] == '@')
                RunTo(static_cast<double>(host.zero) / 1000 + Val(Mid(step, 2)));
            else
                Send(room, parts[0], parts[1], parts[2], parts[3]);
        }
    }
    Chats& room = OpenRoom("Lobby", 3);
};

TEST_F(Pacing, WhatIsSaidWhen) {
    const struct {
        const char *why, *script, *heard;
    } cases[] = {
        {"names that wait become one line per mask, until the class has gone idle",
         "AB|ann|a*; AB|abe|a*; AB|bob|b*; AB|amy|a*; @30; AB|ava|a*",
         "0 Auto: ann, matches: a*; 8.2 Auto: abe, amy, matches: a*; 16.4 Auto: bob, matches: b*; "
         "30 Auto: ava, matches: a*"},
        {"an empty second value is not remembered as the one to go by", "AB|no|; AB|no|; AB|a*|a*; AB|b*|b*",
         "0 Auto: no, matches: ; 8.2 Auto: no, b*, matches: b*; 16.4 Auto: a*, matches: a*"},
        {"a folded line takes the values of the entry read last",
         "OP|first; oped|Old: %p %d|ann|1; notop|Not: %p|between; oped|New: %p %d|bob|2",
         "0 Op: first; 8.2 New: ann, bob 2; 16.4 Not: between"},
        {"settings come one by one, the first twice; a merged send that stands before one is lost",
         "bl|Level: %p|all; @1; OP|ann; OP|lost; bp|Pause: %p|2; cb|Char: %p|on",
         "0 Level: all; 1 Op: ann; 8.5 Pause: 2; 17 Pause: 2; 25.5 Char: on"},
        {"a setting leaves a queue without its like alone", "OP|ann; OP|bob; bl|Level: %p|all",
         "0 Op: ann; 0 Level: all; 8.2 Op: bob"},
        {"answers within eleven seconds are lost",
         "help|%p has no perms|ann; @5; info|Info: %p --- %d|bob|away; @12; status|Status: %p|12:30",
         "0 ann has no perms; 12 Status: 12:30"},
        {"only status and ban pause escape the link guard",
         "banned|Banned: %p|a.b@c:d; bp|Pause: %p|2.5; banrated|%p again: %d|0.5|x.y",
         "0 Banned: a . b @ c : d; 0 Pause: 2.5; 0 0 . 5 again: x.y"},
        {"keys of no group say nothing", "ghostbanned|%p|ann; |%p|ann; Banned|%p|ann; msg1|%p|ann", ""},
        {"the placeholders of the wrong group stay",
         "untbanned|%s minutes, %p: %d %t|ann|5; @9; oped|%p %s %d %t|bob|x; msgrated|%p %s %d %t|1|note",
         "0 5 minutes, ann: %d %t; 9 bob %s x %t; 9 1 %s note %t"}};
    for (const auto& [why, script, heard] : cases) {
        SCOPED_TRACE(why);
        host.zero = world.Now();
        host.transcript.clear();
        Sends(Replace(Replace(script, "AB|", "autobanned|Auto: %p, matches: %s|"), "OP|", "oped|Op: %p|"));
        Heard(Second() + 90, heard);
        EXPECT_EQ(room.MsgQueue.Count(), 0U);
    }
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

TEST_F(Pacing, ClearingTheQueueEndsThePauses) {
    room.BanQueue.Add("waits");
    for (int type : {2, 1}) {
        for (const char* key : {"oped", "bl", "help"})
            for (const char* name : {"1", "2"}) Send(room, key, "%p", name);
        room.ClearQueue(type);
    }
    for (const char* key : {"oped", "bl", "help"}) Send(room, key, "%p", "3");
    Heard(Second(), "0 1; 0 1; 0 1; 0 3; 0 3; 0 3");
    EXPECT_EQ(room.BanQueue.Count(), 1U);
    room.ClearQueue(0);
    EXPECT_EQ(room.BanQueue.Count(), 0U);
}

TEST_F(Pacing, BansGoOutAPauseApart) {
    using Case = std::tuple<float, std::string, std::string>;
    for (const auto& [pause, first, second] : {Case{.0001F, "0.001", "0.002"}, Case{59.5F, "59.5", "119"},
                                               Case{60.F, "61", "122"}, Case{90.F, "91", "182"}}) {
        room.SetBanPause(pause);
        for (const char* name : {"bob", "cid"}) room.QueueBan(name, 3, 8, BanKind::Ban, "");
        room.tmrBan->SetEnabled(true); // a first ban has gone out at once
        host.transcript.clear();
        host.zero = world.Now();
        RunTo(Second() + 500);
        EXPECT_EQ(Transcript(), (Lines{first + " store 8 ban:3:8:bob:", first + " ban 3 8 bob",
                                       second + " store 8 ban:3:8:cid:", second + " ban 3 8 cid"}));
    }
}

TEST_F(Pacing, ARoomThatEndsWhileItSpeaksIsSafe) {
    Sends("oped|Op: %p|ann; oped|Op: %p|bob; oped|Op: %p|cid");
    host.onSay = [this] { CloseRoom(1); };
    Heard(60, "0 Op: ann; 8.2 Op: bob, cid");
    EXPECT_EQ(rooms.Count(), 0U);
}

} // namespace halyard
