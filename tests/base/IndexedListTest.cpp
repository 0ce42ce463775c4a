#include "base/IndexedList.h"

#include "base/Text.h"

#include <gtest/gtest.h>
#include <random>

namespace halyard {
namespace {

using Words = std::vector<std::string>;

std::string FirstWordByTrying(const IndexedList& words, const std::string& text) {
    for (const auto& word : words)
        if (ContainsNoCase(text, word)) return word;
    return {};
}

Words MatchesByTrying(const IndexedList& masks, const std::string& name) {
    Words all;
    for (const auto& mask : masks)
        if (mask.find('*') == std::string::npos ? mask == name : ContainsNoCase(name, Replace(mask, "*", "")))
            all.push_back(mask);
    return all;
}

/// Adds, removes and asks at random, and compares every answer with that of trying the entries in order.
class RandomLists : public testing::TestWithParam<const char*> {
  protected:
    /// Of no to `longest` characters of the alphabet, and asterisks anywhere if wanted.
    std::string RandomText(std::size_t longest, bool asterisks = false) {
        const std::string alphabet = GetParam();
        std::string text(random() % (longest + 1), ' ');
        for (char& c : text) c = alphabet[random() % alphabet.size()];
        while (asterisks && random() % 2) text.insert(random() % (text.size() + 1), "*");
        return text;
    }
    void ChangeAtRandom(IndexedList& list, std::size_t longest, bool masks) {
        auto wanted = random() % 200; // so that the list grows and shrinks about this size
        if (list.Count() <= wanted) {
            const auto text = RandomText(longest, masks);
            ASSERT_EQ(list.Add(text), !text.empty() && list.Item(text).empty()) << "of unique texts";
        }
        auto any = static_cast<std::ptrdiff_t>(random() % (list.Count() + 1));
        if (list.Count() > wanted) random() % 2 ? list.Remove(any) : list.Remove(list.Item(any));
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

INSTANTIATE_TEST_SUITE_P(Alphabets, RandomLists,
                         testing::Values("a", "ab", "aB\xFC\xDC", "s\x8A\x9A\x9F\xFFY", "abcdefgh"));

} // namespace
} // namespace halyard
