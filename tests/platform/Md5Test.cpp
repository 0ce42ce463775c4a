#include "platform/Md5.h"

#include <gtest/gtest.h>
#include <string>

namespace halyard {

using namespace std::string_literals;

TEST(Md5, MatchesTheVectorsOfRfc1321) {
    EXPECT_EQ(Md5(""), "\xd4\x1d\x8c\xd9\x8f\x00\xb2\x04\xe9\x80\x09\x98\xec\xf8\x42\x7e"s);
    EXPECT_EQ(Md5("abc"), "\x90\x01\x50\x98\x3c\xd2\x4f\xb0\xd6\x96\x3f\x7d\x28\xe1\x7f\x72"s);
    EXPECT_EQ(Md5("12345678901234567890123456789012345678901234567890123456789012345678901234567890"),
              "\x57\xed\xf4\xa2\x2b\xe3\xc9\x55\xac\x49\xda\x2e\x21\x07\xb6\x7a"s);
    EXPECT_NE(Md5("a\0b"s), Md5("a")) << "a null byte ends nothing";
}

} // namespace halyard
