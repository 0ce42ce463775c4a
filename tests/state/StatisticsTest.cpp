#include "state/StatisticsFile.h"
#include "tests/state/Desk.h"

namespace halyard {

constexpr const char* StatsPath = "/state/StatsStore.dat";
constexpr const char* Remark =
    "NOTE: Congrats on finding the hidden stats file used in Halyard 2.0! (Unless someone else told you or I "
    "got bored and gave it out) Anyways, don't go editing this file. It defeats the purpose of me having to "
    "hide its location.";

class Statistics : public Desk {
  protected:
    StatisticsFile file{platform, counters};
};

TEST_F(Statistics, CountsAsEachStatWantsIt) {
    for (bool more : {true, true, false}) counters.UpdateStat("totalcommand", more);
    counters.UpdateStat("totalban", false);
    counters.UpdateStat("lockban"); // no such name; the list's is "lockbans"
    for (const char* name : {"one", "two"}) lists.AddImm(name, 0);
    counters.UpdateStat("imm", false);
    auto ejects = std::make_shared<EjectList>();
    for (const char* name : {"bob", "eve"}) ejects->AddEject(name);
    for (int list = 0; list < 2; ++list) control.EjectLists.Add(ejects);
    for (int time = 0; time < 2; ++time) counters.UpdateStat("totalcurrentban");
    auto shown = [this] {
        std::string all;
        for (std::size_t label : {1, 10, 11, 12}) all += counters.lblStat[label].Caption();
        return all;
    };
    EXPECT_EQ(shown(), "2141");
    counters.ClearStats();
    EXPECT_EQ(shown(), "2000");
}

TEST_F(Statistics, FileIsWrittenInItsOrderAndTakenBack) {
    EXPECT_TRUE(file.Load()) << "there is none yet";
    for (int index = 7; index <= 20; ++index) counters.SetKept(index, index * 1000.5);
    ASSERT_TRUE(file.Write());
    const std::string written = platform.disk.Contents(StatsPath);
    EXPECT_EQ(
        written,
        Replace("version:2.0_1.0.0|totalopen:7003.5|totallogin:8004|totalchatjoin:9004.5|totalcommand:10005|"
                "totalcurrentban:11005.5|totalban:12006|totalunbans:13006.5|#ofownedchats:14007|"
                "totalbanattempt:15007.5|totalunbanattempt:16008|totalautorejoinattempt:17008.5|"
                "totalautoownerattempt:18009|totalautologinattempt:19009.5|totalchatcloseattempt:20010|",
                "|", "\r\n") +
            Remark + "\r\n");
    counters.ClearStats();
    EXPECT_TRUE(file.Load());
    EXPECT_EQ(counters.Kept(20), 20010);
    ASSERT_TRUE(file.Write());
    EXPECT_EQ(platform.disk.Contents(StatsPath), written);
}

TEST_F(Statistics, UnreadableNumbersLeaveCountersAsTheyWere) {
    platform.disk.Put(StatsPath,
                      "version:2.0_1.0.0\ntotalban:many\ntotalopen:\ntotallogin:1e999\ntotalunbans\n"
                      "TotalCommand:5\ntotalbanattempt: 7 \nop:9");
    counters.SetKept(12, 3);
    EXPECT_TRUE(file.Load());
    EXPECT_EQ(counters.Kept(12), 3);
    EXPECT_EQ(counters.Kept(15), 7);
    EXPECT_EQ(counters.Kept(7) + counters.Kept(8) + counters.Kept(10) + counters.Kept(13), 0);
}

TEST_F(Statistics, AnotherVersionIsEmptiedAndEndsTheStart) {
    for (const char* bytes : {"version:1.0\r\ntotalban:5\r\n", "", "\r\n"}) {
        platform.disk.Put(StatsPath, bytes);
        platform.disk.FailNth(1);
        EXPECT_TRUE(file.Load()) << "what can't be read stays";
        EXPECT_EQ(platform.disk.Contents(StatsPath), bytes);
        EXPECT_FALSE(file.Load());
        EXPECT_EQ(platform.disk.Contents(StatsPath), "\r\n");
        EXPECT_EQ(counters.Kept(12), 0);
    }
    EXPECT_TRUE(file.Write());
    EXPECT_TRUE(file.Load());
}

/// A machine whose paths begin with a drive letter.
struct DrivePlatform : SimPlatform {
    using SimPlatform::SimPlatform;
    Files& FileSystem() override { return drive; }
    struct : SimFiles {
        std::string ProgramFolder() override { return "D:\\Halyard"; }
        char Separator() const override { return '\\'; }
        // The simulated disk knows one kind of separator.
        bool SyncFolder(const std::string&) override { return true; }
    } drive;
};

TEST_F(Statistics, StandOnTheProgramsDriveWhereThereAreDrives) {
    DrivePlatform drives(world);
    EXPECT_TRUE(StatisticsFile(drives, counters).Write());
    EXPECT_EQ(drives.drive.Paths(), std::set<std::string>{"D:\\Windows\\StatsStore.dat"});
}

} // namespace halyard
