#include "state/EjectListFile.h"

#include "tests/state/Desk.h"

namespace halyard {

class EjectFile : public Desk {
  protected:
    using Texts = std::vector<std::string>;

    EjectFile() {
        lstEjected.AddItem("old");
        lstEjectListChats.AddItem("Old Room");
        auto old = std::make_shared<EjectList>();
        old->ChatName = "Old Room";
        old->Exchange = 5;
        for (const char* name : {"Some User", "eve"}) old->AddEject(name);
        control.EjectLists.Add(old);
    }

    void Load(const std::string& bytes) {
        platform.disk.Put("/program/bans.txt", bytes);
        ReadEjectLists(platform, control, panel, "/program/bans.txt");
    }
    /// "name,exchange,slot,position:names" of every list.
    Texts Lists() {
        Texts all;
        for (const auto& list : control.EjectLists) {
            auto text = list->ChatName + "," + std::to_string(list->Exchange) + "," +
                        std::to_string(list->ChatIndex) + "," + std::to_string(list->ChatColIndex) + ":";
            for (const auto& name : list->GetEjects()) text += " " + name;
            all.push_back(text);
        }
        return all;
    }

    ListBox lstEjected{"lstEjected"}, lstEjectListChats{"lstEjectListChats"};
    Label lblBanCount{"lblBanCount"}, lblEjectListChat{"lblEjectListChat"};
    EjectPanel panel{lstEjected, lblBanCount, lstEjectListChats, lblEjectListChat};
};

TEST_F(EjectFile, IsWrittenOneLineABanAndReadBack) {
    ASSERT_TRUE(WriteEjectLists(platform, control, "/program/", "EjectLists.txt"));
    EXPECT_EQ(platform.disk.Contents("/program/EjectLists.txt"),
              "Halyard File: Eject Lists\r\n\r\nOld Room:5:0:someuser\r\nOld Room:5:0:eve\r\n");
    auto before = Lists();
    ReadEjectLists(platform, control, panel, "/program/", "EjectLists.txt");
    EXPECT_EQ(Lists(), before);
}

TEST_F(EjectFile, MergesRoomsAndBindsThoseThatAreJoined) {
    auto& other = OpenRoom("other", 4, 8);
    auto& lobby = OpenRoom("THE lobby", 4, 9);
    other.EjectListIndex = 1;
    Load("Halyard File: Eject Lists\r\n\r\n"
         "The Lobby:4:0:Bob\n"
         "far:4:0:a:b:c\r\n"
         "the lobby:5:0:bob\r\n"
         "too:4:few\r\n"
         "odd:four:0:kim\r\n"
         "thelobby: 4 :7:EVE\r\n"
         "The Lobby:4:0:bob");
    EXPECT_EQ(Lists(), (Texts{"The Lobby,4,9,2: bob eve", "far,4,0,0: a:b:c", "the lobby,5,0,0: bob",
                              "odd,0,0,0: kim"}));
    Texts shown;
    for (int line = 0; line < lstEjectListChats.ListCount(); ++line)
        shown.push_back(lstEjectListChats.List(line));
    EXPECT_EQ(shown, (Texts{"The Lobby", "far", "the lobby", "odd"}));
    EXPECT_EQ(lobby.EjectListIndex, 1);
    EXPECT_EQ(other.EjectListIndex, -1);
    EXPECT_EQ(lstEjected.ListCount(), 0);
    EXPECT_EQ(lblBanCount.Caption() + lblEjectListChat.Caption(), "Bans: [None]Current Chat: [None]");
}

TEST_F(EjectFile, OnlyItsOwnFilesChangeAnything) {
    auto before = Lists();
    ReadEjectLists(platform, control, panel, "/program/absent.txt");
    EXPECT_EQ(Boxes(), std::vector<Box>());
    for (const char* foreign :
         {"", "\r\n", "halyard File: Eject Lists\r\n", "Halyard File: Eject Lists \r\n"}) {
        Load(foreign);
        EXPECT_EQ(Boxes(), One(ScriptedDialogs::Kind::Error, "Error",
                               "Eject List file not compatible with this version of Halyard!"));
        EXPECT_EQ(Lists(), before);
    }
    EXPECT_EQ(lstEjected.ListCount(), 1);
    Load("Halyard File: Eject Lists");
    EXPECT_EQ(Lists(), Texts());
}

} // namespace halyard
