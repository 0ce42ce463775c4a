#include "oscar/networks/Reach.h"

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/RateTable.h"

#include <gtest/gtest.h>
#include <string>

namespace halyard {

TEST(Reach, ARedirectIsFollowedOnThePeerOnlyWhereItCannotMeanWhatItSays) {
    const auto follows = [](const char* redirects, const char* peer, bool peerWins) {
        for (const auto& redirect : Split(redirects, " "))
            EXPECT_EQ(ReachableHost(redirect, peer), peerWins ? peer : redirect)
                << redirect << " at " << peer;
    };
    EXPECT_EQ(ReachableHost("", "192.0.2.7"), "192.0.2.7");
    follows(
        "0.0.0.0 127.1.2.3 localhost ::ffff:127.0.0.1 10.1.2.3 172.31.0.1 192.168.0.1 169.254.9.9 fd00::1 "
        "fe80::1%eth0",
        "192.0.2.7", true);
    follows("::1 [::] 192.168.0.1", "2001:db8::7", true);
    follows("127.1.2.3", "10.0.0.1", true);
    follows("172.32.0.1 198.51.100.1 rooms.example 1.2.3 ::1::2", "192.0.2.7", false);
    follows("127.0.0.1", "127.0.0.1", false);
    follows("127.0.0.1", "", false);
    follows("0.0.0.0", "::1", false);
    follows("10.1.2.3", "192.168.0.1", false);
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
