#include "state/AutoSave.h"
#include "state/SettingsWriter.h"
#include "state/TextFile.h"
#include "tests/state/Desk.h"

namespace halyard {

namespace {

constexpr const char* Head = "Program Name: Halyard\r\nCreator: Tiller\r\nVersion: 2.0 (Beta 1.0)\r\n\r\n"
                             "||||||||||||||||||||||||||||||||||\r\n||||HALYARD SETTINGS "
                             "FILE||||\r\n||||||||||||||||||||||||||||||||||\r\n\r\n";
constexpr const char* Path = "/program/mine.hys";

class SettingsFile : public Desk {
  protected:
    /// Loads a file of these lines, each ended by LF, behind the right banner.
    void Load(const std::string& lines) {
        platform.disk.Put(Path, "a\nb\nVersion: 2.0 (Beta 1.0)\n" + lines);
        ReadSettings(target, Path);
    }
    void FillModel();
    static std::string DefaultCcomLines();
};

void SettingsFile::FillModel() {
    controls.txtSN.SetText("Bot: One");
    controls.cmbServer.SetText("auth.home.arpa");
    controls.txtChat.SetText("room:with:colons");
    controls.txtEx.SetText("");
    controls.txtPW.SetText("secret");
    controls.chkSecureIM.SetValue(0);
    controls.chkAutoImm.SetValue(1);
    lists.AddOp("Bob", 0, FullPerms);
    lists.AddOp("Zo\xEB:x", 0, "");
    lists.AddImm("kim", 0);
    lists.AddAB("bad*", 0);
    lists.AddAW("sp:am", 0);
    lists.AddLockOp("bob", 0);
    lists.AddLockImm("kim", 0);
    lists.AddLockBan("*w", 0);
    controls.optAB.Select(2);
    controls.chkAWOn.SetValue(1);
    controls.chkCharBan.SetValue(1);
    options.CharBanNum = 12;
    options.PartialOn[2] = false;
    options.ChainOn[4] = true;
    options.UnratePause = 100;
    controls.chkAutoSave.SetValue(1);
    controls.chkAutoSaveBans.SetValue(1);
    options.EjectListFile = "bans.txt";
    options.strCurrentUser = "\x80uro";
    control.sngBanPause = 0.7F;
    controls.txtFontColor.SetText("FF0000");
    controls.chkBold.SetValue(1);
    options.SetFont();
    controls.txtFontColor.SetText("not set yet");
    options.Ccoms.CcomNames[CcomBan] = "out:now";
    options.Ccoms.strTrigger = ":!";
    options.Ccoms.blnCcomComments = false;
    options.SetIMComs(true);
    control.ChatSends.Clear();
    control.ChatSends.Add("\xAB %p: \xBB");
    control.ChatSends.Add("");
}

std::string SettingsFile::DefaultCcomLines() {
    std::string lines;
    CcomTable ccoms;
    ccoms.CcomNames[CcomBan] = "out:now";
    for (int index = 0; index < CcomCount; ++index)
        lines += "ccom:" + std::to_string(index) + ":" + ccoms.GetCcom(index) + "\r\n";
    return lines;
}

const char* const FilledBody =
    "sn:Bot: "
    "One\r\nserver:auth.home.arpa\r\nport:5190\r\nmd5:1\r\nfullcaps:1\r\nsecureim:0\r\nre-connect:0\r\n"
    "alerts:1\r\nchat:room:with:colons\r\nex:\r\nautoowner:0\r\nrejoinkick:0\r\nrejoinerror:0\r\n"
    "op:1111111111111111111111111111:bob\r\nop:0000110011111100000000000011:zo\xEB:x\r\nimm:kim\r\nautoimm:"
    "1\r\n"
    "ab:bad*\r\naw:sp:am\r\nablevel:2\r\nwordban:1\r\nwordbanhtml:1\r\nwordbanall:0\r\nautogban:0\r\nicqban:"
    "0\r\n"
    "charban:1\r\ncharbannum:12\r\npartial0:1\r\npartial1:1\r\npartial2:0\r\npartial3:1\r\npartial4:"
    "1\r\nchain0:0\r\n"
    "chain1:0\r\nchain2:0\r\nchain3:0\r\nchain4:1\r\nchatsendon:1\r\nautounrate:1\r\nabunrate:"
    "0\r\nunratepause:100\r\n"
    "autosave:1\r\nautosavefile:AutoSaveFile.hys\r\nautosavebans:1\r\nautosavebanfile:bans.txt\r\nuser:"
    "\x80uro\r\n"
    "banpause:0.7\r\nbackgroundcolor:000000\r\nfontcolor:FF0000\r\nfonttype:Arial\r\nbold:<B>\r\nitalics:\r\n"
    "underline:\r\nstrike:\r\n";
const char* const FilledTail = "trigger::!\r\ncomment:0\r\nuniperms:0000110011111100000000000011\r\nimcoms:"
                               "1\r\nlockops:bob\r\nlockimms:kim\r\n"
                               "lockbans:*w\r\nchatsend:0:\xAB %p: \xBB\r\nchatsend:1:\r\n";

TEST_F(SettingsFile, IsWrittenByteForByte) {
    FillModel();
    ASSERT_TRUE(WriteSettings(platform, options, "/program/", "mine.hys"));
    EXPECT_EQ(platform.disk.Contents(Path), Head + std::string(FilledBody) + DefaultCcomLines() + FilledTail);
    EXPECT_EQ(platform.disk.Paths(), std::set<std::string>{Path});
}

TEST_F(SettingsFile, ComesBackButForWhatIsMeantToDiffer) {
    FillModel();
    WriteSettings(platform, options, Path);
    auto written = platform.disk.Contents(Path);
    ReadSettings(target, Path);
    EXPECT_EQ(controls.txtFontColor.Text(), "FF0000");
    EXPECT_EQ(settings.FontColor, "00BFFF") << "not in effect before SetFont";
    EXPECT_EQ(controls.chkBold.Value(), 0) << "capital tags are written, small ones known";
    EXPECT_EQ(controls.chkPartial[2].Value(), 1);
    EXPECT_FALSE(options.PartialOn[2]);
    EXPECT_EQ(controls.txtPW.Text(), "secret");
    EXPECT_FALSE(options.SettingsLoading);
    EXPECT_TRUE(options.tmrAutoSave->Enabled());
    ASSERT_EQ(control.ChatSends.Count(), 124u);
    EXPECT_EQ(control.ChatSends.Item(1) + control.ChatSends.Item(2), "\xAB %p: \xBB");

    controls.chkBold.SetValue(1);
    options.SetFont();
    while (control.ChatSends.Count() > 2) control.ChatSends.Remove(3);
    EXPECT_EQ(SettingsText(options), written);
}

TEST_F(SettingsFile, TakesEachLineByItsOwnRule) {
    struct Case {
        const char* lines;
        std::function<std::string()> result;
        const char* expected;
    };
    auto flag = [](bool on) { return std::string(on ? "1" : "0"); };
    auto& o = options;
    auto& c = controls;
    const std::vector<Case> cases{
        {"md5:7\n", [&] { return flag(settings.LoginMD5) + flag(c.chkMD5Login.Value()); }, "11"},
        {"md5:0\n", [&] { return flag(settings.LoginMD5) + flag(c.chkMD5Login.Value()); }, "00"},
        {"re-connect:-1\n", [&] { return flag(o.ReconnectOn) + flag(c.chkAutoLogin.Value()); }, "10"},
        {"re-connect:yes\n", [&] { return flag(o.ReconnectOn); }, "0"},
        {"autoowner:2\nrejoinkick:1\nrejoinerror\n",
         [&] { return flag(o.AutoOwner) + flag(o.RejoinKicked) + flag(o.RejoinError); }, "010"},
        {"autogban:3\nicqban:-1\nwordbanall: 1 \n",
         [&] {
             return flag(o.AutobanGhosts) + flag(c.chkBanGhosters.Value()) + flag(o.BanAllICQs) +
                    flag(o.WordBanAll);
         },
         "1001"},
        {"op:short:Bob\nop::Eve\nop:1111111111111111111111111111:x\nop:1111111111111111111111111111\nop\n",
         [&] { return std::to_string(o.Ops.Count()) + o.Perms.Item("bob") + o.Perms.Item("eve"); },
         "200001100111111000000000000110000110011111100000000000011"},
        {"imm:x\nimm:xy\nimm\nIMM:zz\nlockimms:q\n",
         [&] { return std::to_string(o.Immunes.Count()) + o.Immunes.Item(1); }, "1xy"},
        {"ablevel:1\n", [&] { return std::to_string(o.AutobanLevel) + std::to_string(c.optAB.Index()); },
         "11"},
        {"ablevel:7\n", [&] { return std::to_string(o.AutobanLevel) + std::to_string(c.optAB.Index()); },
         "70"},
        {"wordban:0\nwordbanhtml:1\n", [&] { return flag(o.WordBanHTML) + flag(c.chkIncludeHTML.Enabled()); },
         "00"},
        {"wordban:1\nwordbanhtml:0\n", [&] { return flag(o.WordBanHTML) + flag(c.chkIncludeHTML.Enabled()); },
         "01"},
        {"wordbanhtml:1\nwordban:1\n", [&] { return flag(o.WordBanHTML) + flag(c.chkIncludeHTML.Value()); },
         "10"},
        {"charbannum:9\ncharban:1\n", [&] { return std::to_string(o.CharBanNum); }, "16"},
        {"charban:1\ncharbannum:101\n", [&] { return std::to_string(o.CharBanNum); }, "16"},
        {"charban:1\ncharbannum:100\n", [&] { return std::to_string(o.CharBanNum) + c.txtCharBan.Text(); },
         "100100"},
        {"partial3:0\nchain1:1\n",
         [&] {
             return flag(o.PartialOn[3]) + flag(c.chkPartial[3].Value()) + flag(o.ChainOn[1]) +
                    flag(c.chkChain[1].Value());
         },
         "0110"},
        {"chatsendon:0\nabunrate:1\nautounrate:0\n",
         [&] {
             return flag(control.ChatSendOn) + flag(o.ABOnUnrate) + flag(o.AutoUnrate) +
                    flag(c.chkAutoUnrate.Value());
         },
         "0100"},
        {"autosavebans:1\nautosavebanfile:b.txt\nautosave:1\n",
         [&] { return flag(o.AutoSaveBansOn) + o.EjectListFile; }, "0EjectLists.txt"},
        {"autosave:1\nautosavebans:1\nautosavebanfile:b.txt\n",
         [&] { return flag(o.AutoSaveBansOn) + o.EjectListFile + flag(c.txtEjectListFileName.Enabled()); },
         "1b.txt1"},
        {"autosavefile:\n", [&] { return o.AutoSaveFile; }, "AutoSaveFile.hys"},
        {"autosavefile:12345678901234567890123456789012345678901\n", [&] { return o.AutoSaveFile; },
         "AutoSaveFile.hys"},
        {"user:\nuser:Al\n", [&] { return o.strCurrentUser + c.txtCurrentUser.Text(); }, "AlAl"},
        {"banpause:.0009\n", [&] { return c.txtBP.Text(); }, "1"},
        {"banpause:999.5\n", [&] { return c.txtBP.Text(); }, "1"},
        {"banpause:.001\n", [&] { return c.txtBP.Text() + NumberText(control.sngBanPause); }, ".0010.001"},
        {"bold:<B>\nitalics:<i>\nunderline:<u> \nstrike:<s>\n",
         [&] {
             return flag(c.chkBold.Value()) + flag(c.chkItalics.Value()) + flag(c.chkUnderline.Value()) +
                    flag(c.chkStrikethrough.Value());
         },
         "0101"},
        {"ccom:28:late\nccom:-1:x\nccom:9:\nccom:8:elevenchars\nccom:0:a:b\n",
         [&] { return o.Ccoms.GetCcom(0) + o.Ccoms.GetCcom(8) + o.Ccoms.GetCcom(9); }, "a:bkickban"},
        {"trigger:four\ntrigger:\n", [&] { return o.Ccoms.strTrigger; }, ""},
        {"trigger:!!!\ncomment:0\nimcoms:2\n",
         [&] { return o.Ccoms.strTrigger + flag(o.Ccoms.blnCcomComments) + flag(o.IMComsOn); }, "!!!01"},
        {"uniperms:123\n", [&] { return o.UniPerms; }, DefaultPerms},
        {"chatsend:124:over\nchatsend:123:last\nchatsend:0:\nchatsend:1\nchatsend:x:y\n",
         [&] {
             return std::to_string(control.ChatSends.Count()) + control.ChatSends.Item(1) +
                    control.ChatSends.Item(124);
         },
         "124last"},
        {"menu:0\nmenu:11\n", [&] { return std::to_string(menusOpened); }, "0"},
        {"menu:1\n", [&] { return std::to_string(menusOpened); }, "1"},
        {"null:data\n\n:::\n:\nsn\n\xFF\n", [&] { return c.txtSN.Text(); }, ""},
    };
    for (const auto& at : cases) {
        Load(at.lines);
        EXPECT_EQ(at.result(), at.expected) << at.lines;
    }
    Load("chatsend:5:" + std::string(201, 'x') + "\nchatsend:6:" + std::string(200, 'y') + "\n");
    EXPECT_NE(control.ChatSends.Item(6)[0], 'x');
    EXPECT_EQ(control.ChatSends.Item(7), std::string(200, 'y'));
}

TEST_F(SettingsFile, RoomsGetPausesWhetherTheLineCountsOrNot) {
    auto& room = OpenRoom("Lobby", 4, 3);
    room.SetUnratePause(44);
    Load("banpause:2.5\nunratepause:500\n");
    EXPECT_EQ(options.UnratePause, 5);
    EXPECT_EQ(room.GetUnratePause(), 5);
    ASSERT_TRUE(room.tmrBan);
    EXPECT_EQ(room.tmrBan->Interval(), 2500);
    Load("unratepause:100\n");
    EXPECT_EQ(room.GetUnratePause(), 100);
}

TEST_F(SettingsFile, AbsentAndForeignFilesAreTold) {
    using Kind = ScriptedDialogs::Kind;
    options.Ccoms.strTrigger = "!";
    ReadSettings(target, "/program/", "absent.hys");
    ReadSettings(target, "/program");
    EXPECT_EQ(Boxes().size(), 2u);
    EXPECT_EQ(options.Ccoms.strTrigger, "!");
    ReadSettings(target, "/program/absent.hys");
    EXPECT_EQ(Boxes(), One(Kind::Error, "Error", "Halyard settings file not found!"));
    for (const char* bytes :
         {"", "a\nb\n", "a\nb\nVersion: 2.0 (Beta 1.0) \nsn:x\n", "Version: 2.0 (Beta 1.0)\n"}) {
        control.DefaultChatSends();
        platform.disk.Put(Path, bytes);
        ReadSettings(target, Path);
        EXPECT_EQ(Boxes(),
                  One(Kind::Error, "Error", "Error: Settings file not compatible with program version."));
        EXPECT_EQ(options.Ccoms.strTrigger + controls.txtSN.Text(), "");
        EXPECT_EQ(control.ChatSends.Count(), 0u);
        EXPECT_TRUE(options.SettingsLoading);
        EXPECT_EQ(platform.disk.Contents(Path), bytes);
    }
    Load("");
    EXPECT_EQ(control.ChatSends.Count(), 124u);
}

TEST_F(SettingsFile, LineBreaksInANameMakeNoFurtherLines) {
    lists.AddAW("x\r\ntrigger:!!\nop:y", 0);
    WriteSettings(platform, options, Path);
    ReadSettings(target, Path);
    EXPECT_EQ(options.Ccoms.strTrigger, "");
    EXPECT_EQ(options.Ops.Count(), 0u);
    EXPECT_EQ(options.Autowords.Count(), 1u);
}

TEST_F(SettingsFile, AutoSaveWritesBothFilesInTheThirtiethMinute) {
    AutoSave autoSave(platform, options);
    controls.chkAutoSave.SetValue(1);
    controls.chkAutoSaveBans.SetValue(1);
    controls.txtEjectListFileName.SetText("typed.txt");
    world.RunFor(10 * 60'000);
    controls.chkAutoSave.SetValue(0);
    controls.chkAutoSave.SetValue(1);
    controls.chkAutoSaveBans.SetValue(1);
    world.RunFor(30 * 60'000 - 1);
    EXPECT_TRUE(platform.disk.Paths().empty());
    world.RunFor(1);
    EXPECT_EQ(platform.disk.Paths(),
              (std::set<std::string>{"/program/AutoSaveFile.hys", "/program/EjectLists.txt"}));
    EXPECT_EQ(options.AutoSaveMinutes, 0);
    EXPECT_EQ(Boxes(), std::vector<Box>());
}

TEST_F(SettingsFile, ForeignSettingsAreImported) {
    platform.disk.Put(
        Path, "[chatname:Their:Room]\r\n(exchange:5)\n\n-\n==\n\"op:Bob:1111111111111111111111111111\"\n"
              "{op:x}\n.imm:kim.\n.autoimm:1.\n.abn:bad*.\n.abw:spam.\n.absetting:3.\n.absetting:1.\n"
              ".ubw:1.\n.ghostban:1.\n.chkPart2:0.\n.chkPart3:0.\n.cso:0.\n.user:Al.\n.pause:3.5.\n"
              ".font1:112233.\n.font2:445566.\n.font3:Times.\n.bold:<b>.\n.strike:<S>.\n.cm0:!.\n"
              ".lockop:bob.\n.lockimm:kim.\n.lockunban:eve.\n.trigger:?.\n.chatsend:0:x.\n.op.\n");
    options.Ccoms.CcomNames[0] = "changed";
    ImportForeignSettings(target, Path);
    EXPECT_EQ(controls.txtChat.Text() + controls.txtEx.Text(), "Their:Room5");
    EXPECT_EQ(options.Ops.Count(), 1u);
    EXPECT_EQ(options.Perms.Item("bob"), DefaultPerms);
    EXPECT_EQ(options.Immunes.Item(1) + options.Autobans.Item(1) + options.Autowords.Item(1), "kimbad*spam");
    EXPECT_EQ(options.LockOps.Item(1) + options.LockImms.Item(1) + options.LockBans.Item(1), "bobkimeve");
    EXPECT_TRUE(options.AutoImm && options.WordBanOn && options.AutobanGhosts && !control.ChatSendOn);
    EXPECT_EQ(options.AutobanLevel, 1);
    EXPECT_EQ(options.PartialOn, (std::array<bool, 5>{true, true, true, false, false}));
    EXPECT_EQ(controls.txtBP.Text() + options.strCurrentUser, "3.5Al");
    EXPECT_EQ(controls.txtBGColor.Text() + controls.txtFontColor.Text() + controls.txtFontType.Text(),
              "112233445566Times");
    EXPECT_EQ(settings.FontColor, "00BFFF");
    EXPECT_EQ(controls.chkBold.Value() + 2 * controls.chkStrikethrough.Value(), 1);
    EXPECT_EQ(options.Ccoms.strTrigger + options.Ccoms.GetCcom(0), "!op");
    EXPECT_EQ(control.ChatSends.Count(), 124u);
    EXPECT_FALSE(options.SettingsLoading);

    WriteSettings(platform, options, Path);
    ImportForeignSettings(target, Path);
    EXPECT_EQ(controls.txtChat.Text() + options.Ccoms.strTrigger, "") << "our own lines lose both ends";
    ImportForeignSettings(target, "/program/absent");
    EXPECT_EQ(Boxes(), One(ScriptedDialogs::Kind::Error, "Error", "Halyard settings file not found!"));
}

TEST(TextFile, LinesEndInEitherWay) {
    LineReader lines("\xEF\xBB\xBFone\r\n\ntwo\r\r\n\xEF\xBB\xBF\rthree");
    for (const char* expected : {"one", "", "two\r", "\xEF\xBB\xBF\rthree"})
        EXPECT_EQ(lines.Next(), expected);
    EXPECT_FALSE(lines.Next());
    EXPECT_FALSE(LineReader("").Next());
}

} // namespace

} // namespace halyard
