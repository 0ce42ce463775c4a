// The guards of bans and of whom they hit: in each scenario the same happens to the bot twice, with the one
// guard off, where it does what it always did, and on.

#include "bridge/guards/GuardList.h"
#include "platform/sqlite/InlineDatabase.h"
#include "surface/bridge/Bridge.h"
#include "tests/platform_sqlite/TestFolder.h"
#include "tests/surface/DeskScene.h"

#include <functional>
#include <optional>

namespace halyard {
namespace {

constexpr const char* bot = "harbourbot";

/// In the folder of the test, wherever the simulated world would have its file.
class FolderDatabase : public InlineDatabase {
  public:
    explicit FolderDatabase(const TestFolder& folder) : folder(folder) {}
    void Open(const DatabaseSpec& spec, Opened done) override {
        auto own = spec;
        own.path = folder.Path(spec.path.substr(spec.path.rfind('/') + 1));
        InlineDatabase::Open(own, std::move(done));
    }

  private:
    const TestFolder& folder;
};

/// The bot in the lobby, and "judge", who may do everything.
class BansDesk : public Desk {
  public:
    BansDesk(Departure guard, bool on) : guard(guard) {
        machine.databases = [this] { return std::make_unique<FolderDatabase>(folder); };
        const auto write = network.onEvent;
        network.onEvent = [this, write](const PracticeEvent& event) {
            write(event);
            if (event.what.find("the message") != std::string::npos) messages += event.what + "; ";
        };
        Begin(on);
        for (auto* box : {&boxes.chkAutoLogin, &boxes.chkRejoinError}) Set(*box, true);
        MakeOp("judge");
        SignOn();
        Join("lobby");
        Enter({"judge"});
    }
    void Begin(bool on) {
        bridge.emplace(window);
        GuardTerms terms;
        terms.Decide(guard, on ? Departures::Guard::On : Departures::Guard::Unset);
        bridge->Start();
        bridge->TakeGuards(terms);
    }
    /// Another run of the program: nothing is left but its files.
    void Restart() {
        bridge.reset();
        control.ClearTimeBans();
        window.connection.cmdSignOff.Press();
        Begin(true);
        SignOn();
        Join("lobby");
    }

    const Departure guard;
    TestFolder folder;
    std::optional<Bridge> bridge;
    std::string messages;

    Chats& Lobby() { return *control.Chat.Item(1); }
    void Enter(const std::vector<std::string>& names) {
        for (const auto& name : names) people.Enter("lobby", name);
        Wait(1);
    }
    void Judge(const std::vector<std::string>& lines) {
        for (const auto& line : lines) {
            people.Say("lobby", "judge", line);
            Wait(1);
        }
    }
    void Rated(bool on) { Lobby().RateNotice(on ? 2 : 5, 1); }
    std::string Out() const { return Joined(network.Bans("lobby")); }
    using Desk::Listed;
    std::string Listed() const {
        std::string all;
        for (const auto& list : control.EjectLists)
            if (list->IsOf("lobby", 4))
                for (const auto& name : list->GetEjects()) all += name + " ";
        return all;
    }
    template <typename Names>
    static std::string Joined(const Names& names) {
        std::string all;
        for (const auto& name : names) all += name + " ";
        return all;
    }
    GuardCount Count() {
        GuardCount count;
        bridge->guards.book.Ask(
            [&](const GuardCounts& counts) { count = counts[static_cast<std::size_t>(guard)]; });
        return count;
    }
};

/// Eve's end comes while banning is limited, bob is banned for good meanwhile, mary for longer after somebody
/// let her in.
std::string EndsTimeBans(BansDesk& desk) {
    desk.Enter({"eve", "bob", "mary"});
    desk.Judge({"tban bob,1", "gban bob", "tban mary,1"});
    desk.Wait(10);
    desk.people.Unban("lobby", bot, "mary");
    desk.Enter({"mary"});
    desk.Judge({"tban mary,5", "tban eve,1"});
    desk.Wait(54);
    desk.Rated(true);
    desk.Wait(30);
    desk.Rated(false);
    desk.Wait(5);
    return desk.Out() + "/ " + desk.Listed();
}

std::string LoadsLists(BansDesk& desk) {
    desk.Enter({"bob", "carl"});
    desk.machine.disk.Put("/lists.txt", "Halyard File: Eject Lists\r\n\r\nother:4:0:zed\r\n");
    desk.machine.dialogs.AnswerText("/lists.txt");
    desk.window.ejects.cmdLoadEjects.Press();
    desk.Judge({"ban bob"});
    desk.Wait(5);
    desk.window.ejects.lstEjectListChats.Select(0);
    desk.window.ejects.mnuRemoveEjectedList();
    desk.Judge({"ban carl"});
    desk.Wait(5);
    return desk.Listed();
}

std::string KicksAtTheLimit(BansDesk& desk) {
    desk.Enter({"eve"});
    desk.people.Say("lobby", "judge", "kick eve");
    desk.world.RunUntil([&] { return desk.network.IsBanned("lobby", "eve"); }, 5000);
    desk.Rated(true);
    desk.Wait(20);
    desk.Rated(false);
    desk.Wait(5);
    return desk.Out();
}

/// While banning is limited eve is banned, and a lock keeps her so; bob too and let in again, mary made
/// immune. Carl's ban waits, and dave's has no answer, when the room is lost.
std::string BansAtTheLimit(BansDesk& desk) {
    desk.Enter({"eve", "bob", "mary", "carl", "dave"});
    desk.Set(desk.boxes.chkPartial[3], false);
    desk.Set(desk.boxes.chkChain[4], false);
    desk.Rated(true);
    desk.Judge({"ban eve", "lban eve", "unban eve", "ban bob", "unban bob", "ban mary", "imm mary"});
    desk.Rated(false);
    desk.Wait(10);
    desk.Judge({"bp 9"});
    desk.Wait(10);
    desk.people.Say("lobby", "judge", "ban dave,carl");
    desk.world.RunUntil([&] { return desk.network.IsBanned("lobby", "dave"); }, 5000);
    desk.world.network.DropAll();
    desk.Wait(90);
    return desk.Out() + "/ " + desk.Listed();
}

std::string GivesIdsOutAgain(BansDesk& desk) {
    desk.Enter({"eve"});
    desk.control.RequestIDs.Add("ban:1:4:longago:", "4");
    desk.control.CurrentRequestID = 4;
    desk.Judge({"ban eve"});
    desk.Wait(5);
    return desk.Listed() + std::to_string(desk.control.CurrentRequestID);
}

std::string MeansPersons(BansDesk& desk) {
    desk.Enter({"bob", "bobby", "judgette", "mary"});
    desk.Set(desk.boxes.chkPartial[2], true);
    desk.Judge({"imm mary", "ban bob", "gban x1,mary:x", "ban ary", "ban udge"});
    desk.Wait(10);
    return desk.Out() + desk.messages;
}

std::string ActsOnRegulars(BansDesk& desk) {
    const std::vector<std::string> regulars{"reg1", "reg2", "reg3", "reg4", "reg5", "reg6"};
    desk.Enter(regulars);
    for (const auto& name : regulars) desk.Judge({"kick " + name});
    desk.Wait(86'400);
    desk.Judge({"bl 1", "ab reg*"});
    for (const auto& name : regulars) desk.Enter({name});
    desk.Wait(10);
    for (const auto* name : {"reg7", "reg8"}) desk.Enter({name});
    desk.Wait(10);
    return desk.Out();
}

struct BanScenario {
    Departure guard;
    std::function<std::string(BansDesk&)> scenario;
    const char* off;
    const char* on;
};

TEST(BanGuards, HaveTheDeskGoAnotherWay) {
    const std::vector<BanScenario> scenarios{
        {Departure::TimeBansAreKept, EndsTimeBans, "eve / eve ", "bob mary / bob mary "},
        {Departure::ListsStayWithRooms, LoadsLists, "", "bob carl "},
        {Departure::KicksEndAsKicks, KicksAtTheLimit, "eve ", ""},
        {Departure::BansOutliveRates, BansAtTheLimit, "dave / ", "carl dave eve / eve carl dave "},
        {Departure::RequestIdsHaveOneOwner, GivesIdsOutAgain, "longago 5", "eve 6"},
        {Departure::NamesMeanPersons, MeansPersons, "bob bobby judge judgette mary x1 ",
         "bob judgette mary:x x1 sends judge the message \"ary\" hits nobody: a part of a name spares ops, "
         "immunes and the bot. Give the whole name to mean one of them: mary.; "},
        {Departure::RunawayFuse, ActsOnRegulars, "reg1 reg2 reg3 reg4 reg5 reg6 reg7 reg8 ",
         "reg1 reg2 reg3 reg4 reg5 reg6 "},
    };
    for (const auto& [guard, scenario, off, on] : scenarios) {
        SCOPED_TRACE(TextOf(guard).name);
        BansDesk without(guard, false), with(guard, true);
        EXPECT_EQ(scenario(without), off);
        EXPECT_EQ(scenario(with), on);
        EXPECT_GT(with.Count().acted, 0);
        EXPECT_EQ(without.Count().acted, 0);
        EXPECT_EQ(without.Count().wouldHave > 0, RowOf(guard).counted);
    }
}

/// The first kick is done and nobody hears of it; the second waited, and she is gone by its turn.
TEST(BanGuards, KeepNobodyOutBetweenTwoKicks) {
    BansDesk desk(Departure::BansOutliveRates, true);
    desk.Enter({"eve"});
    desk.people.Say("lobby", "judge", "kick eve,eve");
    desk.world.RunUntil([&] { return desk.network.IsBanned("lobby", "eve"); }, 5000);
    desk.world.network.DropAll();
    desk.Wait(90);
    EXPECT_EQ(desk.Out() + desk.Listed(), "");
}

TEST(BanGuards, OutliveTheProgram) {
    BansDesk timed(Departure::TimeBansAreKept, true);
    timed.Enter({"eve", "bob"});
    timed.Judge({"tban eve,2", "tban bob,9"});
    timed.Restart();
    timed.Wait(100);
    EXPECT_EQ(timed.Out(), "bob eve ");
    timed.Wait(30);
    EXPECT_EQ(timed.Out(), "bob ");
    timed.machine.dialogs.AnswerChoice(1);
    timed.window.stats.cmdClearTimeBans.Press();
    EXPECT_EQ(timed.control.TimeBans.Count(), 1u); // at its time
    timed.machine.dialogs.AnswerChoice(0);
    timed.window.stats.cmdClearTimeBans.Press();
    timed.Wait(3);
    EXPECT_EQ(timed.Out() + timed.Listed(), "");

    BansDesk fused(Departure::RunawayFuse, true);
    ActsOnRegulars(fused);
    fused.Restart();
    fused.Enter({"reg9"});
    EXPECT_EQ(fused.network.IsBanned("lobby", "reg9"), false);
    auto& fuse = fused.bridge->guards.bans.fuse;
    ASSERT_EQ(fuse.Paused().size(), 1u);
    auto& page = fused.bridge->guardsWindow.paused;
    EXPECT_EQ(fused.Listed(page.lstPaused), Lines{"the autoban \"reg*\""});
    page.cmdTakeBack.Press();
    fused.Wait(60);
    EXPECT_EQ(fused.Out(), "");
    page.cmdResume.Press();
    EXPECT_TRUE(fuse.Paused().empty());
    fused.Enter({"reg10"});
    EXPECT_EQ(fused.network.IsBanned("lobby", "reg10"), true);
}

} // namespace
} // namespace halyard
