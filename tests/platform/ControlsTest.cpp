#include "platform/Controls.h"

#include <gtest/gtest.h>

namespace halyard {

// How a list's selection follows its lines is looked at where a view follows both.
TEST(Controls, ListsSelectOnlyLinesThatAreThereAndClickOnAChange) {
    ListBox list{"lstEjected"};
    int clicks = 0;
    list.Click = [&] { ++clicks; };
    for (const char* line : {"ann", "bob", "cid", "dot"}) list.AddItem(line);
    for (int index : {2, 2, 4, -2}) list.Select(index);
    EXPECT_FALSE(list.RemoveItem(4) || list.RemoveItem(-1));
    EXPECT_EQ(list.Text(), "cid");
    EXPECT_EQ(clicks, 1);
    list.Select(-1);
    EXPECT_EQ(list.Text(), "");
    EXPECT_EQ(clicks, 2);
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

} // namespace halyard
