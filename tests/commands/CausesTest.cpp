// What a listener is told of acts and lists, and of which cause each has.

#include "base/Text.h"
#include "platform/Hand.h"
#include "tests/commands/RoomScene.h"

namespace halyard {

namespace {

/// "who 'line' (reason) [entry]" of the innermost scope, and what stands around it behind " in ".
std::string Words(const CauseScope* scope) {
    if (!scope) return "nothing";
    static const char* const kinds[] = {"unknown", "line", "IM",    "internal", "rule", "hand",
                                        "load",    "time", "reply", "service",  "undo", "answer"};
    const auto& cause = scope->cause;
    std::string text = kinds[static_cast<int>(cause.kind)];
    if (!cause.who.empty()) text += " " + std::string(cause.who);
    if (!cause.line.empty()) text += " '" + std::string(cause.line) + "'";
    if (!cause.reason.empty()) text += " (" + std::string(cause.reason) + ")";
    if (!cause.entry.empty()) text += " [" + std::string(cause.entry) + "]";
    if (cause.request != 0) text += " " + std::to_string(cause.request);
    return scope->outer ? text + " in " + Words(scope->outer) : text;
}

struct Hearer : News {
    explicit Hearer(Telling& telling) : telling(telling) { telling.news = this; }
    Telling& telling;
    Lines heard;

    void Note(const std::string& fact) { heard.push_back(fact + " <- " + Words(telling.cause)); }
    void BanWanted(std::int16_t, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string&) override {
        Note(std::string(WordOf(kind)) + " " + std::to_string(id) + " " + name);
    }
    void BanDropped(std::int16_t, std::int32_t id, BanKind kind, const std::string& name, const std::string&,
                    DropReason why) override {
        const char* const reasons[] = {"no room", "rated", "cleared", "locked"};
        Note("drop " + std::string(WordOf(kind)) + " " + std::to_string(id) + " " + name + ": " +
             reasons[static_cast<int>(why) - 1]);
    }
    void ListAdded(const ListId& list, const std::string& entry) override {
        Note("+" + std::to_string(static_cast<int>(list.list)) + std::string(list.room) + " " + entry);
    }
    void ListRemoved(const ListId& list, const std::string& entry) override {
        Note("-" + std::to_string(static_cast<int>(list.list)) + std::string(list.room) + " " + entry);
    }
    void ListCleared(const ListId& list) override {
        Note("0" + std::to_string(static_cast<int>(list.list)) + std::string(list.room));
    }
    void MessagePassedOver(const std::string& name, const std::string& message) override {
        Note("passed over " + name + ": " + message);
    }
    void CauseEnded(const CauseScope&) override { heard.push_back("."); }
};

} // namespace

struct CausesTest : RoomScene {
    Hearer hearer{control.Tell()};
    ~CausesTest() override { control.SetNews(nullptr); }
    void Heard(const Lines& expected) {
        EXPECT_EQ(std::exchange(hearer.heard, {}), expected);
        EXPECT_EQ(control.Tell().cause, nullptr);
    }
};

TEST_F(CausesTest, EachActKnowsItsLineItsRuleOrTheHand) {
    Says("Jud ge", "<b>ban b ob/ was rude/very</b>");
    world.RunFor(2000);
    const std::string judge = " <- line Jud ge '<b>ban b ob/ was rude/very</b>' (was rude/very)";
    Heard({"ban 1 bob" + judge, ".", "+8Lobby bob <- reply 1", "."});

    options.Ccoms.strTrigger = "!!";
    Says("Judge", "aw sp4m !! no links");
    Says("Bob", "nothing");
    options.WordBanOn = true;
    Says("B ob", "<i>SP4M</i>");
    world.RunFor(2000);
    Heard({"+4 sp4m <- line Judge 'aw sp4m !! no links' (no links)", ".",
           "aw 2 bob <- rule B ob '<i>SP4M</i>' [sp4m]", ".", "."}); // bob is on the list already

    options.Ccoms.strTrigger.clear();
    world.RunFor(2000);
    hearer.heard.clear();
    Says("Judge", "kick bob");
    world.RunFor(2000);
    Heard({"kick 3 bob <- line Judge 'kick bob'", ".", "unbankick 4 bob <- reply 3", ".",
           "-8Lobby bob <- reply 4", "."});

    Hand(control.Tell(), options.Controls.lstABs, [&] { engine.Lists().AddAB("spam*", 0); });
    options.AutobanLevel = 1;
    Joins("Spam Er");
    world.RunFor(2000);
    engine.InternalCommand("lobby:unab spam*");
    Heard({"+3 spam* <- hand [lstABs]", ".", "ab 5 spamer <- rule Spam Er [spam*]", ".",
           "+8Lobby spamer <- reply 5", ".", "-3 spam* <- internal [Manual Command] 'unab spam*'", "."});

    options.IMComsOn = true;
    engine.InstantMessage("Judge", "lobby:imm bob");
    engine.InstantMessage("Judge", "why bob");
    engine.InstantMessage("Bob", "lobby:imm bob");
    Heard({"+2 bob <- IM Judge 'lobby:imm bob'", ".", "passed over Judge: why bob <- nothing",
           "passed over Bob: lobby:imm bob <- nothing"});

    Hand(control.Tell(), options.Controls.lstImms, [&] { options.Immunes.Clear(), options.Immunes.Clear(); });
    Heard({"02 <- hand [lstImms]", "."});
}

TEST_F(CausesTest, WhatComesToNothingIsToldOnceWithItsReason) {
    confirmBans = false;
    Joins("ann");
    options.LockBans.Add("bo*");
    options.PartialOn[3] = false;
    hearer.heard.clear();
    Says("Judge", "unban bob");
    Heard({"drop unban 0 bob: locked <- rule bob [bo*] in line Judge 'unban bob'", "."});
    Says("Judge", "ban bob,ann");
    Room().ClearQueue(0);
    Says("Judge", "ban bob,ann");
    Room().RateNotice(2, 1);
    Says("Judge", "gban bob");
    control.UnbanUser("bob", BanKind::Unban, 77);
    const std::string bans = " <- line Judge 'ban bob,ann'";
    Heard({"ban 1 bob" + bans, "ban 2 ann" + bans, ".", "drop ban 2 ann: cleared <- nothing",
           "ban 3 bob" + bans, "ban 4 ann" + bans, ".", "drop ban 3 bob: rated <- nothing",
           "drop ban 4 ann: rated <- nothing", "drop gban 0 bob: rated <- line Judge 'gban bob'", ".",
           "drop unban 0 bob: no room <- nothing"});
}

} // namespace halyard
