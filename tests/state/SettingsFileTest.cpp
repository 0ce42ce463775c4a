#include "state/AutoSave.h"
#include "state/OptionTable.h"
#include "state/SettingsWriter.h"
#include "state/TextFile.h"
#include "tests/state/Desk.h"

namespace halyard {

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
    /// An option as the model has it: a flag as its variable, its box and "-" when that is disabled, others
    /// as they are written, those of several lines apart by "|".
    std::string Shown(const std::string& key) {
        for (const auto& option : OptionTable())
            if (const auto* flag = std::get_if<FlagOption>(&option); flag && flag->key == key) {
                auto* box = flag->box ? flag->box(controls) : nullptr;
                auto shown = std::to_string(flag->variable(options));
                return box ? shown + std::to_string(box->Value()) + (box->Enabled() ? "" : "-") : shown;
            }
        std::string all;
        for (const auto& line : Split(SettingsText(options), "\r\n"))
            if (line.starts_with(key + ":")) all += (all.empty() ? "" : "|") + Mid(line, key.size() + 2);
        return all;
    }
    /// "key value, key value", each as Shown.
    void Is(const std::string& wanted) {
        for (const auto& each : Split(Trim(wanted), ", ")) {
            auto words = Split(each + " ", " ", 2);
            EXPECT_EQ(Shown(words[0]), Trim(words[1])) << wanted;
        }
    }
    /// Loads each step of "line;line -> key value, key value".
    void Takes(const std::string& script) {
        for (const auto& step : Split(script, "\n")) {
            SCOPED_TRACE(step);
            auto sides = Split(step, " -> ");
            Load(Replace(Trim(sides[0]), ";", "\n") + "\n");
            Is(sides[1]);
        }
    }
    void FillModel();
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

const std::string FilledBody =
    "sn:Bot: One|server:auth.home.arpa|port:5190|md5:1|fullcaps:1|secureim:0|re-connect:0|alerts:1|"
    "chat:room:with:colons|ex:|autoowner:0|rejoinkick:0|rejoinerror:0|op:1111111111111111111111111111:bob|"
    "op:0000110011111100000000000011:zo\xEB:x|imm:kim|autoimm:1|ab:bad*|aw:sp:am|ablevel:2|wordban:1|"
    "wordbanhtml:1|wordbanall:0|autogban:0|icqban:0|charban:1|charbannum:12|partial0:1|partial1:1|partial2:0|"
    "partial3:1|partial4:1|chain0:0|chain1:0|chain2:0|chain3:0|chain4:1|chatsendon:1|autounrate:1|abunrate:0|"
    "unratepause:100|autosave:1|autosavefile:AutoSaveFile.hys|autosavebans:1|autosavebanfile:bans.txt|"
    "user:\x80uro|banpause:0.7|backgroundcolor:000000|fontcolor:FF0000|fonttype:Arial|bold:<B>|italics:|"
    "underline:|strike:|";
const std::string FilledTail =
    "trigger::!|comment:0|uniperms:0000110011111100000000000011|imcoms:1|lockops:bob|lockimms:kim|"
    "lockbans:*w|chatsend:0:\xAB %p: \xBB|chatsend:1:|";

TEST_F(SettingsFile, IsWrittenByteForByteAndComesBackButForWhatIsMeantToDiffer) {
    FillModel();
    std::string ccoms;
    for (int index = 0; index < CcomCount; ++index)
        ccoms += "ccom:" + std::to_string(index) + ":" + options.Ccoms.GetCcom(index) + "|";
    ASSERT_TRUE(WriteSettings(platform, options, "/program/", "mine.hys"));
    const auto written = platform.disk.Contents(Path);
    EXPECT_EQ(written, Head + Replace(FilledBody + ccoms + FilledTail, "|", "\r\n"));
    EXPECT_EQ(platform.disk.Paths(), std::set<std::string>{Path});
    ReadSettings(target, Path);
    EXPECT_EQ(controls.txtFontColor.Text(), "FF0000");
    EXPECT_EQ(settings.FontColor, "00BFFF") << "not in effect before SetFont";
    EXPECT_EQ(controls.chkBold.Value(), 0) << "capital tags are written, small ones known";
    EXPECT_EQ(controls.chkPartial[2].Value(), 1);
    EXPECT_FALSE(options.PartialOn[2]);
    EXPECT_EQ(controls.txtPW.Text(), "secret");
    EXPECT_TRUE(options.tmrAutoSave->Enabled());
    ASSERT_EQ(control.ChatSends.Count(), 124u);
    EXPECT_EQ(control.ChatSends.Item(1) + control.ChatSends.Item(2), "\xAB %p: \xBB");

    controls.chkBold.SetValue(1);
    options.SetFont();
    while (control.ChatSends.Count() > 2) control.ChatSends.Remove(3);
    EXPECT_EQ(SettingsText(options), written);
}

TEST_F(SettingsFile, TakesEachLineByItsOwnRule) {
    Takes(R"(md5:7 -> md5 11
md5:0 -> md5 00
re-connect:-1 -> re-connect 10
re-connect:yes -> re-connect 00
autoowner:2;rejoinkick:1;rejoinerror -> autoowner 00, rejoinkick 11, rejoinerror 00
autogban:3;icqban:-1;wordbanall: 1 ; -> autogban 10, icqban 00, wordbanall 11
op:short:Bob;op:1111111111111111111111111111:x -> op 0000110011111100000000000011:bob
op::Eve;op:1111111111111111111111111111;op -> op 0000110011111100000000000011:eve
imm:x;imm:xy;imm;IMM:zz;lockimms:q -> imm xy
ablevel:1 -> ablevel 1
ablevel:7 -> ablevel 7
wordban:0;wordbanhtml:1 -> wordbanhtml 00-
wordban:1;wordbanhtml:0 -> wordbanhtml 00
wordbanhtml:1;wordban:1 -> wordbanhtml 10
wordban:1;wordbanhtml:1;wordban:0 -> wordbanhtml 01-
charbannum:9;charban:1 -> charbannum 16
charban:1;charbannum:101 -> charbannum 16
partial3:0;chain1:1 -> partial3 01, chain1 10
chatsendon:0;abunrate:1;autounrate:0 -> chatsendon 00, abunrate 11, autounrate 00
autosavebans:1;autosavebanfile:b.txt;autosave:1 -> autosavebans 00, autosavebanfile EjectLists.txt
autosave:1;autosavebans:1;autosavebanfile:b.txt -> autosavebans 11, autosavebanfile b.txt
autosavefile: -> autosavefile AutoSaveFile.hys
autosavefile:12345678901234567890123456789012345678901 -> autosavefile AutoSaveFile.hys
user:;user:A -> user A
banpause:.0009 -> banpause 1
banpause:999;banpause:999.5 -> banpause 999
ccom:28:late;ccom:-1:x;ccom:9:;ccom:8:elevenchars;ccom:0:a:b -> ccom:0 a:b, ccom:8 kick, ccom:9 ban
trigger:four;trigger: -> trigger
trigger:!!!;comment:0;imcoms:2 -> trigger !!!, comment 0, imcoms 1
uniperms:123 -> uniperms 0000110011111100000000000011
chatsend:124:over;chatsend:123:last;chatsend:x:y -> chatsend:123 last, chatsend:124
chatsend:0:;chatsend:1 -> chatsend:0
menu:0;menu:11;null:data;;:::;:;sn;\xFF -> sn)");
    EXPECT_EQ(menusOpened, 0);
    Load("menu:1\nablevel:7\ncharban:1\ncharbannum:100\nbanpause:.001\nuser:Al\nautosave:1\nautosavebans:1\n"
         "autosavebanfile:b.txt\nbold:<B>\nitalics:<i>\nunderline:<u> \nstrike:<s>\n");
    EXPECT_EQ(menusOpened, 1);
    Is("charbannum 100, banpause 0.001");
    EXPECT_EQ(controls.optAB.Index(), 0) << "no such level to show";
    EXPECT_EQ(controls.txtCharBan.Text() + controls.txtBP.Text() + controls.txtCurrentUser.Text(),
              "100.001Al");
    EXPECT_FALSE(controls.chkBold.Value() || controls.chkUnderline.Value());
    EXPECT_TRUE(controls.chkItalics.Value() && controls.chkStrikethrough.Value());
    Load("chatsend:5:" + std::string(201, 'x') + "\nchatsend:6:" + std::string(200, 'y') + "\n");
    EXPECT_NE(control.ChatSends.Item(6)[0], 'x');
    EXPECT_EQ(control.ChatSends.Item(7), std::string(200, 'y'));
    auto& room = OpenRoom("Lobby", 4, 3); // gets pauses, whether the line counts or not
    room.SetUnratePause(44);
    Load("banpause:2.5\nunratepause:500\n");
    EXPECT_EQ(options.UnratePause + room.GetUnratePause(), 5 + 5);
    EXPECT_EQ(room.tmrBan->Interval(), 2500);
}

TEST_F(SettingsFile, AbsentAndForeignFilesAreTold) {
    using Kind = ScriptedDialogs::Kind;
    options.Ccoms.strTrigger = "!";
    for (const char* absent : {"/program", "/program/absent.hys"}) {
        ReadSettings(target, absent);
        EXPECT_EQ(Boxes(), One(Kind::Error, "Error", "Halyard settings file not found!"));
    }
    EXPECT_EQ(options.Ccoms.strTrigger, "!");
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
    for (int minutes : {10, 30}) { // turned on anew it counts anew
        controls.chkAutoSave.SetValue(0);
        controls.chkAutoSave.SetValue(1);
        controls.chkAutoSaveBans.SetValue(1);
        world.RunFor(minutes * 60'000 - 1);
    }
    EXPECT_TRUE(platform.disk.Paths().empty());
    world.RunFor(1);
    EXPECT_EQ(platform.disk.Paths(),
              (std::set<std::string>{"/program/AutoSaveFile.hys", "/program/EjectLists.txt"}));
    EXPECT_EQ(options.AutoSaveMinutes, 0);
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
    Is("chat Their:Room, ex 5, op 0000110011111100000000000011:bob, imm kim, ab bad*, aw spam, lockops bob, "
       "lockimms kim, lockbans eve, autoimm 11, wordban 11, autogban 11, chatsendon 00, ablevel 1, "
       "partial0 11, partial1 11, partial2 11, partial3 01, partial4 01, banpause 3.5, user Al, trigger !, "
       "ccom:0 op");
    EXPECT_EQ(controls.txtBGColor.Text() + controls.txtFontColor.Text() + controls.txtFontType.Text(),
              "112233445566Times");
    EXPECT_EQ(settings.FontColor, "00BFFF");
    EXPECT_EQ(controls.optAB.Index(), 1);
    EXPECT_EQ(controls.chkBold.Value() + 2 * controls.chkStrikethrough.Value(), 1);
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

} // namespace halyard
