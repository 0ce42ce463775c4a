#include "base/Collection.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace halyard {
namespace {

using Texts = Collection<std::string>;

std::string Joined(const Texts& texts) {
    std::string joined;
    for (const auto& text : texts) joined += text;
    return joined;
}

Texts FiveLetters() {
    Texts texts;
    for (const char* letter : {"a", "b", "c", "d", "e"}) texts.Add(letter, std::string("key ") + letter);
    return texts;
}

TEST(Collection, ATakenKeyIsRefusedAndWhatIsNotThereIsEmpty) {
    Texts texts;
    EXPECT_TRUE(texts.Add("one", "key"));
    EXPECT_FALSE(texts.Add("two", "key"));
    EXPECT_TRUE(texts.Add("three") && texts.Add("three"));
    EXPECT_EQ(texts.Item("key"), "one");
    for (const char* absent : {"", "one"}) { // a value is no key
        EXPECT_EQ(texts.Item(absent), "");
        EXPECT_EQ(texts.Position(absent), 0);
        EXPECT_FALSE(texts.Remove(absent));
    }
    for (std::ptrdiff_t position : {-1, 0, 4}) {
        EXPECT_EQ(texts.Item(position), "");
        EXPECT_FALSE(texts.Remove(position));
    }
    EXPECT_EQ(Joined(texts), "onethreethree");
}

TEST(Collection, PositionsCloseUpBehindARemoval) {
    auto texts = FiveLetters();
    EXPECT_TRUE(texts.Remove("key b"));
    EXPECT_TRUE(texts.Remove(3)); // d
    EXPECT_EQ(Joined(texts), "ace");
    EXPECT_EQ(texts.Position("key c"), 2);
    EXPECT_EQ(texts.Position("key d"), 0);
    EXPECT_TRUE(texts.Add("b", "key b"));
    EXPECT_EQ(texts.Position("key b"), 4);
}

// Keys close to each other in the table, some gone and some new, and each found where it is.
TEST(Collection, FindsEveryKeyWhateverCameAndWent) {
    std::mt19937 random(7);
    Collection<std::string> list;
    std::vector<std::pair<std::string, std::string>> wanted; // key, value
    for (int step = 0; step < 20000; ++step) {
        const auto key = std::to_string(random() % 300);
        const auto value = random() % 2 ? key : "value " + std::to_string(step);
        const auto has =
            std::find_if(wanted.begin(), wanted.end(), [&](const auto& e) { return e.first == key; });
        const auto place = has - wanted.begin() + 1;
        ASSERT_EQ(list.Position(key), has == wanted.end() ? 0 : place);
        ASSERT_EQ(list.Item(key), has == wanted.end() ? "" : has->second);
        if (has == wanted.end()) {
            ASSERT_TRUE(list.Add(value, key));
            wanted.emplace_back(key, value);
        } else if (random() % 3 != 0) {
            ASSERT_TRUE(random() % 2 ? list.Remove(key) : list.Remove(place));
            wanted.erase(has);
        } else {
            ASSERT_FALSE(list.Add(value, key));
        }
    }
    list.RemoveIf([](std::size_t position) { return position % 2 == 0; });
    for (std::size_t at = 0; at < wanted.size(); ++at)
        ASSERT_EQ(list.Item(wanted[at].first), at % 2 != 0 ? "" : wanted[at].second);
}

TEST(Collection, ACopyKeepsItsKeysWhenTheOriginalChanges) {
    auto texts = FiveLetters();
    auto copy = texts;
    texts.Clear();
    EXPECT_EQ(copy.Position("key e"), 5);
    auto moved = std::move(copy);
    EXPECT_TRUE(moved.Remove("key a"));
    EXPECT_EQ(moved.Item(1), "b");
}

} // namespace
} // namespace halyard
