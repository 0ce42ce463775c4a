// One evening of the whole bot, run again and again with one more operation failing: the Nth send, the Nth
// connect, the Nth file operation, the Nth tick of a timer, until an evening meets no failure.

#include "tests/soak/Evening.h"

#include <set>

namespace halyard {
namespace {

/// The things that can fail, by number.
struct Sweep {
    const char* name;
    void (*arrange)(Evening&, std::uint64_t nth);
    std::uint64_t (*count)(const Evening&);
    int untrue = 1010; ///< ms at most, as the first attempt to come back comes after 1 s
};

template <SimNetwork::Operation operation>
std::uint64_t Count(const Evening& evening) {
    return evening.world.network.Operations(operation);
}
template <SimNetwork::Operation operation>
void Fail(Evening& evening, std::uint64_t nth) {
    evening.world.network.FailNth(operation, static_cast<int>(nth));
}

constexpr auto send = SimNetwork::Operation::Send, reach = SimNetwork::Operation::Connect;
const Sweep sends{"send", Fail<send>, Count<send>};
const Sweep refusals{"refused connect", Fail<reach>, Count<reach>};
const Sweep silences{"unanswered connect",
                     [](Evening& evening, std::uint64_t nth) { evening.MakeSilent(nth); }, Count<reach>};
const Sweep files{
    "file operation",
    [](Evening& evening, std::uint64_t nth) { evening.machine.disk.FailNth(static_cast<int>(nth)); },
    [](const Evening& evening) { return evening.machine.disk.Operations(); }};
const Sweep ticks{
    "tick",
    [](Evening& evening, std::uint64_t nth) { evening.machine.ticks.lost = evening.machine.ticks.had + nth; },
    [](const Evening& evening) { return evening.machine.ticks.had; }, 2010};

/// What a sweep leaves to tell: where the operator had to step in and which error boxes came, how many
/// evenings ended with the eject list and the service's bans apart, and how many evenings there were.
struct Told {
    std::set<std::string> steps, errors;
    int apart = 0, evenings = 0;
};

void CheckEnd(Evening& evening, int untrue) {
    EXPECT_EQ(evening.broken, "");
    EXPECT_TRUE(evening.Inside());
    EXPECT_EQ(evening.control.Chat.Count(), 1U);
    EXPECT_EQ(evening.Listed(evening.window.chats.lstChats), Lines{"lobby"});
    EXPECT_EQ(evening.window.chats.lblChatCount.Caption(), "Chats you are in: 1");
    EXPECT_EQ(evening.machine.desktop.trayTip, "Halyard 2.0 (Beta 1.0) [User: Harbour Bot]");
    EXPECT_FALSE(evening.window.reconnection.Reconnecting);
    EXPECT_EQ(evening.window.reconnection.RejoinQueue.Count(), 0U);
    EXPECT_LE(evening.online.Longest(), untrue);
    EXPECT_LE(evening.inside.Longest(), untrue);
    const auto& disk = evening.machine.disk;
    const auto settings = disk.Contents(settingsFile), bans = disk.Contents(bansFile);
    EXPECT_TRUE(settings == oldSettings || settings == evening.savedSettings);
    EXPECT_TRUE(bans == oldBans || bans == evening.savedBans) << bans;
    EXPECT_EQ(disk.Paths(), (std::set<std::string>{settingsFile, bansFile, "/state/StatsStore.dat"}));
}

Told RunAll(const Sweep& sweep) {
    Told told;
    bool met = true;
    for (std::uint64_t nth = 1; met; ++nth, ++told.evenings) {
        SCOPED_TRACE(sweep.name + std::to_string(nth));
        Evening evening;
        const auto before = sweep.count(evening);
        sweep.arrange(evening, nth);
        evening.Run();
        met = sweep.count(evening) - before >= nth;
        CheckEnd(evening, sweep.untrue);
        told.apart += evening.apart;
        told.steps.insert(evening.steppedIn.begin(), evening.steppedIn.end());
        for (const auto& line : evening.Boxes())
            if (line.starts_with("Error")) told.errors.insert(line);
        EXPECT_TRUE(met || (evening.steppedIn.empty() && !evening.apart));
    }
    return told;
}

// A room that was never reached is not tried again, and a command that was on its way to the bot is lost with
// its connection: the operator sees no more than the status of the request, an op no answer.
const std::string unansweredJoin =
    "joining: Online! | Joining chat 'lobby' in Exchange '4' Instance '0'... | Logged in!";
const std::string lostCommand = ": Online! | Joined chat 'lobby' in Exchange '4' Instance '0'! | User joined "
                                "in chat 'lobby': Harbour Bot";

TEST(FaultSweep, EverySend) {
    const auto told = RunAll(sends);
    EXPECT_EQ(told.steps, (std::set{unansweredJoin, "banning" + lostCommand, "time ban" + lostCommand}));
    EXPECT_EQ(told.errors, std::set<std::string>{});
    // Two bans and the unban that ends one of them: with its reply a ban is lost on the bot, with its request
    // an unban is.
    EXPECT_LE(told.apart, 8);
    EXPECT_GT(told.evenings, 150);
}

TEST(FaultSweep, EveryConnect) {
    const auto refused = RunAll(refusals), silent = RunAll(silences);
    EXPECT_EQ(refused.steps, std::set{unansweredJoin});
    const std::string givenUp = " | Not in a chat. | Login Error: Attempt to connect has timed out.";
    EXPECT_EQ(silent.steps, (std::set{unansweredJoin, "signing on: Connecting to Auth server..." + givenUp,
                                      "signing on: Connecting to BOS Server..." + givenUp}));
    for (const auto* told : {&refused, &silent}) {
        EXPECT_EQ(told->apart, 0);
        EXPECT_EQ(told->errors, std::set<std::string>{});
        EXPECT_GE(told->evenings, 9);
    }
}

// Every tick comes again, an interval later. Only the op who commands 3 s after the join feels one: the two
// seconds in which the bot doesn't listen last four.
TEST(FaultSweep, EveryTick) {
    const auto told = RunAll(ticks);
    EXPECT_EQ(told.steps, std::set{"banning" + lostCommand});
    EXPECT_EQ(told.errors, std::set<std::string>{});
    EXPECT_EQ(told.apart, 0);
    EXPECT_GT(told.evenings, 90);
}

// A save that fails is not told, on purpose; a file that cannot be read is.
TEST(FaultSweep, EveryFileOperation) {
    const auto told = RunAll(files);
    EXPECT_EQ(told.steps, std::set<std::string>{});
    EXPECT_EQ(told.errors,
              (std::set<std::string>{"Error: Eject List file not compatible with this version of Halyard!",
                                     "Error: Error: Settings file not compatible with program version."}));
    EXPECT_EQ(told.apart, 0);
}

} // namespace
} // namespace halyard
