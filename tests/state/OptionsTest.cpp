#include "state/OptionTable.h"
#include "state/SettingsWriter.h"
#include "tests/state/Desk.h"

namespace halyard {

namespace {

using Kind = ScriptedDialogs::Kind;

void Leave(TextBox& box, const std::string& text) {
    box.SetText(text);
    box.LostFocus();
}

struct OptionRows : Desk {
    /// Calls `act(row, box)` for every flag that a box shows.
    void EachBox(auto act) {
        for (const auto& option : OptionTable())
            if (const auto* flag = std::get_if<FlagOption>(&option); flag && flag->box)
                act(*flag, *flag->box(controls));
    }
};

TEST_F(OptionRows, EveryBoxMovesItsOwnVariable) {
    std::set<CheckBox*> boxes;
    std::set<bool*> variables;
    EachBox([&](const FlagOption& flag, CheckBox& box) {
        auto& variable = flag.variable(options);
        EXPECT_TRUE(boxes.insert(&box).second && variables.insert(&variable).second) << flag.key;
        for (int click = 0; click < 2; ++click) {
            box.SetValue(1 - box.Value());
            EXPECT_EQ(variable, box.Value() == 1) << flag.key;
        }
        EXPECT_EQ(box.Value() == 1, flag.byDefault) << flag.key;
    });
    EXPECT_EQ(boxes.size(), 30u);
}

TEST_F(Desk, SwitchesReachRoomsAndControl) {
    auto& room = OpenRoom("Lobby", 4, 3);
    for (int value : {0, 1}) {
        controls.chkAutoUnrate.SetValue(value);
        EXPECT_EQ(room.GetAutoUnrate(), value == 1);
    }
    options.SetAutoUnrate(false); // as a file does with a value that the box doesn't take
    options.NewSettings();
    EXPECT_TRUE(room.GetAutoUnrate());
    controls.chkChatSendOn.SetValue(0);
    EXPECT_FALSE(control.ChatSendOn);
}

TEST_F(Desk, AutoSaveBoxesOpenAndCloseEachOther) {
    auto open = [this] {
        std::string shown = options.tmrAutoSave->Enabled() ? "timer" : "";
        if (controls.txtAutoSaveFile.Enabled()) shown += " file";
        if (controls.chkAutoSaveBans.Enabled()) shown += " bans";
        return controls.txtEjectListFileName.Enabled() ? shown + " ejects" : shown;
    };
    EXPECT_EQ(open(), "");
    controls.chkAutoSave.SetValue(1);
    EXPECT_EQ(open(), "timer file bans");
    controls.chkAutoSaveBans.SetValue(1);
    EXPECT_EQ(open(), "timer file bans ejects");
    controls.chkAutoSave.SetValue(0);
    EXPECT_EQ(open(), "");
    EXPECT_FALSE(options.AutoSaveBansOn || controls.chkAutoSaveBans.Value());
}

TEST_F(Desk, BoxesAreCheckedWhenTheyAreLeft) {
    auto& room = OpenRoom("Lobby", 4, 3);
    const std::string length = "Char ban values must be between 1 to 100!";
    const std::string pause = "Unrate time values must be from 1 to 9999 minutes!";
    const struct {
        TextBox& box;
        const char *typed, *shown;
        std::string told;
    } cases[] = {{controls.txtCharBan, "0.4", "0.4", ""},
                 {controls.txtCharBan, " 20 ", " 20 ", ""},
                 {controls.txtCharBan, "101", "16", length},
                 {controls.txtCharBan, "none", "16", length},
                 {controls.txtUnrate, "  ", "5", pause},
                 {controls.txtUnrate, "0", "5", pause},
                 {controls.txtUnrate, "10000", "5", pause},
                 {controls.txtUnrate, " 9999 ", " 9999 ", ""},
                 {controls.txtAutoSaveFile, "  mine.hys ", "  mine.hys ", ""},
                 {controls.txtAutoSaveFile, "   ", "mine.hys", "You cannot have a blank file name!"}};
    for (const auto& [box, typed, shown, told] : cases) {
        Leave(box, typed);
        EXPECT_EQ(box.Text(), shown) << typed;
        EXPECT_EQ(Boxes(), told.empty() ? std::vector<Box>() : One(Kind::Note, "Note", told)) << typed;
    }
    EXPECT_EQ(options.CharBanNum, 20);
    EXPECT_EQ(options.UnratePause, 9999);
    EXPECT_EQ(room.GetUnratePause(), 9999);
    EXPECT_EQ(options.AutoSaveFile, "mine.hys");
}

TEST_F(Desk, FontHeaderFollowsOnlyTheTwoButtons) {
    controls.txtBGColor.SetText(" ");
    controls.txtFontColor.SetText("");
    controls.txtFontType.SetText(" Courier ");
    controls.chkBold.SetValue(1);
    controls.chkStrikethrough.SetValue(1);
    EXPECT_EQ(settings.FontBold, "");
    options.SetFont();
    EXPECT_EQ(controls.txtBGColor.Text() + controls.txtFontColor.Text(), "00000000bfff");
    EXPECT_EQ(settings.FontHeader, "<HTML><BODY BGCOLOR=\"000000\"><FONT COLOR=\"00bfff\" FACE=\"Courier\" "
                                   "LANG=\"0\"><B><S>");

    platform.dialogs.AnswerCancel();
    options.ChooseFont();
    EXPECT_EQ(controls.txtFontType.Text(), " Courier ");
    platform.dialogs.AnswerText("Times");
    options.ChooseFont();
    EXPECT_EQ(controls.txtFontType.Text(), "Times");
    EXPECT_EQ(settings.FontType, "Courier");

    options.ResetFont();
    EXPECT_EQ(controls.chkBold.Value(), 0);
    EXPECT_EQ(settings.FontHeader,
              "<HTML><BODY BGCOLOR=\"000000\"><FONT COLOR=\"00BFFF\" FACE=\"Arial\" LANG=\"0\">");
}

TEST_F(OptionRows, NewSettingsAsksAndLeavesSomeThingsAlone) {
    auto& room = OpenRoom("Lobby", 4, 3);
    const auto defaults = SettingsText(options);
    controls.txtPW.SetText("secret");
    controls.txtInstance.SetText("2");
    for (const auto& option : OptionTable())
        if (const auto* flag = std::get_if<FlagOption>(&option)) {
            if (flag->box) flag->box(controls)->SetValue(flag->byDefault ? 0 : 1);
            SetFlag(options, *flag, !flag->byDefault);
        }
    lists.AddOp("Bob", 0, FullPerms);
    lists.AddLockBan("bad*", 0);
    options.UnratePause = 60;
    room.SetUnratePause(60);
    options.Ccoms.strTrigger = "!";
    options.Ccoms.CcomNames[CcomBan] = "out";
    options.UniPerms = FullPerms;
    control.ChatSends.Clear();
    control.EjectLists.Add(std::make_shared<EjectList>());
    std::size_t chatSendsAtClose = 1;
    options.onCloseEditors = [&] { chatSendsAtClose = control.ChatSends.Count(); };

    platform.dialogs.AnswerNo();
    options.AskNewSettings();
    EXPECT_EQ(options.Ops.Count(), 1u);
    platform.dialogs.AnswerYes();
    options.AskNewSettings();
    EachBox([](const FlagOption& flag, CheckBox& box) {
        EXPECT_EQ(box.Value() == 1, flag.byDefault || flag.key == std::string("autoimm")) << flag.key;
    });
    EXPECT_EQ(SettingsText(options), Replace(defaults, "autoimm:0", "autoimm:1"));
    EXPECT_EQ(controls.txtPW.Text() + controls.txtInstance.Text(), "secret2");
    EXPECT_EQ(options.Perms.Count() + controls.lstOps.ListCount(), 0u);
    EXPECT_EQ(chatSendsAtClose, 0u) << "editors close before the lines they edit change";
    EXPECT_EQ(control.EjectLists.Count(), 1u);
    EXPECT_EQ(room.GetUnratePause(), 60) << "the pause isn't pushed to rooms";
    EXPECT_TRUE(room.GetAutoUnrate());
    EXPECT_FALSE(controls.chkAutoSaveBans.Enabled() || controls.chkIncludeHTML.Enabled() ||
                 controls.txtCharBan.Enabled() || controls.txtAutoSaveFile.Enabled());
}

TEST(Permissions, ShortAndLongTextsReadDifferentlyInTheFirstTenDigits) {
    for (const std::string& perms : {"1" + std::string(28, '0'), std::string("1")}) {
        EXPECT_TRUE(CommandAllowed(perms, CcomOp));
        EXPECT_FALSE(PermShown(perms, CcomOp));
    }
    EXPECT_TRUE(CommandAllowed("1", CcomTban));
    for (int index : {-1, 0, 9, 10, 27, 28}) EXPECT_FALSE(CommandAllowed("", index) || PermShown("", index));
}

} // namespace

} // namespace halyard
