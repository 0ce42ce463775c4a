#include "platform/Md5.h"

#include <gtest/gtest.h>
#include <string>

namespace halyard {
namespace {

std::string Hex(const std::string& bytes) {
    const char* digits = "0123456789abcdef";
    std::string hex;
    for (unsigned char byte : bytes) hex += {digits[byte >> 4], digits[byte & 15]};
    return hex;
}

TEST(Md5, MatchesTheVectorsOfRfc1321) {
    EXPECT_EQ(Hex(Md5("")), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(Hex(Md5("abc")), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(Hex(Md5("12345678901234567890123456789012345678901234567890123456789012345678901234567890")),
              "57edf4a22be3c955ac49da2e2107b67a");
    EXPECT_EQ(Md5(std::string("a\0b", 3)).size(), 16u);
    EXPECT_NE(Md5(std::string("a\0b", 3)), Md5("a")) << "a null byte ends nothing";
}

} // namespace
} // namespace halyard
