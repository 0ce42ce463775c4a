#include "base/Text.h"

#include "base/Latin1.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace halyard {

using Parts = std::vector<std::string>;

TEST(Text, MidCountsFromOneAndStopsWithTheText) {
    EXPECT_EQ(Mid("halyard", 1, 3) + Mid("halyard", 4), "halyard");
    EXPECT_EQ(Mid("halyard", 7, 9), "d");
    for (std::size_t start : {8, 900, 0}) EXPECT_EQ(Mid("halyard", start, 3), "");
    EXPECT_EQ(Left("ab", 5), "ab");
}

TEST(Text, NamesLoseBlanksAndCapitals) {
    EXPECT_EQ(NormalizeName(" Room  Name 1 "), "roomname1");
    EXPECT_EQ(NormalizeName("Tab\tStays"), "tab\tstays");
    for (const char* one : {"", "  ", "bob", " B OB ", "bobb", "bo", "b\xD6", "B \xF6"})
        for (const char* other : {"", " ", "bob", "B o b", "bobb ", "\xF6", " b\xF6"})
            EXPECT_EQ(SameName(one, other), NormalizeName(one) == NormalizeName(other)) << one << other;
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("   "), "");
}

TEST(Text, LowerCaseIsThatOfWindows1252) {
    EXPECT_EQ(Lower("\xC0\xD6\xD8\xDE\x8A\x8C\x8E\x9F"), "\xE0\xF6\xF8\xFE\x9A\x9C\x9E\xFF");
    EXPECT_EQ(Lower("@[`{\xD7\xDF\xF7\x80\xBF"), "@[`{\xD7\xDF\xF7\x80\xBF");
}

TEST(Text, ReplaceGoesOnBehindWhatItPutIn) {
    EXPECT_EQ(Replace("<a<", "<", "&lt;"), "&lt;a&lt;");
    EXPECT_EQ(Replace("aaa", "aa", "a"), "aa");
    EXPECT_EQ(Replace("%P %p", "%p", "%p%p"), "%P %p%p");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
}

TEST(Text, SplitKeepsEmptyPartsAndTheLimitKeepsTheRest) {
    EXPECT_EQ(Split("a:b:c", ":"), (Parts{"a", "b", "c"}));
    EXPECT_EQ(Split(":a:", ":"), (Parts{"", "a", ""}));
    EXPECT_EQ(Split("a:b:c", ":", 2), (Parts{"a", "b:c"}));
    EXPECT_EQ(Split("a:b:c", ":", 1), (Parts{"a:b:c"}));
    EXPECT_EQ(Split("a:b", ":", 9), (Parts{"a", "b"}));
    EXPECT_EQ(Split("a, b, c", ", "), (Parts{"a", "b", "c"}));
    EXPECT_EQ(Split("", ":"), Parts{});
    EXPECT_EQ(Split("ab", ""), Parts{"ab"});
}

TEST(Text, FindingIgnoresCase) {
    EXPECT_EQ(FindNoCase("Hello World", "WORLD"), 7u);
    EXPECT_EQ(FindNoCase("aaab", "AAB"), 2u);
    EXPECT_EQ(FindNoCase("\xDCMLAUT", "\xFCm"), 1u);
    EXPECT_EQ(FindNoCase("short", "shorter"), 0u);
    EXPECT_FALSE(ContainsNoCase("hello", "help"));
    EXPECT_TRUE(ContainsNoCase("", ""));
    EXPECT_TRUE(ContainsNoCase("hello", ""));
}

TEST(StripHTML, TakesOutWhatStandsBetweenBrackets) {
    using Case = std::pair<const char*, const char*>;
    for (auto [text, stripped] :
         {Case{"a<b>c", "ac"}, Case{"<lone>", ""}, Case{"", ""}, Case{"a > b", "a > b"},
          Case{"a > b < c", "a > b < c"}, Case{"1 > 0 <b>x</b>", "1 > 0 x"}, Case{"<a><b>x", "x"},
          Case{"<a<b>c>d", "c>d"}, Case{"<>", ""}, Case{"x<b>y<i", "xy<i"}, Case{"&lt;b&gt;", "&lt;b&gt;"},
          Case{"<HTML><BODY BGCOLOR=\"#000000\">hi</BODY></HTML>", "hi"}})
        EXPECT_EQ(StripHTML(text), stripped) << text;
}

TEST(StripHTML, HostileTextIsDoneInOnePass) {
    const std::size_t many = 1 << 20; // quadratic work would not end here
    EXPECT_EQ(StripHTML(std::string(many, '<')), std::string(many, '<'));
    EXPECT_EQ(StripHTML(std::string(many, '<') + std::string(many, '>')), std::string(many - 1, '>'));
    std::string tags;
    for (std::size_t count = 0; count < many / 4; ++count) tags += "<b>x";
    EXPECT_EQ(StripHTML(tags), std::string(many / 4, 'x'));
}

TEST(Numbers, ValReadsTheNumberATextBeginsWith) {
    for (const char* text :
         {"", "abc", ".", "-", "+-5", "1e-999", "0e999", "inf", "nan", "0x10", "1e-99999999999999999999"})
        EXPECT_EQ(Val(text), 0) << text;
    auto huge = std::numeric_limits<double>::infinity();
    using Case = std::pair<std::string, double>;
    for (const auto& [text, value] :
         {Case{"12abc", 12}, Case{" 1 2 . 5 x", 12.5}, Case{"+7", 7}, Case{"-.5", -0.5}, Case{"5.", 5},
          Case{"1.2.3", 1.2}, Case{"1e3", 1000}, Case{"1D-2", 0.01}, Case{"1e", 1}, Case{"2e+", 2},
          Case{"1e999", huge}, Case{"-1e999", -huge}, Case{"1,5", 1}, Case{"9e99999999999999999999", huge},
          Case{std::string(400, '9'), huge}, Case{"0." + std::string(400, '0') + "1", 0},
          Case{"0." + std::string(400, '0') + "1e401", 1}})
        EXPECT_EQ(Val(text), value) << text;
}

TEST(Numbers, NumericIsTheWholeText) {
    for (const char* text : {"1", "-1", "+1.5", ".5", "5.", "1e5", "1d5", "00000000000000000000001", " 7 "})
        EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text :
         {"", " ", "1a", "1e", "1.2.3", "--1", "1 2", "e5", ".", "1-", "inf", "nan", "\xB2"})
        EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST(Numbers, IntegersRoundAHalfToTheEvenOneAndRefuseWhatDoesNotFit) {
    using Case = std::pair<const char*, std::optional<std::int16_t>>;
    for (const auto& [text, value] :
         {Case{"2.5", 2}, Case{"3.5", 4}, Case{"-2.5", -2}, Case{"32767", 32767}, Case{"32767.5", {}},
          Case{"-32768.5", -32768}, Case{"12x", {}}, Case{"", {}}})
        EXPECT_EQ(ToInt16(text), value) << text;
    EXPECT_EQ(ToInt32("2147483647"), 2147483647);
    for (const char* text : {"2147483648", "1e999"}) EXPECT_EQ(ToInt32(text), std::nullopt);
    EXPECT_EQ(RoundToInt32(std::nan("")), std::nullopt);

    std::int16_t field = 7;
    AssignInt16(field, 32768);
    AssignInt16(field, -32769);
    EXPECT_EQ(field, 7);
    AssignInt16(field, -32768);
    EXPECT_EQ(field, -32768);
}

TEST(Numbers, TextsAreShortAndPlain) {
    using Case = std::pair<double, const char*>;
    for (auto [value, text] :
         {Case{0.001, "0.001"}, Case{1, "1"}, Case{30.5, "30.5"}, Case{1000000, "1000000"},
          Case{-0.5, "-0.5"}, Case{-0.0, "0"}, Case{0.1 + 0.2, "0.30000000000000004"},
          Case{0.00001, "0.00001"}, Case{123456789012345, "123456789012345"}, Case{1e30, "1e+30"}})
        EXPECT_EQ(NumberText(value), text);
    EXPECT_EQ(NumberText(8.2f), "8.2");
}

TEST(Latin1, EveryByteComesBackFromUtf8) {
    std::string all;
    for (int code = 0; code < 256; ++code) all.push_back(static_cast<char>(code));
    EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
    EXPECT_EQ(ToUtf8("\xAB \x80\xFC"), "\u00AB \u20AC\u00FC");
}

TEST(Latin1, WhatHasNoPlaceAndWhatIsBrokenBecomesAQuestionMark) {
    using Case = std::pair<const char*, const char*>;
    // A character that Windows-1252 has not, a cut one, overlong ones, a surrogate, one above the last.
    for (auto [utf8, text] :
         {Case{"\u4E2D\U0001F600x", "??x"}, Case{"\xC2\x80", "?"}, Case{"\xE2\x82", "??"},
          Case{"\xE2\x82z", "??z"}, Case{"\x80z", "?z"}, Case{"\xC0\xAF", "??"}, Case{"\xE0\x80\xAF", "???"},
          Case{"\xED\xA0\x80", "???"}, Case{"\xF4\x90\x80\x80", "????"}, Case{"\xFF", "?"}})
        EXPECT_EQ(FromUtf8(utf8), text);
    // UTF-16 in hex: a mark of either order, a character beyond 16 bits, halves of one, half a character.
    using namespace std::string_view_literals;
    for (auto [utf16, wanted] : {std::pair{"\0d\0\xE9\x20\xAC"sv, "d\xE9\x80"sv},
                                 {"\xFE\xFF\0a"sv, "a"sv},
                                 {"\xFF\xFE"
                                  "a\0"sv,
                                  "a"sv},
                                 {"\x4E\x2D\0b"sv, "?b"sv},
                                 {"\xD8\x3D\xDE\0\0c"sv, "?c"sv},
                                 {"\xD8\x3D\0c\xDE\0"sv, "?c?"sv},
                                 {"\0a\0"sv, "a?"sv},
                                 {""sv, ""sv}})
        EXPECT_EQ(FromUtf16(utf16), wanted);
}

} // namespace halyard
