#include "bridge/networks/BridgeFile.h"

#include "base/Text.h"
#include "platform/sim/SimFiles.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

constexpr const char* Path = "/config/bridge.toml";

class BridgeFileTest : public testing::Test {
  protected:
    /// The problems of a file of these bytes, a line each.
    std::string Load(std::string_view bytes) {
        disk.Put(Path, bytes);
        file.Load();
        std::string told;
        for (const auto& problem : file.Problems()) told += problem + "\n";
        return told;
    }
    /// What another program of the same operator would find.
    BridgeFile Again() {
        BridgeFile again(disk);
        again.Load();
        EXPECT_TRUE(again.Problems().empty()) << again.Problems().front();
        return again;
    }

    SimFiles disk;
    BridgeFile file{disk};
};

TEST_F(BridgeFileTest, DefinesNetworksFromWhatIsBuiltIn) {
    EXPECT_EQ(Load("[networks.\"Z\xC3\xBC rich\"]\n" // the order is that of the file, not of the alphabet
                   "like = \"Open server\"\n"
                   "hosts = [\"aim.example\", \"2001:db8::1\"]\n"
                   "port = 65535\n"
                   "[networks.Den]\n"
                   "salt = \"\xE2\x82\xAC\\u0001\"\n"
                   "roasting = [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 255]\n"
                   "ways = [\"main-sign-offs\", \"tls\"]\n"
                   "pin = \"AB:" +
                   std::string(62, '0') + "\"\n"),
              "");
    ASSERT_EQ(file.Networks().size(), 5U);
    const auto& zurich = file.Networks()[3];
    const auto& open = *file.Find("openserver");
    EXPECT_EQ(&zurich, file.Find("z\xFCRICH"));
    EXPECT_EQ(zurich.name, "Z\xFC rich");
    EXPECT_EQ(zurich.hosts, (std::vector<std::string>{"aim.example", "2001:db8::1"}));
    EXPECT_EQ(std::tie(zurich.port, zurich.secrets.salt, zurich.ways),
              std::make_tuple(65535, open.secrets.salt, open.ways));
    const auto& den = file.Networks()[4];
    EXPECT_EQ(den.secrets.salt, "\x80\x01");
    EXPECT_EQ(den.secrets.roasting[15], 255);
    EXPECT_EQ(den.ways, WaysOf(Departure::MainSignOffs, Departure::Tls));
    EXPECT_EQ(den.port, 5190);
    EXPECT_EQ(den.pin, "ab" + std::string(62, '0'));
}

TEST_F(BridgeFileTest, TellsEveryMistakeWithItsPlace) {
    EXPECT_EQ(
        Load("wings = 2\n"
             "[networks.Den]\n"
             "port = 65536\n"
             "port2 = 1\n"
             "hosts = [\"fine\", 5, \"a b\", \"\"]\n"
             "like = \"Den\"\n"
             "salt = \"\xE2\x98\x83\"\n"
             "roasting = [1, 256, 2.5]\n"
             "  ways = [\"sail\", \"main-sign-offs\"]\n"
             "pin = \"abc\"\n"
             "[networks.\"d EN\"]\n"
             "port = \"5190\"\n"
             "[networks.\"laid down\"]\n"
             "[networks]\n"
             "\" \" = 1\n"),
        "line 1, column 1: wings is no key that is known here\n"
        "line 3, column 8: networks.Den.port must be from 1 to 65535\n"
        "line 4, column 1: networks.Den.port2 is no key that is known here\n"
        "line 5, column 18: networks.Den.hosts must be a text in quotes\n"
        "line 5, column 21: networks.Den.hosts has a blank in a host\n"
        "line 5, column 28: networks.Den.hosts must have from 1 to 255 characters, none of them a control "
        "character\n"
        "line 6, column 8: networks.Den.like must name a built-in network\n"
        "line 7, column 8: networks.Den.salt has a character that Windows-1252 lacks\n"
        "line 8, column 12: networks.Den.roasting must have 16 numbers\n"
        "line 8, column 16: networks.Den.roasting must be from 0 to 255\n"
        "line 8, column 21: networks.Den.roasting must be a whole number\n"
        "line 9, column 11: networks.Den.ways has no way \"sail\"\n"
        "line 10, column 7: networks.Den.pin must be the 64 hex digits of a SHA-256\n"
        "line 10, column 7: networks.Den.pin has no use without the way \"tls\"\n"
        "line 11, column 11: networks.d EN is defined twice: case and blanks don't count\n"
        "line 12, column 8: networks.d EN.port must be a whole number\n"
        "line 13, column 11: networks.laid down is built in and can't be defined anew\n"
        "line 15, column 1: networks.  must have a name of 1 to 100 characters of Windows-1252\n"
        "line 15, column 1: networks.  must be a table\n");
    EXPECT_EQ(file.Networks().size(), 3U) << "a wrong file leaves the built-in ones";
    std::string many, wide = "[networks]\n";
    for (int number = 0; number < 1000; ++number) many += "k" + std::to_string(number) + "=0\n";
    for (int number = 0; number < 201; ++number) wide += "n" + std::to_string(number) + "={}\n";
    EXPECT_TRUE(
        Load(many).ends_with("line 100, column 1: k99 is no key that is known here\nmore mistakes: 900\n"));
    EXPECT_EQ(Load(wide), "line 1, column 1: networks may be at most 200\n");
    EXPECT_EQ(Load("[networks.Den]\nport = \n").substr(0, 19), "line 2, column 8: E");
    EXPECT_EQ(Load(std::string((1 << 20) + 1, '#')),
              "/config/bridge.toml can't be read, or is larger than 1 MiB.\n");
    std::string deep = "a"; // what would make a table of each part
    while (deep.size() < (1 << 20) - 4) deep += ".a";
    EXPECT_EQ(Load(deep + "=1"), "line 1, column 258: the key has too many parts\n");
    const std::string sound = "# a: '\xC3\xBC\n[networks.Den]\nsalt = \"\\\"'\xC3\xBC:\\\\\" # : \"\n";
    EXPECT_EQ(Load(sound), "");
    for (const std::string wrong : {"'\"\"\xC3\xBC', 1:2", "\"\",'..',\xC3\xBC", "1,      \x7F"})
        EXPECT_EQ(Load(sound + "hosts=[" + wrong),
                  "line 4, column 16: this character may only stand in quotes\n");
    // The library reads a number on to its end, through the quotation mark.
    for (const std::string wrong : {"x=19_\"", "x={a=[\n1.'", "x= +=\"", "x=[0,1[\"", "x={a=1},x=2\""})
        EXPECT_TRUE(Load(sound + wrong + "\xC6\xA7").ends_with(": a number may have no quotation mark\n"));
    for (const std::string right : {"1=\"\"", "x={a=[1,\n2],1=''}\n2=''", "[1.\"\"]"})
        EXPECT_EQ(Load(sound + right).find("quotation"), std::string::npos) << right;
    EXPECT_EQ(Load(sound + "x=''''"), "line 4, column 3: a text may have but one line\n");
    EXPECT_EQ(Load("[\n[]"), "line 1, column 2: Error while parsing key: expected bare key starting "
                             "character or string delimiter, saw '\\n'\n");
    EXPECT_TRUE(Load("a=" + std::string(1 << 19, '[')).starts_with("line 1, column 19: "));
}

TEST_F(BridgeFileTest, KeepsChoicesBehindWhatTheOperatorWrote) {
    const std::string mine = "# mine\r\n[networks.Den] # no end of line";
    ASSERT_EQ(Load(mine), "");
    EXPECT_EQ(file.ChosenFor("", "me"), "Laid down");
    EXPECT_TRUE(file.Choose("Den", "/home/../home/a\"\\\x80.hys", "Night Owl"));
    EXPECT_TRUE(file.Choose("Open server", "/home/b.hys", ""));
    EXPECT_TRUE(file.AllowRoasting("Den", "AIM.example"));
    ManagementTerms terms{.address = "[::1]:80", .header = "X-Key: \"\\", .enforce = true, .suspend = true};
    EXPECT_TRUE(file.SetManagement("Den", terms));
    disk.Put(Path, disk.Contents(Path) + "# kept by nobody\n"); // as another bot may have written
    EXPECT_TRUE(file.SetManagement("DEN", terms));
    EXPECT_TRUE(disk.Contents(Path).starts_with(mine + "\n# ---- "));
    EXPECT_TRUE(disk.IsPrivate(Path) && disk.IsPrivate("/config"));

    auto again = Again();
    EXPECT_NE(again.Find("Den"), nullptr);
    EXPECT_EQ(again.ChosenFor("/home/a\"\\\x80.hys", "nightowl"), "Den");
    EXPECT_EQ(again.ChosenFor("/home/a\"\\\x80.hys", "another"), "Laid down");
    EXPECT_EQ(again.ChosenFor("/home/b.hys", ""), "Open server");
    EXPECT_EQ(again.ChosenFor("", "whoever"), "Open server") << "the last choice";
    EXPECT_TRUE(again.MayRoast("d e n", "aim.EXAMPLE"));
    EXPECT_FALSE(again.MayRoast("Open server", "aim.example"));
    EXPECT_EQ(again.Management("den"), terms);
    EXPECT_EQ(again.Management("Open server"), ManagementTerms());

    EXPECT_TRUE(again.Choose("Classic salt", "/home/a\"\\\x80.hys", "nightowl"));
    EXPECT_TRUE(file.AllowRoasting("Open server", "host")) << "over what was written meanwhile";
    EXPECT_EQ(Again().ChosenFor("/home/a\"\\\x80.hys", "nightowl"), "Classic salt");
    for (const auto* header : {"no colon", "a b: c", "X: a\r\nHost: b", ": x"})
        EXPECT_FALSE(file.SetManagement("Den", {.header = header})) << header;
    EXPECT_EQ(file.Management("Den"), terms);
    EXPECT_FALSE(file.Choose(" ", "/home/b.hys", ""));
}

TEST_F(BridgeFileTest, NeverWritesOverAMistake) {
    const std::string wrong = "[networks\n";
    EXPECT_NE(Load(wrong), "");
    EXPECT_TRUE(file.Choose("Open server", "/a.hys", "me")) << "choices are kept all the same";
    EXPECT_TRUE(disk.Contents(Path).starts_with(wrong + "# ---- "));

    const auto touched = disk.Contents(Path) + "[networks.Den]\n";
    EXPECT_EQ(Load(touched), "line 1, column 10: " + file.Problems()[0].substr(19) +
                                 "\nline 11, column 2: networks is no key that is known here\n");
    EXPECT_EQ(file.ChosenFor("/a.hys", "me"), "Open server") << "what is right holds";
    EXPECT_FALSE(file.Choose("Den", "/b.hys", "me"));
    EXPECT_EQ(file.ChosenFor("/b.hys", "me"), "Den") << "until the program ends";
    EXPECT_EQ(disk.Contents(Path), touched);

    Load("");
    disk.StopAtNth(1);
    EXPECT_FALSE(file.Choose("Den", "/b.hys", "me"));
    EXPECT_EQ(file.ChosenFor("/b.hys", "me"), "Den");
    disk.Crash();
    EXPECT_TRUE(file.AllowRoasting("Den", "host"));
    EXPECT_EQ(Again().ChosenFor("/b.hys", "me"), "Den") << "with the next that can be written";
}

TEST_F(BridgeFileTest, RefusesASecretThatOthersCanRead) {
    file.Load();
    ASSERT_TRUE(file.SetManagement("Den", {.header = "X: secret", .enforce = true}));
    disk.Show(Path);
    file.Load();
    ASSERT_EQ(file.Problems().size(), 1U);
    EXPECT_TRUE(file.Problems()[0].starts_with("The header for Den is refused")) << file.Problems()[0];
    EXPECT_EQ(file.Problems()[0].find("secret"), std::string::npos);
    EXPECT_EQ(file.Management("Den"), (ManagementTerms{.enforce = true}));
    EXPECT_TRUE(file.Choose("Open server", "/a.hys", "me"));
    EXPECT_TRUE(disk.IsPrivate(Path));
    EXPECT_EQ(file.Management("Den").header, "") << "until it is read anew";
    EXPECT_EQ(Again().Management("Den").header, "X: secret");
}

TEST_F(BridgeFileTest, DropsTheOldestChoices) {
    file.Load();
    file.Choose("Den", "/0", "me");
    auto bytes = disk.Contents(Path);
    const auto entry = bytes.substr(bytes.find("\n[[chosen]]"));
    for (int number = 1; number < 1000; ++number) bytes += Replace(entry, "/0", "/" + std::to_string(number));
    EXPECT_EQ(Load(bytes), "");
    EXPECT_EQ(file.ChosenFor("/0", "me"), "Den");
    EXPECT_TRUE(file.Choose("Den", "/1000", "me"));
    EXPECT_EQ(Again().ChosenFor("/0", "me"), "Laid down");
    EXPECT_EQ(Again().ChosenFor("/1", "me"), "Den");
    const auto kept = disk.Contents(Path), longPath = "/" + std::string(1500, 'x');
    EXPECT_EQ(Load(std::string((1 << 20) - 1 - kept.size(), '#') + "\n" + kept), "");
    EXPECT_TRUE(file.Choose("Den", longPath, "me"));
    auto again = Again();
    EXPECT_EQ(again.ChosenFor("/2", "me"), "Laid down") << "there was no room for it";
    EXPECT_EQ(again.ChosenFor("/1000", "me"), "Den");
    EXPECT_EQ(again.ChosenFor(longPath, "me"), "Den");
}

} // namespace
} // namespace halyard
