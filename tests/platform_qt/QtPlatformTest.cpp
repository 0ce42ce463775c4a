#include "tests/platform_qt/Loop.h"

#include <gtest/gtest.h>
#include <thread>

namespace halyard {

TEST(QtPlatform, PostsFromAnyThreadToItsLoop) {
    QtPlatform platform;
    EXPECT_FALSE(platform.NewDatabase());
    QtPlatform::Post post;
    platform.databases = [&](QtPlatform::Post given) {
        post = std::move(given);
        return nullptr;
    };
    platform.NewDatabase();
    std::thread::id ranOn;
    std::thread other([&] { post([&] { ranOn = std::this_thread::get_id(); }); });
    other.join();
    EXPECT_EQ(ranOn, std::thread::id()) << "not before the loop turns";
    EXPECT_TRUE(RunUntil([&] { return ranOn != std::thread::id(); }));
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

} // namespace halyard
