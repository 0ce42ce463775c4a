#include "base/Collection.h"

#include <gtest/gtest.h>

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
