// Where a session over TLS goes, and what each of its connections asks of its peer.

#include "oscar/networks/HostAndPort.h"
#include "tests/oscar/Wire.h"

namespace halyard {
namespace {

class TlsSession : public Wire, public News {
  protected:
    TlsSession() {
        control.SetNews(this);
        settings.LoginMD5 = false;
        world.network.onConnect = [this](const std::string& host, std::int32_t port, const TlsTerms* tls) {
            asked.push_back(host + " " + std::to_string(port) + " " + (tls ? tls->host + tls->pin : "plain"));
        };
    }
    void SocketFailed(int, int number, const std::string& text) override {
        failure = std::to_string(number) + " " + text;
    }
    void Login(const Network& network, const std::string& host, const std::string& bos = {}) {
        control.UseNetwork(network);
        control.Login("Bot", "pw", 5190, false, false, host);
        Settle();
        if (bos.empty()) return;
        Answer("00000001", 1);
        Answer(Hex(MakeTLV("0005", 2, bos) + MakeTLV("0006", 2, "cookie")), 4);
    }
    Lines Asked() { return std::exchange(asked, {}); }

    Network den{.name = "Den", .hosts = {}, .ways = WaysOf(Departure::Tls), .pin = "-pin"};
    Lines asked;
    std::string failure;
};

TEST_F(TlsSession, ChecksAddressesAgainstTheSignOnHostAndNamesAgainstThemselves) {
    world.network.certificates[5190] = {.name = "", .fingerprint = "-pin"};
    Login(den, "Aim.Den.example", "10.0.0.7:5190");
    control.UseNetwork({}); // holds for the next sign-on: this session stays what it is
    Answer("00090003000000000000");
    for (const char* address : {"chat.den.example:5190", "[2001:db8::9]:5190"})
        peers[1]->Send("00010005000000000000" + Hex(MakeTLV("0005", 2, address)));
    Settle();
    peers[1]->Send("00010012000000000000" + Hex(MakeTLV("0005", 2, "bos.den.example")));
    Settle();
    EXPECT_EQ(Asked(),
              (Lines{"aim.den.example 5190 aim.den.example-pin", "10.0.0.7 5190 aim.den.example-pin",
                     "chat.den.example 5190 chat.den.example-pin", "2001:db8::9 5190 aim.den.example-pin",
                     "bos.den.example 5190 bos.den.example-pin"}));
    EXPECT_EQ(failure, "");
    Login({}, "[::1]");
    EXPECT_EQ(Asked(), Lines{"[::1] 5190 plain"});
    EXPECT_EQ(failure, "10101 Connection closed by the peer") << "plain is not understood there";

    // A name that leads to the bot's own machine becomes the service's address, and is checked as one.
    world.network.address = "203.0.113.5";
    den.ways |= WaysOf(Departure::ReachableRedirects);
    Login(den, "den.example", "localhost:5190");
    EXPECT_EQ(Asked().back(), "203.0.113.5 5190 den.example-pin");

    world.network.certificates.clear();
    for (const auto& [ways, bos] :
         {std::pair{Ways(), "[2001"}, {WaysOf(Departure::ReachableRedirects), "2001:db8::9"}}) {
        Login({.name = "Plain", .hosts = {}, .ways = ways}, "den.example", "[2001:db8::9]:5190");
        EXPECT_EQ(Asked().back(), bos + std::string(" 5190 plain"));
    }
}

TEST_F(TlsSession, FailsInWordsAndNeverGoesPlainInstead) {
    den.pin.clear();
    for (const auto& [shown, words] :
         {std::pair{SimCertificate{"other.example"}, "The certificate isn't made out to den.example, but to"},
          {SimCertificate{"den.example", true}, "The certificate of den.example has expired ("},
          {SimCertificate{"den.example", false, false}, "The certificate of den.example is from nobody"},
          {SimCertificate{}, "den.example doesn't answer in TLS"}}) {
        world.network.certificates.clear();
        if (!shown.name.empty()) world.network.certificates[5190] = shown;
        Login(den, "den.example");
        EXPECT_EQ(failure.find("10013 " + std::string(words)), 0U) << failure;
        world.RunFor(60000);
    }
    EXPECT_EQ(Asked(), Lines(4, "den.example 5190 den.example"));
    EXPECT_TRUE(peers.empty()) << "nobody ever got a byte";
}

TEST(HostAndPort, ReadsBothFamiliesAndNames) {
    const auto cases = "den.example:99 den.example 99 name|den.example den.example 5190 name|"
                       "den.example: den.example 5190 name|localhost:9 localhost 9 name|"
                       "10.1.2.3:99 10.1.2.3 99 address|[2001:db8::1]:99 2001:db8::1 99 address|"
                       "[2001:db8::1] 2001:db8::1 5190 address|2001:db8::1 2001:db8::1 5190 address|"
                       "[::1]99 ::1 5190 address|[::1 [::1 5190 name|[]:99  99 address";
    for (const auto& row : Split(cases, "|")) {
        const auto sides = Split(row, " ", 2);
        std::string host = "before";
        std::int32_t port = 5190;
        SplitHostAndPort(sides[0], host, port);
        EXPECT_EQ(host + " " + std::to_string(port) + (IsAddress(host) ? " address" : " name"), sides[1]);
    }
}

} // namespace
} // namespace halyard
