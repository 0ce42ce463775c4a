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

TEST_F(Desk, EveryBoxMovesItsOwnVariable) {
    std::set<CheckBox*> boxes;
    std::set<bool*> variables;
    for (const auto& option : OptionTable()) {
        const auto* flag = std::get_if<FlagOption>(&option);
        if (!flag || !flag->box) continue;
        auto* box = flag->box(controls);
        auto& variable = flag->variable(options);
        EXPECT_TRUE(boxes.insert(box).second) << flag->key;
        EXPECT_TRUE(variables.insert(&variable).second) << flag->key;
        for (int click = 0; click < 2; ++click) {
            box->SetValue(1 - box->Value());
            EXPECT_EQ(variable, box->Value() == 1) << flag->key;
        }
        EXPECT_EQ(box->Value() == 1, flag->byDefault) << flag->key;
    }
    EXPECT_EQ(boxes.size(), 30u);
}

TEST_F(Desk, AutowordsTakeHtmlAlongWithoutItsBox) {
    controls.chkAWOn.SetValue(1);
    EXPECT_TRUE(options.WordBanHTML);
    EXPECT_EQ(controls.chkIncludeHTML.Value(), 0);
    EXPECT_TRUE(controls.chkIncludeHTML.Enabled());

    controls.chkIncludeHTML.SetValue(1);
    controls.chkAWOn.SetValue(0);
    EXPECT_FALSE(options.WordBanHTML);
    EXPECT_EQ(controls.chkIncludeHTML.Value(), 1);
    EXPECT_FALSE(controls.chkIncludeHTML.Enabled());
}

TEST_F(Desk, SwitchesReachRoomsAndControl) {
    auto& room = OpenRoom("Lobby", 4, 3);
    controls.chkAutoUnrate.SetValue(0);
    controls.chkAutoUnrate.SetValue(1);
    EXPECT_TRUE(room.GetAutoUnrate());
    controls.chkAutoUnrate.SetValue(0);
    EXPECT_FALSE(room.GetAutoUnrate());
    controls.chkAutoUnrate.SetValue(1);
    options.SetAutoUnrate(false); // as a file does with a value that the box doesn't take
    options.NewSettings();
    EXPECT_TRUE(room.GetAutoUnrate());
    controls.chkChatSendOn.SetValue(0);
    EXPECT_FALSE(control.ChatSendOn);

    room.SetUnratePause(7);
    options.SetAutoUnratePause(9);
    EXPECT_EQ(room.GetUnratePause(), 7);
    EXPECT_EQ(options.UnratePause, 5);
}

TEST_F(Desk, AutoSaveBoxesOpenAndCloseEachOther) {
    auto open = [this] {
        std::string shown = options.tmrAutoSave->Enabled() ? "timer" : "";
        if (controls.txtAutoSaveFile.Enabled()) shown += " file";
        if (controls.chkAutoSaveBans.Enabled()) shown += " bans";
        return controls.txtEjectListFileName.Enabled() ? shown + " ejects" : shown;
    };
    options.AutoSaveMinutes = 12;
    controls.chkAutoSave.SetValue(1);
    EXPECT_EQ(options.AutoSaveMinutes, 0);
    EXPECT_EQ(open(), "timer file bans");
    controls.chkAutoSaveBans.SetValue(1);
    EXPECT_EQ(open(), "timer file bans ejects");
    controls.chkAutoSave.SetValue(0);
    EXPECT_EQ(open(), "");
    EXPECT_FALSE(options.AutoSaveBansOn || controls.chkAutoSaveBans.Value());
}

TEST_F(Desk, CharBanLengthIsCheckedWhenItsBoxIsLeft) {
    using Case = std::tuple<const char*, const char*, int, bool>;
    for (const auto& [typed, shown, number, told] :
         {Case{" 20 ", " 20 ", 20, false}, Case{"101", "16", 20, true}, Case{"100", "100", 100, false},
          Case{"0", "16", 100, true}, Case{"none", "16", 100, true}, Case{"", "16", 100, true},
          Case{"12 apes", "12 apes", 12, false}, Case{"0.4", "0.4", 0, false}}) {
        Leave(controls.txtCharBan, typed);
        EXPECT_EQ(controls.txtCharBan.Text(), shown) << typed;
        EXPECT_EQ(options.CharBanNum, number) << typed;
        auto expected = One(Kind::Note, "Note", "Char ban values must be between 1 to 100!");
        EXPECT_EQ(Boxes(), told ? expected : std::vector<Box>()) << typed;
    }
}

TEST_F(Desk, UnratePauseAndFileNameAreCheckedWhenTheirBoxesAreLeft) {
    auto& room = OpenRoom("Lobby", 4, 3);
    for (const char* bad : {"", "  ", "0", "10000", "70000", "-3", "soon"}) {
        Leave(controls.txtUnrate, bad);
        EXPECT_EQ(controls.txtUnrate.Text(), "5");
        EXPECT_EQ(Boxes(), One(Kind::Note, "Note", "Unrate time values must be from 1 to 9999 minutes!"))
            << bad;
    }
    EXPECT_EQ(room.GetUnratePause(), 0);
    Leave(controls.txtUnrate, " 9999 ");
    EXPECT_EQ(options.UnratePause, 9999);
    EXPECT_EQ(room.GetUnratePause(), 9999);

    Leave(controls.txtAutoSaveFile, "  mine.hys ");
    EXPECT_EQ(options.AutoSaveFile, "mine.hys");
    EXPECT_EQ(Boxes(), std::vector<Box>());
    Leave(controls.txtAutoSaveFile, "   ");
    EXPECT_EQ(controls.txtAutoSaveFile.Text(), "mine.hys");
    EXPECT_EQ(Boxes(), One(Kind::Note, "Note", "You cannot have a blank file name!"));
}

TEST_F(Desk, FontHeaderFollowsOnlyTheTwoButtons) {
    controls.txtBGColor.SetText(" ");
    controls.txtFontColor.SetText("");
    controls.txtFontType.SetText(" Courier ");
    controls.chkBold.SetValue(1);
    controls.chkStrikethrough.SetValue(1);
    EXPECT_EQ(settings.FontBold, "");
    options.SetFont();
    EXPECT_EQ(controls.txtBGColor.Text(), "000000");
    EXPECT_EQ(controls.txtFontColor.Text(), "00bfff");
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

TEST_F(Desk, NewSettingsAsksAndLeavesSomeThingsAlone) {
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
    options.Ccoms.strTrigger = "!";
    options.Ccoms.CcomNames[CcomBan] = "out";
    options.UniPerms = FullPerms;
    control.ChatSends.Clear();
    control.EjectLists.Add(std::make_shared<EjectList>());
    room.SetUnratePause(60);
    std::string chatSendsAtClose = "none";
    options.onCloseEditors = [&] { chatSendsAtClose = control.ChatSends.Item(1); };

    platform.dialogs.AnswerNo();
    options.AskNewSettings();
    EXPECT_EQ(options.Ops.Count(), 1u);
    platform.dialogs.AnswerYes();
    options.AskNewSettings();
    for (const auto& option : OptionTable())
        if (const auto* flag = std::get_if<FlagOption>(&option); flag && flag->box) {
            auto expected = flag->byDefault || flag->key == std::string("autoimm");
            EXPECT_EQ(flag->box(controls)->Value() == 1, expected) << flag->key;
        }
    EXPECT_EQ(SettingsText(options), Replace(defaults, "autoimm:0", "autoimm:1"));
    EXPECT_EQ(controls.txtPW.Text() + controls.txtInstance.Text(), "secret2");
    EXPECT_EQ(options.Perms.Count() + controls.lstOps.ListCount(), 0u);
    EXPECT_EQ(chatSendsAtClose, "") << "editors close before the lines they edit change";
    EXPECT_EQ(control.EjectLists.Count(), 1u);
    EXPECT_EQ(room.GetUnratePause(), 60) << "the pause isn't pushed to rooms";
    EXPECT_TRUE(room.GetAutoUnrate());
    EXPECT_FALSE(controls.chkAutoSaveBans.Enabled() || controls.chkIncludeHTML.Enabled() ||
                 controls.txtCharBan.Enabled() || controls.txtAutoSaveFile.Enabled());
}

TEST(Permissions, ShortAndLongTextsReadDifferentlyInTheFirstTenDigits) {
    const std::string longer = "1" + std::string(9, '0') + "0" + "1" + std::string(17, '0');
    EXPECT_EQ(longer.size(), 29u);
    EXPECT_TRUE(CommandAllowed(longer, CcomOp));
    EXPECT_FALSE(PermShown(longer, CcomOp));
    EXPECT_TRUE(CommandAllowed(longer, CcomUnban)) << "the 12th character";

    EXPECT_TRUE(CommandAllowed("1", CcomOp));
    EXPECT_FALSE(PermShown("1", CcomOp));
    EXPECT_TRUE(CommandAllowed("1", CcomTban));
    for (int index : {-1, 0, 9, 10, 27, 28}) {
        EXPECT_FALSE(CommandAllowed("", index));
        EXPECT_FALSE(PermShown("", index));
    }
    for (int index = CcomOp; index < CcomCount; ++index)
        EXPECT_EQ(CommandAllowed(DefaultPerms, index), PermShown(DefaultPerms, index));
}

TEST(CcomTable, TakesAtMost28WordsAndChecksNone) {
    CcomTable ccoms;
    Collection<std::string> words;
    for (int number = 1; number <= 30; ++number) words.Add(number == 2 ? "" : "same");
    ccoms.SetCcoms(words, "! ", false);
    EXPECT_EQ(ccoms.GetCcom(0) + ccoms.GetCcom(1) + ccoms.GetCcom(27) + ccoms.GetCcom(28), "samesame");
}

} // namespace

} // namespace halyard
