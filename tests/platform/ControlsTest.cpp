#include "platform/Controls.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

struct ListBoxes : testing::Test {
    ListBox list{"lstEjected"};
    int clicks = 0;

    ListBoxes() {
        for (const char* line : {"ann", "bob", "cid", "dot"}) list.AddItem(line);
        list.Click = [this] { ++clicks; };
    }
};

TEST_F(ListBoxes, SelectsOnlyLinesThatAreThereAndClicksOnAChange) {
    list.Select(2);
    list.Select(2);
    list.Select(4);
    list.Select(-2);
    EXPECT_EQ(list.Text(), "cid");
    EXPECT_EQ(clicks, 1);
    list.Select(-1);
    EXPECT_EQ(list.Text(), "");
    EXPECT_EQ(clicks, 2);
}

TEST_F(ListBoxes, TheSelectionFollowsItsLineAndGoesWithIt) {
    list.Select(2);
    EXPECT_TRUE(list.RemoveItem(3));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_TRUE(list.RemoveItem(1)); // the line before it
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.Text(), "cid");
    EXPECT_TRUE(list.RemoveItem(1));
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_FALSE(list.RemoveItem(1));
    EXPECT_FALSE(list.RemoveItem(-1));
    EXPECT_EQ(list.ListCount(), 1);
    EXPECT_EQ(list.List(0), "ann");
    EXPECT_EQ(clicks, 1) << "only Select clicks";
}

/// A view that keeps its own copy by the news alone must end up with the same lines.
TEST_F(ListBoxes, TheNewsOfLinesIsEnoughToFollow) {
    std::vector<std::string> seen = {"ann", "bob", "cid", "dot"};
    list.onInserted = [&](int index) { seen.insert(seen.begin() + index, list.List(index)); };
    list.onRemoved = [&](int index) {
        if (index < 0)
            seen.clear();
        else
            seen.erase(seen.begin() + index);
    };
    list.RemoveItem(1);
    list.AddItem("eve");
    EXPECT_EQ(seen, (std::vector<std::string>{"ann", "cid", "dot", "eve"}));
    list.Clear();
    list.AddItem("fay");
    EXPECT_EQ(seen, std::vector<std::string>{"fay"});
}

TEST(Controls, HandlersRunOnChangesOnly) {
    CheckBox box("chkAWOn", "On");
    int clicks = 0;
    box.Click = [&] { ++clicks; };
    for (int value : {1, 1, 2, -1, 0}) box.SetValue(value);
    EXPECT_EQ(clicks, 2);
    Button button("cmdGo", "Go");
    button.Click = [&] { ++clicks; };
    button.SetEnabled(false);
    button.Press();
    EXPECT_EQ(clicks, 2);
}

} // namespace
} // namespace halyard
