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
    for (int index : {2, 2, 4, -2}) list.Select(index);
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
    EXPECT_TRUE(list.RemoveItem(1));
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_FALSE(list.RemoveItem(1) || list.RemoveItem(-1));
    EXPECT_EQ(list.ListCount(), 1);
    EXPECT_EQ(list.List(0), "ann");
    EXPECT_EQ(clicks, 1) << "only Select clicks";
}

TEST_F(ListBoxes, TheNewsOfLinesIsEnoughToFollow) {
    std::string news;
    list.onInserted = [&](int index) { news += " +" + std::to_string(index) + " " + list.List(index); };
    list.onRemoved = [&](int index) { news += " -" + std::to_string(index); };
    list.RemoveItem(1);
    list.AddItem("eve");
    list.Clear();
    EXPECT_EQ(news, " -1 +3 eve --1");
}

TEST(Controls, HandlersRunOnChangesOnly) {
    int clicks = 0;
    CheckBox box("chkAWOn", "On");
    box.Click = [&] { ++clicks; };
    for (int value : {1, 1, 2, -1, 0}) box.SetValue(value);
    Button button("cmdGo", "Go");
    button.Click = [&] { ++clicks; };
    button.SetEnabled(false);
    button.Press();
    EXPECT_EQ(clicks, 2) << "the box was turned on and off";
}

} // namespace
} // namespace halyard
