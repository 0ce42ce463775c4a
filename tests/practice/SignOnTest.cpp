#include "oscar/networks/Network.h"
#include "tests/practice/RawClient.h"

namespace halyard {

TEST(SignOn, OneSaltAndOnePassword) {
    PracticeOptions options;
    options.salts = {SaltNamed("classic")};
    options.password = "secret";
    options.cookieLength = 32;
    PracticeStage stage(options);
    const auto code = [&](const std::string& password, const std::string& salt, bool raw = true) {
        const auto answer = RawClient(stage).Hashed("a", password, SaltNamed(salt), raw);
        EXPECT_EQ(RawClient::Tlvs(answer, 0x0006).size(), RawClient::Tlvs(answer, 0x0008).empty() ? 32u : 0);
        return StrToHex(RawClient::Tlvs(answer, 0x0008));
    };
    EXPECT_EQ(code("secret", "classic") + code("secret", "classic", false), "");
    EXPECT_EQ(code("secret", "laid-down") + code("Secret", "classic") + code("", "classic"), "000500050005");
    for (const int type : {2, 0x25})
        for (const std::string password : {"secret", "secrets"}) {
            RawClient client(stage);
            EXPECT_EQ(client.frames.back(), std::make_pair(1, HexToStr("00000001")));
            client.Frame(1, HexToStr("00000001") + Tlv(1, "a") + Tlv(type, DefaultSecrets().Roast(password)));
            const Snac answer{.body = client.frames.at(1).second};
            const bool welcome = password == "secret";
            EXPECT_EQ(client.frames[1].first, 4);
            EXPECT_EQ(StrToHex(RawClient::Tlvs(answer, 8)), welcome ? "" : "0005");
            EXPECT_EQ(RawClient::Tlvs(answer, 0x11), welcome ? "a@localhost" : "");
            EXPECT_TRUE(client.closed);
        }
    PracticeStage open; // takes any password but the empty one
    const auto hashed = RawClient(open).Hashed("a", "", DefaultSecrets().salt, true);
    EXPECT_EQ(StrToHex(RawClient::Tlvs(hashed, 8)), "0005");
    for (const int type : {2, 0x25}) {
        RawClient client(open);
        client.Frame(1, HexToStr("00000001") + Tlv(1, "a") + Tlv(type, ""));
        EXPECT_EQ(StrToHex(RawClient::Tlvs({.body = client.frames.at(1).second}, 8)), "0005");
    }
}

TEST(SignOn, WaysByName) {
    std::string problem;
    EXPECT_EQ(WaysNamed("open-server", problem), BuiltInNetworks()[2].ways);
    EXPECT_EQ(WaysNamed("main-sign-offs,reachable-redirects", problem),
              WaysOf(Departure::MainSignOffs, Departure::ReachableRedirects));
    for (const auto* wrong : {"main-sign-offs,", "Main-Sign-Offs", "main-sign-offs, open-server"})
        EXPECT_FALSE(WaysNamed(wrong, problem)) << wrong;
    EXPECT_NE(problem.find("\" open-server\", only open-server, navigation-answers, "), std::string::npos);
    EXPECT_EQ(SaltNamed("Open server"), "");
}

TEST(SignOn, ClientMaySpeakFirst) {
    PracticeStage stage;
    RawClient client(stage, 0);
    while (client.Raw().State() != SocketState::Connected) client.Wait(1);
    EXPECT_TRUE(client.frames.empty());
    client.Frame(1, HexToStr("00000001"), 0);
    client.Ask(0x17, 6, HexToStr("00010003") + "bob");
    EXPECT_EQ(client.Keys(), "00170007");
}

TEST(SignOn, RefusedOnDemandAndUnknownCookies) {
    PracticeStage stage;
    stage.network.Levers().RefuseNextSignOn(24);
    EXPECT_EQ(StrToHex(RawClient::Tlvs(RawClient(stage).Hashed("a", "b", "", false), 0x0008)), "0018");
    EXPECT_EQ(RawClient::Tlvs(RawClient(stage).Hashed("a", "b", "", false), 0x0008), "");
    EXPECT_EQ(StrToHex(RawClient::Tlvs(RawClient(stage).Hashed("  ", "b", "", false), 0x0008)), "0004");
    RawClient stranger(stage);
    stranger.Begin("no such cookie");
    EXPECT_TRUE(stranger.closed);
}

TEST(BringUp, AnswersEchoTheRequestRatesHaveTwoFormsAndExtrasDoNoHarm) {
    PracticeStage stage;
    Guest guest(stage, "Bot");
    using Case = std::tuple<int, int, int, std::string>;
    for (const auto& [family, ask, key, hex] :
         {// the hex of the body, "" for whatever it is
          Case{1, 0x0E, 0x0F, ""}, Case{0x13, 2, 3, ""}, Case{0x13, 4, 6, "00000000000000"},
          Case{0x13, 5, 6, "00000000000000"}, Case{2, 2, 3, ""}, Case{3, 2, 3, ""},
          Case{4, 4, 5, "0002000000031F4003E703E700000000"}, Case{9, 2, 3, ""}}) {
        guest.bos->Ask(family, ask, "", 0x80000001);
        auto answer = guest.bos->Last(family, key);
        EXPECT_EQ(answer.id, 0x80000001) << family << " " << ask;
        EXPECT_FALSE(answer.body.empty());
        EXPECT_TRUE(hex.empty() || StrToHex(answer.body) == hex) << StrToHex(answer.body);
    }
    for (auto [version, size] : {std::make_pair("00010001", 30u), std::make_pair("00010002", 35u)}) {
        guest.bos->Ask(1, 0x17, HexToStr(version));
        EXPECT_EQ(StrToHex(guest.bos->Last(1, 0x18).body), version);
        guest.bos->Ask(1, 0x06);
        auto body = guest.bos->Last(1, 0x07).body;
        EXPECT_EQ(StrToHex(body.substr(0, 4)), "00050001");
        EXPECT_EQ(StrToHex(body.substr(2 + 4 * size, 10)),
                  "00050000000A0000157C"); // class 5, window 10, clear 5500
        EXPECT_EQ(StrToHex(body.substr(body.size() - 8)), "00050001000E0005"); // its one member is chat
        EXPECT_EQ(StrToHex(body.substr(2 + 5 * size, 4)), "0001000A");         // ten of class 1
    }
    using Extra = std::tuple<int, int, const char*>;
    for (const auto& [family, subtype, hex] :
         {Extra{0x13, 7, ""}, Extra{0x13, 8, "0000000000120004000500CA00010100000000000000050000"},
          Extra{0x13, 9, "00000000001200040000"}, Extra{2, 4, "000500000002000568656C6C6F"},
          Extra{1, 0x1E, "00060004"}, Extra{1, 0x11, "00000000"}, Extra{4, 0x10, "00"}, Extra{0x18, 6, "00"},
          Extra{4, 2, "0001"}, Extra{1, 8, "0001"}})
        guest.bos->Ask(family, subtype, HexToStr(hex));
    EXPECT_FALSE(guest.bos->closed);
    EXPECT_EQ(guest.bos->Count("0013000E"), 2);
    for (int family : {0x0010, 0x0018}) {
        auto service = guest.Open(family);
        EXPECT_EQ(service->Last(1, 3).body, WordToStr(1) + WordToStr(family));
        EXPECT_FALSE(service->closed);
    }
    guest.bos->Ask(0x13, 0x08, HexToStr("0000000000000008FFFF0000")); // a list whose length lies
    EXPECT_TRUE(guest.bos->closed);
}

} // namespace halyard
