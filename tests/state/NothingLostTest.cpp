// What a failing disk, a machine that stops and hostile files leave behind.

#include "state/EjectListFile.h"
#include "state/SettingsWriter.h"
#include "state/StatisticsFile.h"
#include "tests/state/Desk.h"

#include <functional>

namespace halyard {

namespace {

class NothingLost : public Desk {
  protected:
    struct Saved {
        const char* path;
        std::function<bool()> save;
    };

    NothingLost() {
        control.EjectLists.Add(std::make_shared<EjectList>());
        control.EjectLists.Item(1)->ChatName = "Lobby";
        Change("old");
    }
    void Change(const std::string& name) {
        options.strCurrentUser = name;
        control.EjectLists.Item(1)->AddEject(name);
        counters.UpdateStat("totalban");
    }

    StatisticsFile statistics{platform, counters};
    const std::vector<Saved> files{
        {"/program/mine.hys", [this] { return WriteSettings(platform, options, "/program/mine.hys"); }},
        {"/program/bans.txt", [this] { return WriteEjectLists(platform, control, "/program/bans.txt"); }},
        {"/state/StatsStore.dat", [this] { return statistics.Write(); }},
    };
};

TEST_F(NothingLost, EveryFailureLeavesTheOldFileOrTheNew) {
    for (const auto& file : files) {
        ASSERT_TRUE(file.save());
        const auto before = platform.disk.Contents(file.path);
        Change(file.path);
        ASSERT_TRUE(file.save());
        const auto after = platform.disk.Contents(file.path);
        ASSERT_NE(before, after);

        // Lets one operation of the save go wrong after the other, until the save is over before it.
        auto& disk = platform.disk;
        auto sweep = [&](auto arrange, auto mend) {
            std::uint64_t reached = 1;
            for (std::uint64_t nth = 1; reached >= nth; ++nth) {
                disk.Put(file.path, before);
                auto start = disk.Operations();
                arrange(static_cast<int>(nth));
                bool saved = file.save();
                reached = disk.Operations() - start;
                mend();
                auto now = disk.Contents(file.path);
                EXPECT_TRUE(now == after || (reached >= nth && now == before)) << file.path << nth;
                EXPECT_TRUE(reached >= nth || saved);
            }
        };
        sweep([&](int nth) { disk.FailNth(nth); }, [&] { disk.FailNth(0); });
        for (auto cut : {SimFiles::Cut::SyncedOnly, SimFiles::Cut::NamesFirst})
            sweep([&](int nth) { disk.StopAtNth(nth); }, [&] { disk.Crash(cut); });
    }
    EXPECT_EQ(Boxes(), std::vector<Box>());
}

TEST_F(NothingLost, HostileFilesAreReadToTheirEndAndKept) {
    SimRandom random(7);
    std::string noise(10'000'000, ' ');
    for (auto& byte : noise) byte = static_cast<char>(random.Next());
    const std::string banner = "a\nb\nVersion: 2.0 (Beta 1.0)\n";
    const std::string ejectBanner = "Halyard File: Eject Lists\n";
    const std::string statsBanner = "version:2.0_1.0.0\n";
    const std::string hostile[] = {noise, std::string(10'000'000, ':'), std::string(10'000'000, '\n'),
                                   std::string(10'000'000, '\0'),
                                   "op:" + std::string(5'000'000, 'x') + ":" + std::string(5'000'000, 'y')};
    ListBox ejected{"lstEjected"}, rooms{"lstEjectListChats"};
    Label count{"lblBanCount"}, current{"lblEjectListChat"};
    for (const auto& bytes : hostile) {
        for (const auto& head : {std::string(), banner, ejectBanner, statsBanner}) {
            platform.disk.Put("/program/hostile", head + bytes);
            ReadSettings(target, "/program/hostile");
            ImportForeignSettings(target, "/program/hostile");
            ReadEjectLists(platform, control, {ejected, count, rooms, current}, "/program/hostile");
            EXPECT_EQ(platform.disk.Contents("/program/hostile").size(), head.size() + bytes.size());
        }
        platform.disk.Put("/state/StatsStore.dat", statsBanner + bytes);
        EXPECT_TRUE(statistics.Load());
    }
    EXPECT_EQ(options.Ops.Count(), 0u);
}

TEST_F(NothingLost, FilesThatCannotBeReadStay) {
    // By name it is there, its bytes don't come: no version is found.
    platform.disk.Put("/program/locked", "a\nb\nVersion: 2.0 (Beta 1.0)\nuser:Al\n");
    platform.disk.FailNth(1);
    ReadSettings(target, "/program/locked");
    EXPECT_EQ(Boxes().back().text, "Error: Settings file not compatible with program version.");
    platform.disk.FailNth(1);
    ImportForeignSettings(target, "/program/locked");
    EXPECT_EQ(options.strCurrentUser, "Unknown");
    EXPECT_FALSE(platform.disk.Contents("/program/locked").empty());
}

} // namespace

} // namespace halyard
