// The windows that edit what has no place on the panels.

#include "tests/surface/DeskScene.h"

namespace halyard {

using Editors = DeskScene;

TEST_F(Editors, CcomsCountOnceTheyAreSet) {
    auto& editor = window.ccomsWindow;
    window.menus.mnuCcoms.Click();
    EXPECT_EQ(editor.txtCcom[27].Text(), "tban");
    EXPECT_EQ(editor.LabelOf(27).Caption(), "Time Ban");
    EXPECT_EQ(editor.LabelOf(11).Caption(), "Ghost Ban");
    EXPECT_EQ(editor.chkComments.Value(), 1);
    editor.txtCcom[9].SetText("Ban Me");
    editor.txtTrigger.SetText(" ! ");
    editor.chkComments.SetValue(0);
    editor.txtCcom[3].SetText("  ");
    editor.cmdSetCcoms.Press();
    EXPECT_EQ(Boxes(), Lines{"Error: Please make sure there are no blank spaces for any ccoms!"});
    EXPECT_EQ(window.options.Ccoms.GetCcom(9), "ban");
    editor.txtCcom[3].SetText("unimm");
    editor.cmdSetCcoms.Press();
    EXPECT_EQ(window.options.Ccoms.GetCcom(9), "banme");
    EXPECT_EQ(window.options.Ccoms.GetTrigger(), "!");
    EXPECT_FALSE(window.options.Ccoms.GetCcomComments());
    editor.cmdResetCcoms.Press();
    EXPECT_EQ(editor.chkComments.Value(), 1);
    EXPECT_EQ(window.options.Ccoms.GetCcom(9), "ban");
}

TEST_F(Editors, UniversalPermissionsGoToNewOps) {
    auto& editor = window.uniPermsWindow;
    window.menus.mnuUniPerms.Click();
    editor.chkPerm[0].SetValue(1);
    editor.cmdSetUniPerms.Press();
    Type(window.people.txtAddOp, "opal");
    EXPECT_EQ(window.options.Perms.Item("opal"), "1000110011111100000000000011");
    editor.cmdDefaultUniPerms.Press();
    EXPECT_EQ(editor.chkPerm[0].Value(), 0);
    EXPECT_EQ(window.options.UniPerms, DefaultPerms);
}

TEST_F(Editors, LocksGoRoundAndFollowTheLists) {
    auto& editor = window.locksWindow;
    MakeOp("opal");
    Type(window.people.txtAddImm, "pearl");
    window.Engine().Lists().AddLockOp("opal", 0);
    window.Engine().Lists().AddLockBan("old", 0);
    window.menus.mnuLocks.Click();
    EXPECT_EQ(Listed(editor.lstOpLocks), Lines{"opal"});
    EXPECT_EQ(Listed(editor.lstBanLocks), Lines{"old"});
    window.Engine().Lists().RemoveLockBan("old", 0);
    Lines pages;
    for (auto* button : {&editor.cmdNext, &editor.cmdNext, &editor.cmdNext, &editor.cmdPrevious}) {
        button->Press();
        EXPECT_EQ(editor.lstOpLocks.Visible() + editor.lstImmLocks.Visible() + editor.lstBanLocks.Visible(),
                  1);
        EXPECT_EQ(editor.txtAddLockOp.Visible() + editor.txtAddLockImm.Visible() +
                      editor.txtAddLockBan.Visible(),
                  1);
        const bool imms = editor.lstImmLocks.Visible() && editor.txtAddLockImm.Visible();
        pages.push_back(editor.FrameMain.Caption() + (imms ? ", shown" : ""));
    }
    EXPECT_EQ(pages, (Lines{"Imm Locks, shown", "Ban Locks", "Op Locks", "Ban Locks"}));
    EXPECT_TRUE(editor.lstBanLocks.Visible() && editor.txtAddLockBan.Visible());
    Type(editor.txtAddLockBan, "x");
    EXPECT_EQ(Boxes(), Lines{"Note: Screenname lengths can only be between two characters to 100!"});
    EXPECT_EQ(editor.txtAddLockBan.Text(), "x");
    Type(editor.txtAddLockBan, "Bad Man");
    Type(editor.txtAddLockImm, "pearl");
    EXPECT_EQ(Listed(editor.lstBanLocks), Lines{"badman"});
    EXPECT_EQ(Listed(editor.lstImmLocks), Lines{"pearl"});
    editor.lstBanLocks.Select(0);
    editor.lstBanLocks.DblClick();
    editor.lstOpLocks.Select(0);
    editor.lstOpLocks.KeyDown(DeleteKey);
    EXPECT_EQ(editor.lstBanLocks.ListCount() + editor.lstOpLocks.ListCount(), 0);
    EXPECT_EQ(window.options.LockOps.Count() + window.options.LockBans.Count(), 0U);
}

TEST_F(Editors, ChatSendsOnThirteenPages) {
    auto& editor = window.chatSendsWindow;
    window.menus.mnuChatsends.Click();
    const auto shown = [&editor] {
        std::string pages;
        for (int page = 0; page < 13; ++page)
            if (editor.FrameTabs[static_cast<std::size_t>(page)].Visible() &&
                editor.cmdPage[static_cast<std::size_t>(page)].Bold())
                pages += std::to_string(page + 1) + " ";
        return pages;
    };
    EXPECT_EQ(shown(), "1 ");
    editor.cmdPrevious.Press();
    EXPECT_EQ(shown(), "13 ");
    editor.cmdNext.Press();
    EXPECT_EQ(shown(), "1 ");
    editor.cmdPage[6].Press();
    EXPECT_EQ(shown(), "7 ");

    const auto before = control.ChatSends.Item(37);
    editor.txtChatSend[36].SetText("gone: %p");
    editor.txtChatSend[123].SetText("");
    EXPECT_EQ(control.ChatSends.Item(37), before);
    editor.cmdSetChatsends.Press();
    EXPECT_EQ(control.ChatSends.Item(37), "gone: %p");
    EXPECT_EQ(control.ChatSends.Item(124), "");
    EXPECT_EQ(control.ChatSends.Count(), 124U);
    editor.cmdDefaultChatsends.Press();
    EXPECT_EQ(control.ChatSends.Item(37), before);
    EXPECT_EQ(editor.txtChatSend[36].Text(), before);
    editor.cmdHelp.Press();
    EXPECT_EQ(Boxes().size(), 3U);
}

TEST_F(Editors, NewSettingsClosesThem) {
    for (auto* entry : {&window.menus.mnuCcoms, &window.menus.mnuUniPerms, &window.menus.mnuLocks,
                        &window.menus.mnuChatsends, &window.menus.mnuIMComs})
        entry->Click();
    window.ccomsWindow.txtCcom[0].SetText("stale");
    window.locksWindow.txtAddLockBan.SetText("half");
    const auto& coms = window.imComsWindow;
    coms.cmdIMComs.Click();
    EXPECT_TRUE(window.options.IMComsOn);
    machine.dialogs.AnswerYes();
    windows.lines.clear();
    window.other.cmdNewSettings.Press();
    EXPECT_EQ(windows.lines,
              (Lines{"unload frmLocks", "unload frmCcoms", "unload frmChatSends", "unload frmUniPerms"}));
    EXPECT_TRUE(coms.Loaded());
    EXPECT_EQ(coms.cmdIMComs.Caption(), "Turn Off IMComs"); // older than the switch
    coms.cmdIMComs.Click();
    EXPECT_FALSE(window.options.IMComsOn);
    EXPECT_EQ(coms.cmdIMComs.Caption(), "Turn On IMComs");
    window.menus.mnuCcoms.Click();
    EXPECT_EQ(window.ccomsWindow.txtCcom[0].Text(), "op");
    window.menus.mnuLocks.Click();
    EXPECT_EQ(window.locksWindow.txtAddLockBan.Text(), "");
}

} // namespace halyard
