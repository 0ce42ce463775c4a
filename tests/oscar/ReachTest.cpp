#include "oscar/networks/Reach.h"

#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/RateTable.h"

#include <gtest/gtest.h>
#include <string>

namespace halyard {

TEST(Reach, ARedirectIsFollowedOnThePeerOnlyWhereItCannotMeanWhatItSays) {
    struct Case {
        const char *redirect, *peer;
        bool stays;
    };
    const Case cases[] = {
        {"0.0.0.0", "192.0.2.7", false},
        {"127.1.2.3", "10.0.0.1", false},
        {"localhost", "192.0.2.7", false},
        {"::1", "2001:db8::7", false},
        {"[::]", "2001:db8::7", false},
        {"", "192.0.2.7", false},
        {"::ffff:127.0.0.1", "192.0.2.7", false},
        {"127.0.0.1", "127.0.0.1", true},
        {"0.0.0.0", "::1", true},
        {"10.1.2.3", "192.0.2.7", false},
        {"172.31.0.1", "192.0.2.7", false},
        {"192.168.0.1", "2001:db8::7", false},
        {"169.254.9.9", "192.0.2.7", false},
        {"fd00::1", "192.0.2.7", false},
        {"fe80::1%eth0", "192.0.2.7", false},
        {"10.1.2.3", "192.168.0.1", true},
        {"172.32.0.1", "192.0.2.7", true},
        {"198.51.100.1", "192.0.2.7", true},
        {"rooms.example", "192.0.2.7", true},
        {"127.0.0.1", "", true},
        {"1.2.3", "192.0.2.7", true},
        {"::1::2", "192.0.2.7", true},
    };
    for (const auto& [redirect, peer, stays] : cases)
        EXPECT_EQ(ReachableHost(redirect, peer), stays ? redirect : peer) << redirect << " at " << peer;
}

TEST(RateTable, ReadsBothFormsAndWhatIsCutShort) {
    const auto groups = HexToStr("0001"
                                 "0001"
                                 "000E0024"
                                 "0002"
                                 "0001"
                                 "000E0005");
    for (const std::size_t form : {30U, 35U}) {
        const auto body = WordToStr(2) + std::string(2 * form, 'x') + groups;
        EXPECT_EQ(RateTable::Read(body).ClassOf(RoomLineRequest), 2) << form;
        const auto cut = RateTable::Read(body.substr(0, body.size() - 1));
        EXPECT_EQ(cut.ClassOf(BanRequestKey), 1) << form;
        EXPECT_EQ(cut.ClassOf(RoomLineRequest), 1) << form; // which no class names
    }
    EXPECT_FALSE(RateTable::Read("").Known());
    EXPECT_FALSE(RateTable::Read(std::string(100, '\xFF')).Known());
}

} // namespace halyard
