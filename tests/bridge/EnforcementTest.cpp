// The bot on a practice network that knows no bans, with the management of that network in its hands. Each
// scenario is read by what the room said, what the management was asked, and what the operator was told.

#include "bridge/networks/enforcement/Enforcement.h"

#include "bridge/networks/enforcement/EnforcementRecord.h"
#include "tests/oscar/Wire.h"
#include "tests/practice/RawClient.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

PracticeOptions Unenforced() {
    PracticeOptions options;
    options.ways = WaysOf(Departure::UnenforcedBans);
    options.management = 8080;
    return options;
}

struct Den : PracticeStage {
    explicit Den(ManagementTerms terms = {.enforce = true}, std::uint64_t seed = 1)
        : PracticeStage(Unenforced(), seed) {
        control.DefaultChatSends();
        control.CreateTimer("tban");
        control.UseNetwork({.name = "den", .hosts = {}, .ways = WaysOf(Departure::UnenforcedBans)});
        control.SetNews(&*enforcement);
        enforcement->SetTerms(terms);
        enforcement->onSameAddress = [this](std::int16_t room, const std::string& name,
                                            const std::string& other) {
            clicks.push_back(std::to_string(room) + " " + name + " " + other);
        };
        control.Login("The Bot", "pw", 5190, true, false, "127.0.0.1");
        world.RunFor(1000);
        control.JoinChat("den", 4, 0);
        world.RunFor(4000);
        EXPECT_TRUE(IsIn("The Bot"));
        told.clear();
    }
    void Ban(const std::string& name, BanKind kind = BanKind::Ban, const std::string& other = {}) {
        EXPECT_NE(control.BanUser(name, kind, 2, other), BanOutcome::Dropped);
    }
    bool IsListed(const std::string& name) { return !control.GetEjectList("den", 2).Item(name).empty(); }
    bool IsIn(const std::string& name) { return network.IsInRoom("den", name); }
    /// The requests that the management had, and lines that the bot said, in order, since the last call.
    Lines Happened() {
        Lines lines;
        for (; read < journal.size(); ++read) {
            const auto fields = Split(journal[read], "|", 3);
            if (fields[1] == "the management" || fields[2].starts_with("says ")) lines.push_back(fields[2]);
        }
        return lines;
    }
    Lines Told() { return std::exchange(told, {}); }

    SimPlatform machine{world};
    OscarSettings settings;
    EventLog log;
    Lines told, clicks;
    std::vector<std::string> spared{"op"};
    std::size_t read = 0;
    TillerSock control{machine, settings, log, log};
    std::optional<Enforcement> enforcement{
        std::in_place, machine, control,
        Enforcement::Hands{.spared =
                               [this](const std::string& name) {
                                   return std::count(spared.begin(), spared.end(), NormalizeName(name)) > 0;
                               },
                           .tell = [this](const std::string& text) { told.push_back(text); },
                           .folder = "/bridge"}};
};

TEST(Enforcement, EndsTheSessionOfWhoeverIsBannedAndDoesWhatTheKindSays) {
    Den den;
    auto& levers = den.network.Levers();
    for (const char* name : {"Bob Smith", "kim", "Tim", "op"}) levers.Enter("den", name);
    den.world.RunFor(1000);
    den.control.Room(2)->SetBanPause(0.001F);
    den.Ban("Bob Smith");
    EXPECT_EQ(den.control.RequestIDs.Count(), 1U);
    den.Ban("kim", BanKind::Kick);
    den.Ban("op");
    den.world.RunFor(900); // the network's refusals have come long ago
    EXPECT_TRUE(den.IsListed("bobsmith") && !den.IsIn("bobsmith"));
    EXPECT_TRUE(den.IsIn("kim")) << "one call a second";
    EXPECT_EQ(den.Told(), Lines{"op was not signed off: ops and immunes are never signed off"});
    den.world.RunFor(9000);
    EXPECT_FALSE(den.IsIn("kim") || den.IsListed("kim"));
    den.Ban("tim", BanKind::TimeBan, "1");
    den.world.RunFor(9000);
    EXPECT_EQ(den.Happened(),
              (Lines{"DELETE /session/bobsmith", "says \xAB Banned: Bob Smith, Bans: 1 \xBB",
                     "DELETE /session/kim", "says \xAB Kicked: kim, Bans: 1 \xBB", "DELETE /session/tim",
                     "says \xAB Time banned: tim for 1 minutes, Bans: 2\xBB"}));
    EXPECT_TRUE(den.IsIn("op") && den.IsListed("tim") && !den.IsListed("op"));
    EXPECT_EQ(den.control.RequestIDs.Count(), 0U);
    EXPECT_EQ(std::count(den.log.lines.begin(), den.log.lines.end(), "RemovedEject|kim|2|1"), 1);

    // Letting in again asks for nothing, and counts at once; not within the call that asks.
    den.control.UnbanUser("bob smith", BanKind::Unban, 2);
    EXPECT_TRUE(den.IsListed("bobsmith"));
    den.world.RunFor(62000);
    EXPECT_FALSE(den.IsListed("bobsmith") || den.IsListed("tim")) << "the time ban is over, too";
    EXPECT_TRUE(levers.Enter("den", "tim"));
    den.world.RunFor(20000);
    EXPECT_TRUE(den.IsIn("tim"));
    const auto rest = den.Happened();
    EXPECT_EQ(
        std::count_if(rest.begin(), rest.end(), [](const auto& line) { return line.starts_with("DEL"); }), 0);
    EXPECT_EQ(den.Told(), Lines{});
}

TEST(Enforcement, TellsARefusalAndListsNobodyForIt) {
    const std::tuple<ManagementMood, std::int64_t, std::string> cases[] = {
        {ManagementMood::Failing, 4000, "the management answered 500"},
        {ManagementMood::Silent, 16000, "no answer in time"},
        {ManagementMood::Garbage, 4000, "the answer makes no sense"}};
    for (const auto& [mood, limit, why] : cases) {
        Den den;
        den.network.Levers().Enter("den", "bob");
        den.network.Levers().SetManagementMood(mood);
        den.Ban("bob");
        EXPECT_TRUE(den.world.RunUntil([&] { return !den.told.empty(); }, limit)) << why;
        EXPECT_EQ(den.Told(), Lines{"bob was not signed off: " + why});
        EXPECT_FALSE(den.IsListed("bob"));
        EXPECT_EQ(den.control.RequestIDs.Count() + den.enforcement->Waiting(), 0U);
        EXPECT_EQ(den.Happened(), Lines{});
    }
    Den den; // the second of three tries finds it well again; who isn't on line counts as ended
    den.network.Levers().SetManagementMood(ManagementMood::Failing);
    den.Ban("nobody", BanKind::Ghost);
    den.world.RunFor(500);
    den.network.Levers().SetManagementMood(ManagementMood::Works);
    den.world.RunFor(2000);
    EXPECT_TRUE(den.IsListed("nobody"));
    for (const char* name : {"The Bot", "..", "a/../b", "a\\b", "x:y", "a\r\nb"})
        den.Ban(name), den.world.RunFor(3000);
    EXPECT_EQ(den.Told().size(), 6U);
    den.Ban("J\xFCrgen %2e?#"); // stays within its segment
    den.world.RunFor(3000);
    EXPECT_EQ(den.Happened().back(), "says \xAB Banned: J\xFCrgen %2e?#, Bans: 2 \xBB");
    EXPECT_TRUE(den.Noted("|the management|DELETE /session/j%C3%BCrgen%252e%3F%23"));
}

TEST(Enforcement, PutsOutAgainWithoutAWordAndSuspendsAfterFive) {
    Den den({.enforce = true, .suspend = true});
    auto& levers = den.network.Levers();
    auto bob = std::make_unique<Guest>(den, "bob");
    bob->Join("den");
    den.Ban("bob");
    den.world.RunFor(5000);
    den.Happened();
    for (int round = 1; round <= 5; ++round) {
        EXPECT_FALSE(levers.IsSuspended("bob"));
        bob = std::make_unique<Guest>(den, "bob");
        bob->Join("den");
        den.world.RunFor(2000);
        EXPECT_FALSE(den.IsIn("bob")) << round;
    }
    den.world.RunFor(2000);
    EXPECT_EQ(den.Told(), (Lines{"bob came back and was signed off five times within ten minutes",
                                 "bob's account was suspended; unban lifts it"}));
    const auto happened = den.Happened();
    EXPECT_EQ(std::count(happened.begin(), happened.end(), "DELETE /session/bob"), 5);
    EXPECT_EQ(happened.back(), "PATCH /user/bob/account");
    RawClient again(den);
    EXPECT_EQ(RawClient::Tlvs(again.Hashed("bob", "pw", DefaultSecrets().salt, true), 8), WordToStr(0x11));

    // Another run of the bot knows what this one did, and lifts that alone.
    den.enforcement.emplace(den.machine, den.control,
                            Enforcement::Hands{.spared = {},
                                               .tell = [&](const auto& text) { den.told.push_back(text); },
                                               .folder = "/bridge"});
    den.control.SetNews(&*den.enforcement);
    den.enforcement->SetTerms({.enforce = true, .suspend = true});
    for (const char* name : {"kim", "bob"}) den.control.UnbanUser(name, BanKind::Unban, 2);
    den.world.RunFor(2000);
    EXPECT_FALSE(levers.IsSuspended("bob"));
    EXPECT_EQ(den.Told(), Lines{"bob's account is no longer suspended"});
    EXPECT_EQ(den.machine.disk.Contents("/bridge/enforcement.json").find("bob"), std::string::npos);
    EXPECT_FALSE(den.Noted("|the management|PATCH /user/kim/account"));
}

TEST(Enforcement, LeavesNobodyOnTheListInTheRoomForTenSeconds) {
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        Den den({.enforce = true}, seed);
        auto& levers = den.network.Levers();
        den.world.network.faults.latencyMax = 300;
        den.world.network.faults.cutBytes = true;
        const auto moods = {ManagementMood::Works, ManagementMood::Works, ManagementMood::Failing};
        for (int step = 0; step < 200; ++step) {
            const auto name = "bad" + std::to_string(den.world.chance.Between(1, 4));
            levers.Enter("den", name);
            if (den.world.chance.Chance(0.4)) den.Ban(name);
            if (den.world.chance.Chance(0.1)) den.control.UnbanUser(name, BanKind::Unban, 2);
            if (den.world.chance.Chance(0.05))
                levers.SetManagementMood(*(moods.begin() + den.world.chance.Between(0, 2)));
            den.world.RunFor(den.world.chance.Between(1, 1500));
        }
        levers.SetManagementMood(ManagementMood::Works);
        den.world.RunFor(80000); // whom the failing one left in is tried again a minute later
        for (int number = 1; number <= 4; ++number) {
            const auto name = "bad" + std::to_string(number);
            EXPECT_FALSE(den.IsListed(name) && den.IsIn(name)) << name << " " << seed;
            if (!den.IsListed(name)) continue;
            levers.Enter("den", name);
            EXPECT_TRUE(den.world.RunUntil([&] { return !den.IsIn(name); }, 10000)) << name << " " << seed;
        }
        EXPECT_EQ(den.control.RequestIDs.Count(), 0U);
    }
}

TEST(Enforcement, FindsWhoIsListedAndInTheRoomAllTheSame) {
    Den den;
    auto& levers = den.network.Levers();
    for (const char* name : {"op", "bob", "kim"}) levers.Enter("den", name);
    den.Ban("bob");
    den.world.RunFor(3000);
    for (const char* name : {"op", "kim"}) den.control.EjectLists.Item(1)->AddEject(name); // as a file's list
    EXPECT_TRUE(den.world.RunUntil([&] { return !den.IsIn("kim"); }, 10000));
    EXPECT_TRUE(den.IsIn("op"));
    EXPECT_EQ(den.Told(), Lines{});
    levers.SetManagementMood(ManagementMood::Failing);
    levers.Enter("den", "bob");
    den.world.RunFor(200000);
    EXPECT_EQ(den.Told(),
              Lines{"bob is banned, came back and was not signed off: the management answered 500"});
    levers.SetManagementMood(ManagementMood::Works);
    EXPECT_TRUE(den.world.RunUntil([&] { return !den.IsIn("bob"); }, 70000));

    // The room's slot serves another one by the time that the answer comes.
    levers.SetManagementMood(ManagementMood::Silent);
    den.Ban("tom");
    den.world.RunFor(1000);
    levers.SetManagementMood(ManagementMood::Works);
    den.control.LeaveChat(2);
    den.control.JoinChat("other", 4, 0);
    den.world.RunFor(10000);
    ASSERT_EQ(den.control.Room(2)->ChatName, "other");
    EXPECT_EQ(den.Told(), Lines{"tom was signed off, and is on no list: the room is no longer open"});
    EXPECT_EQ(den.control.EjectLists.Count(), 1U);
    EXPECT_FALSE(den.IsListed("tom"));
    den.Happened();
    den.world.RunFor(30000);
    EXPECT_EQ(den.Happened(), Lines{}) << "nothing is called for nothing";
}

TEST(Enforcement, BoundsTheQueueAndForgetsItWithTheTerms) {
    Den den;
    den.network.Levers().SetManagementMood(ManagementMood::Silent);
    for (int number = 0; number < 1010; ++number)
        den.enforcement->BanAsked(2, 100 + number, BanRequestKind::Ban, "x" + std::to_string(number));
    den.world.RunFor(1500);
    const auto full = den.Told();
    EXPECT_EQ(full.size(), 10U);
    EXPECT_EQ(den.enforcement->Waiting(), 1000U);
    den.enforcement->SetTerms({.enforce = true, .suspend = true});
    EXPECT_EQ(den.enforcement->Waiting(), 1000U);
    den.enforcement->SetTerms({});
    EXPECT_EQ(den.enforcement->Waiting(), 0U);
    EXPECT_EQ(den.Told(), Lines{"1000 bans were not enforced: other terms hold by now"});
    for (const auto& [address, header] :
         {std::pair("no host", ""), {"h:8080/?x", ""}, {"h", "X: a\r\nY: b"}, {"h", "X"}}) {
        den.enforcement->SetTerms({.address = address, .header = header, .enforce = true});
        EXPECT_EQ(den.Told(),
                  Lines{"the address of the management or its header makes no sense: nothing is enforced"});
    }
    den.Ban("bob");
    den.world.RunFor(2000);
    EXPECT_EQ(den.Told(), Lines{"bob was not signed off: there is no management, or too many wait for it"});
    den.enforcement->SetTerms({});
    den.Ban("bob"); // the desk's own way again: the network's refusal takes the record
    den.world.RunFor(2000);
    EXPECT_EQ(den.control.RequestIDs.Count(), 0U);
    EXPECT_EQ(den.machine.disk.Paths(), std::set<std::string>{}) << "nothing of the bridge was kept";
}

TEST(Enforcement, KnowsWhoEntersFromWhereSomebodyWasBanned) {
    Den den({.enforce = true, .watchAddresses = true});
    auto& levers = den.network.Levers();
    const std::pair<const char*, const char*> people[] = {
        {"bob", "192.0.2.7"}, {"ann", "10.0.0.1"}, {"max", "127.0.0.1"}, {"eve", "198.51.100.9"}};
    for (const auto& [name, address] : people) levers.SetAddress(name, address), levers.Enter("den", name);
    den.world.RunFor(10000);
    for (const char* name : {"bob", "ann", "max"}) den.Ban(name), den.world.RunFor(3000);
    for (const auto& [name, address] :
         {std::pair("Bob Two", "192.0.2.7"), {"ann2", "10.0.0.1"}, {"max2", "127.0.0.1"}})
        levers.SetAddress(name, address), levers.Enter("den", name), den.world.RunFor(3000);
    EXPECT_EQ(den.Told(), Lines{"Bob Two entered from where bob was banned"});
    EXPECT_EQ(den.clicks, Lines{"2 Bob Two bob"});
    EXPECT_TRUE(den.IsIn("bobtwo")) << "to act is the operator's click";
    EXPECT_TRUE(den.enforcement->BanByHand(2, "Bob Two"));
    den.world.RunFor(3000);
    EXPECT_TRUE(!den.IsIn("bobtwo") && den.IsListed("bobtwo"));
    EXPECT_FALSE(den.enforcement->BanByHand(2, "op"));

    den.world.RunFor(6000);
    const auto kept = den.machine.disk.Contents("/bridge/enforcement.json");
    EXPECT_NE(kept.find("bobtwo"), std::string::npos);
    EXPECT_EQ(kept.find("192.0.2"), std::string::npos) << "no address is kept";
    EXPECT_EQ(kept.find("ann") + kept.find("max"), 2 * std::string::npos);
    const auto key = den.machine.disk.Contents("/bridge/enforcement.key");
    EXPECT_EQ(key.size(), 32U);
    EXPECT_TRUE(den.machine.disk.IsPrivate("/bridge/enforcement.key"));
}

TEST(EnforcementRecord, PutsADamagedFileAsideAndKeepsWhatItCan) {
    const std::string good = R"({"name":"bob","at":"http://h","since":5})";
    const std::tuple<std::string, bool, bool> cases[] = {
        // bytes, put aside, bob is known
        {R"({"suspensions":[)" + good + "]}", false, true},
        {R"({"suspensions":[)" + good + ",7]}", true, true},
        {R"({"suspensions":[)" + good, true, false},
        {"", true, false},
        {"[]", true, false},
        {R"({"addresses":{}})", true, false},
        {R"({"suspensions":[{"name":"Bob","at":"http://h","since":-1}]})", true, false}};
    for (const auto& [bytes, aside, known] : cases) {
        SimWorld world;
        SimPlatform machine(world);
        Lines told;
        machine.disk.Put("/bridge/enforcement.json", bytes);
        EnforcementRecord record(machine, "/bridge", [&](const auto& text) { told.push_back(text); });
        record.Load();
        EXPECT_EQ(record.IsSuspended("B OB", "http://h"), known) << bytes;
        EXPECT_FALSE(record.IsSuspended("bob", "http://other"));
        EXPECT_EQ(told.size(), aside ? 1U : 0U) << bytes;
        EXPECT_EQ(machine.disk.Contents("/bridge/enforcement.json.damaged-1"), aside ? bytes : "") << bytes;
        EXPECT_TRUE(record.AddSuspension("\xC4nn", "http://h"));
        EnforcementRecord again(machine, "/bridge", [](const auto&) {});
        again.Load();
        EXPECT_TRUE(again.IsSuspended("\xE4nn", "http://h") && again.IsSuspended("bob", "http://h") == known);
    }
    SimWorld world;
    SimPlatform machine(world);
    Lines told;
    EnforcementRecord record(machine, "/bridge", [&](const auto& text) { told.push_back(text); });
    EnforcementNames names;
    const std::string hash(64, 'a'), old(64, 'b');
    const auto now = machine.CalendarSeconds();
    names.seen = {{"stale", "http://h", old, now - EnforcementRecord::KeptSeconds - 1}};
    for (std::size_t number = 0; number < EnforcementRecord::Most; ++number)
        names.seen.push_back({"n" + std::to_string(number), "http://h", hash, number == 0 ? now + 99 : now});
    machine.disk.Put("/bridge/enforcement.json", WriteEnforcementNames(names));
    record.Load();
    EXPECT_TRUE(record.NamesFrom(old, "http://h").empty()) << "30 days";
    EXPECT_EQ(record.NamesFrom(hash, "http://h").front(), "n0");
    EXPECT_TRUE(record.AddSuspension("bob", "http://h"));
    EXPECT_EQ(record.NamesFrom(hash, "http://h").front(), "n1") << "the oldest went";
    machine.disk.FailNth(1);
    EXPECT_FALSE(record.AddSuspension("kim", "http://h") || record.IsSuspended("kim", "http://h"));
    EXPECT_EQ(told, Lines{"/bridge/enforcement.json can't be written"});
}

} // namespace
} // namespace halyard
