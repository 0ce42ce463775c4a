#include "platform/sim/SimFiles.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

const std::string path = "/program/list.txt";
const std::string before = "the old bytes";
const std::string after = "the new bytes, which are longer";
const std::set<std::string> onlyPath = {path};

TEST(ReplaceFile, WhicheverStepFailsTheOldOrTheNewFileStands) {
    int failures = 0;
    for (int nth = 1;; ++nth) {
        SimFiles disk;
        disk.Put(path, before);
        disk.FailNth(nth);
        auto done = ReplaceFile(disk, path, after);
        EXPECT_EQ(disk.Paths(), onlyPath) << "step " << nth;
        auto syncFailed = disk.Contents(path) == after && !done;
        EXPECT_EQ(disk.Contents(path), done || syncFailed ? after : before) << "step " << nth;
        EXPECT_EQ(syncFailed, nth == 6);
        disk.FailNth(0);
        EXPECT_TRUE(ReplaceFile(disk, path, "again")) << "step " << nth;
        EXPECT_EQ(disk.Contents(path), "again");
        if (done) break;
        ++failures;
    }
    EXPECT_EQ(failures, 6) << "create, write, sync, close, rename, sync of the folder";
}

TEST(ReplaceFile, WhereverThePowerGoesTheOldOrTheNewFileStands) {
    for (auto cut : {SimFiles::Cut::SyncedOnly, SimFiles::Cut::NamesFirst})
        for (int nth = 1; nth <= 7; ++nth) {
            SimFiles disk;
            disk.Put(path, before);
            disk.StopAtNth(nth);
            auto done = ReplaceFile(disk, path, after);
            disk.Crash(cut);
            auto found = disk.Contents(path);
            EXPECT_TRUE(found == before || found == after) << "step " << nth << ": " << found;
            EXPECT_TRUE(!done || found == after) << "what was reported as saved is lost";
            EXPECT_TRUE(ReplaceFile(disk, path, "again"));
            EXPECT_EQ(disk.Paths(), onlyPath) << "a neighbour that the crash left is used up";
        }
}

TEST(ReplaceFile, MakesAFileThatWasNotThereAndNeedsItsFolder) {
    SimFiles disk;
    EXPECT_FALSE(ReplaceFile(disk, "/elsewhere/list.txt", after));
    EXPECT_TRUE(disk.MakeFolder("/elsewhere/deep"));
    EXPECT_TRUE(ReplaceFile(disk, "/elsewhere/list.txt", after));
    EXPECT_TRUE(ReplaceFile(disk, "/root.txt", after));
    EXPECT_TRUE(ReplaceFile(disk, "plain.txt", after));
    disk.Crash();
    EXPECT_EQ(disk.Paths(), (std::set<std::string>{"/elsewhere/list.txt", "/root.txt", "plain.txt"}));
    EXPECT_EQ(disk.Read("plain.txt", after.size()), after);
    EXPECT_EQ(disk.Read("plain.txt", after.size() - 1), std::nullopt);
    EXPECT_FALSE(disk.Exists("/elsewhere")) << "a folder is no file";
}

/// The disk itself must tell careless writers from careful ones, or the sweeps above prove nothing.
TEST(SimDisk, LosesWhatACarelessWriterDidNotSync) {
    for (bool synced : {false, true}) {
        SimFiles disk;
        disk.Put(path, before);
        auto file = disk.Create(path + ".new");
        file->Write(after);
        if (synced) file->Sync();
        file->Close();
        disk.Rename(path + ".new", path);
        disk.Crash(SimFiles::Cut::NamesFirst);
        EXPECT_EQ(disk.Contents(path) == after, synced);
    }
    SimFiles disk;
    disk.Put(path, before);
    auto file = disk.Create(path);
    file->Write(after);
    EXPECT_EQ(disk.Contents(path), after);
    disk.Crash();
    EXPECT_EQ(disk.Contents(path), before);
    EXPECT_FALSE(file->Write("more")) << "its writer went with the power";
}

} // namespace
} // namespace halyard
