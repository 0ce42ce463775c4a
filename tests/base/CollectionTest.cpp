#include "base/Collection.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

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
        ASSERT_TRUE(value == key || list.Position(value) == 0) << "a value is no key";
        ASSERT_EQ(list.Item(key), has == wanted.end() ? "" : has->second);
        if (has == wanted.end()) {
            ASSERT_FALSE(list.Remove(key) || list.Remove(place)); // the place behind the last
            ASSERT_TRUE(list.Add(value, key));
            wanted.emplace_back(key, value);
        } else if (random() % 3 != 0) {
            ASSERT_TRUE(random() % 2 ? list.Remove(key) : list.Remove(place));
            wanted.erase(has);
        } else {
            ASSERT_FALSE(list.Add(value, key));
        }
    }
    auto copy = list;
    list.RemoveIf([](std::size_t position) { return position % 2 == 0; });
    for (std::size_t at = 0; at < wanted.size(); ++at) {
        ASSERT_EQ(list.Item(wanted[at].first), at % 2 != 0 ? "" : wanted[at].second);
        ASSERT_EQ(copy.Item(wanted[at].first), wanted[at].second) << "a copy keeps its keys";
    }
    auto moved = std::move(copy);
    EXPECT_TRUE(moved.Add("no key") && moved.Add("no key"));
    EXPECT_EQ(moved.Count(), wanted.size() + 2);
    EXPECT_EQ(moved.Position(""), 0);
    for (std::ptrdiff_t position : {-1, 0, 999}) {
        EXPECT_EQ(moved.Item(position), "");
        EXPECT_FALSE(moved.Remove(position));
    }
    moved.Clear();
    EXPECT_FALSE(moved.Remove(wanted[0].first));
}

} // namespace halyard
