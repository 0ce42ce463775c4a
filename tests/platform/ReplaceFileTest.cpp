// How a file is replaced, and the disk on which that is tried. tests/state/NothingLostTest.cpp lets every
// step of it fail, for each of the files that there are.

#include "platform/sim/SimFiles.h"

#include <gtest/gtest.h>

namespace halyard {

const std::string path = "/program/list.txt";
const std::string before = "the old bytes";
const std::string after = "the new bytes, which are longer";

TEST(ReplaceFile, MakesAFileThatWasNotThereAndNeedsItsFolder) {
    SimFiles disk;
    EXPECT_FALSE(ReplaceFile(disk, "/elsewhere/list.txt", after));
    EXPECT_TRUE(disk.MakeFolder("/elsewhere/deep"));
    const std::set<std::string> paths{"/elsewhere/list.txt", "/root.txt", "plain.txt"};
    for (const auto& each : paths) EXPECT_TRUE(ReplaceFile(disk, each, after));
    disk.Crash();
    EXPECT_EQ(disk.Paths(), paths);
    EXPECT_EQ(disk.Read("plain.txt", after.size()), after);
    EXPECT_EQ(disk.Read("plain.txt", after.size() - 1), std::nullopt);
    EXPECT_FALSE(disk.Exists("/elsewhere")) << "a folder is no file";
}

TEST(ReplaceFile, MeetsNobodysNeighbour) {
    SimFiles disk;
    const std::set<std::string> others{"/program/.halyard-1", "/program/.halyard-2", path + ".new"};
    for (const auto& other : others) disk.Put(other, "mine");
    EXPECT_TRUE(ReplaceFile(disk, path, after));
    for (const auto& other : others) EXPECT_EQ(disk.Contents(other), "mine") << other;
    EXPECT_EQ(disk.Paths().size(), 4U);
}

/// The disk itself must tell careless writers from careful ones, or the sweeps prove nothing.
TEST(SimDisk, LosesWhatACarelessWriterDidNotSync) {
    for (bool synced : {false, true}) {
        SimFiles disk;
        disk.Put(path, before);
        auto file = disk.Create(path + ".new");
        file->Write(after);
        if (synced) file->Sync();
        disk.Rename(path + ".new", path);
        disk.Crash(SimFiles::Cut::NamesFirst);
        EXPECT_EQ(disk.Contents(path) == after, synced);
        EXPECT_FALSE(file->Write("more")) << "its writer went with the power";
    }
    SimFiles disk;
    disk.Put(path, before);
    disk.Create(path)->Write(after);
    EXPECT_EQ(disk.Contents(path), after);
    disk.Crash();
    EXPECT_EQ(disk.Contents(path), before);
}

} // namespace halyard
