#include "state/StatisticsFile.h"
#include "tests/state/Desk.h"

namespace halyard {

namespace {

constexpr const char* Path = "/state/StatsStore.dat";
constexpr const char* Note = "NOTE: Congrats on finding the hidden stats file used in Halyard 2.0! (Unless "
                             "someone else told you or I got bored "
                             "and gave it out) Anyways, don't go editing this file. It defeats the purpose "
                             "of me having to hide its location.";

class Statistics : public Desk {
  protected:
    StatisticsFile file{platform, counters};
};

/// A machine whose paths begin with a drive letter.
class DrivePlatform : public SimPlatform {
  public:
    explicit DrivePlatform(SimWorld& world) : SimPlatform(world) {}
    Files& FileSystem() override { return drive; }
    struct Drive : SimFiles {
        std::string ProgramFolder() override { return "D:\\Halyard"; }
        char Separator() const override { return '\\'; }
        // The simulated disk knows one kind of separator.
        bool SyncFolder(const std::string&) override { return true; }
    } drive;
};

TEST_F(Statistics, CountsAsEachStatWantsIt) {
    counters.UpdateStat("totalban", false);
    counters.UpdateStat("totalcommand");
    counters.UpdateStat("totalcommand");
    counters.UpdateStat("totalcommand", false);
    counters.UpdateStat("lockban"); // no such name; the list's is "lockbans"
    lists.AddImm("one", 0);
    lists.AddImm("two", 0);
    counters.UpdateStat("imm", false);
    auto ejects = std::make_shared<EjectList>();
    ejects->AddEject("bob");
    ejects->AddEject("eve");
    control.EjectLists.Add(ejects);
    control.EjectLists.Add(std::make_shared<EjectList>(*ejects));
    for (int time = 0; time < 2; ++time) counters.UpdateStat("totalcurrentban");
    EXPECT_EQ(counters.lblStat[1].Caption(), "2");
    EXPECT_EQ(counters.lblStat[10].Caption(), "1");
    EXPECT_EQ(counters.lblStat[11].Caption(), "4");
    EXPECT_EQ(counters.lblStat[12].Caption(), "1");
    counters.ClearStats();
    EXPECT_EQ(counters.lblStat[11].Caption() + counters.lblStat[12].Caption() + counters.lblStat[1].Caption(),
              "002");
}

TEST_F(Statistics, KeepsTheLastTwentyActions) {
    for (int number = 1; number <= 21; ++number) counters.AddAction("action " + std::to_string(number));
    EXPECT_EQ(counters.lstActions.ListCount(), 20);
    EXPECT_EQ(counters.lstActions.List(0), "action 2");
    EXPECT_EQ(counters.lstActions.Text(), "action 21");
}

TEST_F(Statistics, FileIsWrittenInItsOrderAndTakenBack) {
    EXPECT_TRUE(file.Load());
    EXPECT_TRUE(platform.disk.Paths().empty());
    for (int index = 7; index <= 20; ++index) counters.SetKept(index, index * 1000.5);
    ASSERT_TRUE(file.Write());
    const std::string written = platform.disk.Contents(Path);
    EXPECT_EQ(written, std::string("version:2.0_1.0.0\r\ntotalopen:7003.5\r\ntotallogin:8004\r\n"
                                   "totalchatjoin:9004.5\r\ntotalcommand:10005\r\ntotalcurrentban:11005.5\r\n"
                                   "totalban:12006\r\ntotalunbans:13006.5\r\n#ofownedchats:14007\r\n"
                                   "totalbanattempt:15007.5\r\ntotalunbanattempt:16008\r\n"
                                   "totalautorejoinattempt:17008.5\r\ntotalautoownerattempt:18009\r\n"
                                   "totalautologinattempt:19009.5\r\ntotalchatcloseattempt:20010\r\n") +
                           Note + "\r\n");
    counters.ClearStats();
    EXPECT_TRUE(file.Load());
    EXPECT_EQ(counters.Kept(20), 20010);
    ASSERT_TRUE(file.Write());
    EXPECT_EQ(platform.disk.Contents(Path), written);
}

TEST_F(Statistics, UnreadableNumbersLeaveCountersAsTheyWere) {
    platform.disk.Put(Path, "version:2.0_1.0.0\ntotalban:many\ntotalopen:\ntotallogin:1e999\ntotalunbans\n"
                            "TotalCommand:5\ntotalbanattempt: 7 \nop:9");
    counters.SetKept(12, 3);
    EXPECT_TRUE(file.Load());
    EXPECT_EQ(counters.Kept(12), 3);
    EXPECT_EQ(counters.Kept(15), 7);
    EXPECT_EQ(counters.Kept(7) + counters.Kept(8) + counters.Kept(10) + counters.Kept(13), 0);
}

TEST_F(Statistics, AnotherVersionIsEmptiedAndEndsTheStart) {
    for (const char* bytes : {"version:1.0\r\ntotalban:5\r\n", "", "\r\n"}) {
        platform.disk.Put(Path, bytes);
        EXPECT_FALSE(file.Load());
        EXPECT_EQ(platform.disk.Contents(Path), "\r\n");
        EXPECT_EQ(counters.Kept(12), 0);
    }
    EXPECT_TRUE(file.Write());
    EXPECT_TRUE(file.Load());
}

TEST_F(Statistics, AFileThatCannotBeReadStays) {
    platform.disk.Put(Path, "version:1.0\r\n");
    platform.disk.FailNth(1);
    EXPECT_TRUE(file.Load());
    EXPECT_EQ(platform.disk.Contents(Path), "version:1.0\r\n");
}

TEST_F(Statistics, StandOnTheProgramsDriveWhereThereAreDrives) {
    DrivePlatform drives(world);
    StatisticsFile onDrive(drives, counters);
    EXPECT_TRUE(onDrive.Write());
    EXPECT_EQ(drives.drive.Paths(), std::set<std::string>{"D:\\Windows\\StatsStore.dat"});
}

} // namespace

} // namespace halyard
