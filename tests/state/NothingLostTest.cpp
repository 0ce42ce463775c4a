// What a failing disk, a machine that stops and hostile files leave behind.

#include "state/EjectListFile.h"
#include "state/SettingsWriter.h"
#include "state/StatisticsFile.h"
#include "tests/state/Desk.h"

#include <functional>

namespace halyard {

const std::string banner = "a\nb\nVersion: 2.0 (Beta 1.0)\n";

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
    auto& disk = platform.disk;
    for (const auto& file : files) {
        ASSERT_TRUE(file.save());
        const auto before = disk.Contents(file.path);
        Change(file.path);
        ASSERT_TRUE(file.save());
        const auto after = disk.Contents(file.path);
        ASSERT_NE(before, after);
        const auto paths = disk.Paths();

        // Takes away what a crash left beside, which has nobody else's name. True when it is a whole copy.
        auto drop = [&] {
            bool whole = false;
            for (const auto& path : disk.Paths()) {
                if (paths.contains(path)) continue;
                EXPECT_NE(path.find("/.halyard-"), std::string::npos) << path;
                whole = whole || disk.Contents(path) == after;
                disk.Unlock();
                disk.Remove(path);
            }
            return whole;
        };

        // Lets one operation of the save go wrong after the other, until the save is over before it.
        bool locked = false;
        auto sweep = [&](auto arrange, auto mend) {
            bool reached = true;
            for (std::uint64_t nth = 1; reached; ++nth) {
                SCOPED_TRACE(file.path + std::to_string(nth));
                disk.Put(file.path, before);
                if (locked) disk.Lock(file.path == files.back().path ? "/state" : "/program");
                auto start = disk.Operations();
                arrange(static_cast<int>(nth));
                bool saved = file.save();
                reached = disk.Operations() - start >= nth;
                mend();
                auto now = disk.Contents(file.path);
                const bool copied = drop();
                EXPECT_TRUE(now == after || (!saved && (now == before || copied))) << now;
                EXPECT_TRUE(saved || reached);
            }
        };
        sweep([&](int nth) { disk.FailNth(nth); },
              [&] {
                  disk.FailNth(0);
                  EXPECT_EQ(disk.Paths(), paths);
              });
        for (bool inPlace : {false, true})
            for (auto cut : {SimFiles::Cut::SyncedOnly, SimFiles::Cut::NamesFirst}) {
                locked = inPlace;
                sweep([&](int nth) { disk.StopAtNth(nth); }, [&] { disk.Crash(cut); });
            }
        sweep([&](int nth) { disk.FailNth(nth); }, [&] { disk.FailNth(0); });
        disk.Unlock();
    }
    EXPECT_EQ(Boxes(), std::vector<Box>());
}

TEST_F(NothingLost, HugeFilesAreReadToTheirEndAndKept) {
    const std::string statsBanner = "version:2.0_1.0.0\n";
    ListBox ejected{"lstEjected"}, rooms{"lstEjectListChats"};
    Label count{"lblBanCount"}, current{"lblEjectListChat"};
    for (const auto& head : {std::string(), banner, std::string("Halyard File: Eject Lists\n"), statsBanner})
        for (const auto& bytes : {std::string(10'000'000, ':'), std::string(10'000'000, '\n'),
                                  "op:" + std::string(5'000'000, 'x') + ":" + std::string(5'000'000, 'y')}) {
            platform.disk.Put("/program/huge", head + bytes);
            ReadSettings(target, "/program/huge");
            ImportForeignSettings(target, "/program/huge");
            ReadEjectLists(platform, control, {ejected, count, rooms, current}, "/program/huge");
            EXPECT_EQ(platform.disk.Contents("/program/huge").size(), head.size() + bytes.size());
            platform.disk.Put("/state/StatsStore.dat", head + bytes);
            EXPECT_EQ(statistics.Load(), head == statsBanner);
        }
    EXPECT_EQ(options.Ops.Count(), 0u);
}

} // namespace halyard
