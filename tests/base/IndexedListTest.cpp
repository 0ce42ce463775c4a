#include "base/IndexedList.h"

#include "base/Text.h"

#include <gtest/gtest.h>
#include <random>

namespace halyard {
namespace {

using Texts = std::vector<std::string>;

std::string FirstWordByTrying(const IndexedList& words, const std::string& text) {
    for (const auto& word : words)
        if (ContainsNoCase(text, word)) return word;
    return {};
}

Texts MatchesByTrying(const IndexedList& masks, const std::string& name) {
    Texts all;
    for (const auto& mask : masks)
        if (mask.find('*') == std::string::npos ? mask == name : ContainsNoCase(name, Replace(mask, "*", "")))
            all.push_back(mask);
    return all;
}

IndexedList ListOf(Matching matching, const Texts& texts) {
    IndexedList list(matching);
    for (const auto& text : texts) list.Add(text);
    return list;
}

TEST(IndexedList, TheFirstOfTheListWinsNotTheFirstOfTheText) {
    auto words = ListOf(Matching::words, {"second", "first", "sec", "averylongwordthatmatters"});
    EXPECT_EQ(words.FirstWordIn("First, then SECOND"), "second");
    EXPECT_EQ(words.FirstWordIn("xaVERYlongwordthatmattersx"), "averylongwordthatmatters");
    EXPECT_EQ(words.FirstWordIn("averylongwordthatmatter"), "");
    EXPECT_EQ(words.FirstWordIn(""), "");

    EXPECT_TRUE(words.Remove("second"));
    EXPECT_EQ(words.FirstWordIn("First, then SECOND"), "first");
    EXPECT_TRUE(words.Add("second"));
    EXPECT_EQ(words.FirstWordIn("then SECOND"), "sec"); // it is the last now
    words.Clear();
    EXPECT_EQ(words.FirstWordIn("First, then SECOND"), "");
}

TEST(IndexedList, MasksMeetNames) {
    auto masks = ListOf(Matching::masks, {"bob*", "alice", "*b*o*b", "\xFC*", "***"});
    EXPECT_EQ(masks.FirstMatch("xbobx"), "bob*"); // the asterisk's place has no meaning
    EXPECT_EQ(masks.AllMatches("XBOBX"), (Texts{"bob*", "*b*o*b", "***"}));
    EXPECT_EQ(masks.AllMatches("alice"), (Texts{"alice", "***"}));
    EXPECT_EQ(masks.FirstMatch("alicex"), "***");
    EXPECT_EQ(masks.FirstMatch("na\xDCve"), "\xFC*");
    EXPECT_EQ(masks.FirstMatch(""), "***");

    EXPECT_TRUE(masks.Remove("***"));
    EXPECT_EQ(masks.FirstMatch("alicex"), "");
    EXPECT_EQ(masks.FirstMatch(""), "");
    EXPECT_TRUE(masks.Remove(1));
    EXPECT_EQ(masks.FirstMatch("bob*"), "*b*o*b"); // a mask is not met by being equal
}

TEST(IndexedList, IsAListOfUniqueTexts) {
    auto list = ListOf(Matching::whole, {"a", "b", "c"});
    EXPECT_FALSE(list.Add("b") || list.Add("") || list.Remove("z") || list.Remove(4));
    EXPECT_TRUE(list.Remove("b"));
    EXPECT_EQ(list.Count(), 2u);
    EXPECT_EQ(list.Item("c"), "c");
    EXPECT_EQ(list.Item("b"), "");
    EXPECT_EQ(list.Position("c"), 2);
}

/// Adds, removes and asks at random, and compares every answer with that of trying the entries in order.
class RandomLists : public testing::TestWithParam<const char*> {
  protected:
    std::string RandomText(std::size_t longest, bool asterisks = false) {
        const std::string alphabet = GetParam();
        std::string text(random() % longest + 1, ' ');
        for (char& c : text) c = alphabet[random() % alphabet.size()];
        while (asterisks && random() % 2) text.insert(random() % (text.size() + 1), "*");
        return text;
    }
    void ChangeAtRandom(IndexedList& list, std::size_t longest, bool masks) {
        auto wanted = random() % 200; // so that the list grows and shrinks about this size
        if (list.Count() <= wanted) list.Add(RandomText(longest, masks));
        if (list.Count() > wanted) list.Remove(static_cast<std::ptrdiff_t>(random() % list.Count() + 1));
        if (random() % 1000 == 0) list.Clear();
    }
    std::mt19937 random{20};
};

TEST_P(RandomLists, WordsAnswerLikeTryingInOrder) {
    for (std::size_t longest : {4, 9, 24, 70}) {
        IndexedList words(Matching::words);
        for (int round = 0; round < 3000; ++round) {
            ChangeAtRandom(words, longest, false);
            auto line = RandomText(60);
            if (words.Count() > 0 && random() % 2)
                line += words.Item(static_cast<std::ptrdiff_t>(words.Count())) + "Z";
            ASSERT_EQ(words.FirstWordIn(line), FirstWordByTrying(words, line)) << line;
        }
    }
}

TEST_P(RandomLists, MasksAnswerLikeTryingInOrder) {
    IndexedList masks(Matching::masks);
    for (int round = 0; round < 4000; ++round) {
        ChangeAtRandom(masks, 5, true);
        auto name = RandomText(8, random() % 8 == 0);
        auto all = MatchesByTrying(masks, name);
        ASSERT_EQ(masks.AllMatches(name), all) << name;
        ASSERT_EQ(masks.FirstMatch(name), all.empty() ? "" : all.front()) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Alphabets, RandomLists, testing::Values("a", "ab", "aB\xFC\xDC", "abcdefgh"));

} // namespace
} // namespace halyard
