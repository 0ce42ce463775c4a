// The fourteen list commands: what they change, what they answer, what they refuse.

#include "tests/commands/RoomScene.h"

namespace halyard {

using ListCommandsTest = RoomScene;

TEST_F(ListCommandsTest, EveryAnswerOfEveryCommand) {
    Judge(R"(op al -> 1 al; op AL -> 5 al; lop zz -> 68 zz; uop zz -> 69 zz; uop al -> 65 al
             lop al -> 60 al; lop al -> 64 al; unop al -> 113 al
             uop al -> 61 al; unop al -> 2 al; unop al -> 6 al
             imm bo -> 9 bob; imm bob -> 13 bob; limm zz -> 78 zz; uimm zz -> 79 zz; uimm bob -> 75 bob
             limm bob -> 70 bob; limm bob -> 74 bob; unimm bob -> 114 bob
             uimm bob -> 71 bob; unimm bob -> 10 bob; unimm bob -> 14 bob
             ab bo -> 17 bo; ab bo -> 21 bo; unab bo -> 18 bo; unab bo -> 22 bo
             aw bad word -> 25 badword; aw badword -> 29 badword
             unaw badword -> 26 badword; unaw badword -> 30 badword
             lban b*d -> 80 b*d; lban b*d -> 84 b*d; uban b*d -> 81 b*d; uban b*d -> 85 b*d
             ab *a*b* -> 17 *ab; lban *a*b -> 80 *ab; ab *** -> 23; lban *** -> 86)");
    EXPECT_EQ(told.size(), 38U + 7) << "38 lines, and 7 times a lock came or went";
    auto& boxes = options.Controls;
    EXPECT_EQ(boxes.lstOps.ListCount() + boxes.lstImms.ListCount() + boxes.lstAWs.ListCount(), 0);
    EXPECT_EQ(boxes.lstABs.List(0), "*ab");
    Judge("ab a.b@c:d -> 17 a . b @ c : d # guarded in the answer only");
    EXPECT_EQ(options.Autobans.Item(2), "a.b@c:d");
}

TEST_F(ListCommandsTest, LengthsAndLists) {
    options.PartialOn = {};
    const std::string hundred(100, 'a');
    // With the number of the answer to a name that is too short or, but for ban locks, longer than a hundred.
    for (const auto& row :
         Split("op 7, unop 8, imm 15, unimm 16, ab 23, unab 24, aw 31, unaw 32, lop 66, uop 67, "
               "limm 76, uimm 77, lban 86, uban 87",
               ", ")) {
        SCOPED_TRACE(row);
        const auto ccom = Split(row, " ")[0];
        const Lines tooShort{Send(static_cast<int>(Val(Split(row, " ")[1])))};
        EXPECT_EQ(Answers("Judge", ccom), tooShort);
        const auto each = Answers("Judge", ccom + "a,,qq");
        EXPECT_TRUE(each.size() == 2 && each[0] == tooShort[0] && each[1] != tooShort[0]);
        EXPECT_EQ(Answers("Judge", ccom + hundred + "a") == tooShort, !ccom.ends_with("ban"));
        EXPECT_NE(Answers("Judge", ccom + hundred), tooShort);
    }
}

TEST_F(ListCommandsTest, AnOpWhoComesBackHasTheOldDigits) {
    Judge("op al -> 1 al; unop al -> 2 al");
    options.SetPerms("al", FullPerms);
    Judge("op al -> 1 al");
    EXPECT_EQ(options.Perms.Item("al"), FullPerms);
    engine.Lists().AddOp("Cle O", 1, "111");
    EXPECT_EQ(options.Perms.Item("cleo"), "111");
}

TEST_F(ListCommandsTest, AutoImmuneAnswersInEveryRoom) {
    OpenRoom("Cellar");
    options.AutoImm = true;
    Judge("op al -> 1 al | 9 al | 9 al # here; Cellar at once, Lobby after its pause");
}

} // namespace halyard
