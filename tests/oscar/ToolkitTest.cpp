#include "oscar/NetworkSecrets.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/TlvWalk.h"
#include "platform/Md5.h"

#include <gtest/gtest.h>

namespace halyard {

TEST(Toolkit, NumbersHexAndTLVsOfEveryWidth) {
    EXPECT_EQ(WordToStr(65536) + WordToStr(-1), "");
    EXPECT_EQ(StrToHex(WordToStr(65535) + LongToStr(266) + LongToStr(4294967295.0)), "FFFF0000010AFFFFFFFF");
    EXPECT_EQ(StrToLong(HexToStr("FFFFFFFE")), 4294967294.0);
    EXPECT_FALSE(StrToWord("a") || StrToLong("abc"));
    EXPECT_EQ(HexToStr("41zz42"), "AB");
    EXPECT_EQ(MakeTLV("0001", 2, "") + MakeTLV("", 1, "A") + MakeTLV("0A", 4, "z"),
              HexToStr("0001000001410A000000017A"));
    EXPECT_EQ(MakeTLV("0001", 3, "z") + MakeTLV("", 1, std::string(256, 'x')), "");
}

TEST(Toolkit, ParseTLVsTakesWhatIsThere) {
    using Case = std::tuple<const char*, std::vector<std::string>, std::size_t>;
    for (const auto& [input, items, left] : {Case{"", {}, 0}, Case{"0000", {"", ""}, 2},
                                             Case{"00010002616200020000", {"0001", "6162", "0002", ""}, 0},
                                             Case{"0001000561", {"0001", "61"}, 0}, // the length lies
                                             Case{"000102", {"0001", ""}, 0}, Case{"00", {"00", ""}, 0}}) {
        auto bytes = HexToStr(input);
        Collection<std::string> list;
        ParseTLVs(bytes, list);
        std::vector<std::string> found;
        for (const auto& item : list) found.push_back(StrToHex(item));
        EXPECT_EQ(found, items) << input;
        EXPECT_EQ(bytes.size(), left) << input;
    }
}

TEST(Toolkit, ParseTLVsStopsAt101AndACountAt100AndOnItAlone) {
    std::string many;
    for (int n = 0; n < 102; ++n) many += MakeTLV("0001", 2, "x");
    auto rest = many;
    Collection<std::string> list;
    ParseTLVs(rest, list);
    EXPECT_EQ(list.Count(), 202U);
    EXPECT_EQ(rest.size(), 5U);
    int walked = 0;
    EachTLV(many, [&walked](auto, auto) { return ++walked > 0; });
    EXPECT_EQ(walked, 101);

    rest = many;
    list.Clear();
    ParseTLVCount(rest, 65535, list);
    EXPECT_EQ(list.Count(), 200U);
    list.Clear();
    ParseTLVCount(rest, 1, list);
    EXPECT_EQ(list.Count(), 2U);
    EXPECT_EQ(rest.size(), 5U);
    ParseTLVCount(rest, 3, list);
    EXPECT_EQ(list.Count(), 8U);
    EXPECT_EQ(rest, "");
}

TEST(Toolkit, FamilyTags) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [family, tag] : {Case{"0001", "[Generic]"}, Case{"0019", "[Unknown[0019]]"},
                                      Case{"00A0", "[Unknown[00A0]]"}, Case{"0022", "Unknown[0022]"}})
        EXPECT_EQ(FamilyTag(HexToStr(family)), tag);
}

TEST(Toolkit, SecretsRoastOverAgainAfter16AndHashInTheirOrder) {
    auto secrets = DefaultSecrets();
    std::string password = "0123456789abcdefX";
    auto roasted = secrets.Roast(password);
    EXPECT_EQ(static_cast<unsigned char>(roasted[16]), 'X' ^ secrets.roasting[0]);
    EXPECT_EQ(secrets.Roast(roasted), password);
    EXPECT_EQ(secrets.salt.size(), 26U);
    EXPECT_EQ(secrets.Hash("key", ""), Md5("key" + Md5("") + "ZQX Harbour Wireline (QQ)7"));
}

} // namespace halyard
