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
        failures.push_back(std::to_string(number) + " " + text);
    }
    /// The reply of the auth server that sends the client to this address.
    void SendTo(const std::string& address) {
        Answer("00000001", 1);
        Answer(Hex(MakeTLV("0005", 2, address) + MakeTLV("0006", 2, "cookie")), 4);
    }
    Lines Asked() { return std::exchange(asked, {}); }
    void Use(Ways ways, const std::string& pin = {}) {
        control.UseNetwork({.name = "Den", .hosts = {}, .ways = ways, .pin = pin});
    }
    void Login(const std::string& host) {
        control.Login("Bot", "pw", 5190, false, false, host);
        Settle();
    }

    Lines asked, failures;
};

TEST_F(TlsSession, ChecksAddressesAgainstTheSignOnHostAndNamesAgainstThemselves) {
    Use(WaysOf(Departure::Tls), "-pin");
    world.network.certificates[5190] = {.name = "", .fingerprint = "-pin"};
    Login("Aim.Den.example");
    SendTo("10.0.0.7:5190");
    Use({}); // holds for the next sign-on: this session stays what it is
    Answer("00090003000000000000");
    for (const char* address : {"chat.den.example:5190", "[2001:db8::9]:5190", "2001:db8::9"})
        peers[1]->Send("00010005000000000000" + Hex(MakeTLV("0005", 2, address)));
    Settle();
    peers[1]->Send("00010012000000000000" + Hex(MakeTLV("0005", 2, "bos.den.example")));
    Settle();
    EXPECT_EQ(Asked(),
              (Lines{"aim.den.example 5190 aim.den.example-pin", "10.0.0.7 5190 aim.den.example-pin",
                     "chat.den.example 5190 chat.den.example-pin", "2001:db8::9 5190 aim.den.example-pin",
                     "2001:db8::9 5190 aim.den.example-pin", "bos.den.example 5190 bos.den.example-pin"}));
    EXPECT_EQ(failures, Lines{});
    Login("[::1]");
    EXPECT_EQ(Asked(), Lines{"[::1] 5190 plain"});
    EXPECT_EQ(failures, Lines{"10101 Connection closed by the peer"}) << "plain is not understood there";
}

TEST_F(TlsSession, AnUnreachableRedirectIsCheckedAsTheAddressThatItIs) {
    world.network.address = "203.0.113.5";
    world.network.certificates[5190] = {.name = "den.example"};
    Use(WaysOf(Departure::Tls, Departure::ReachableRedirects));
    Login("den.example");
    SendTo("localhost:5190"); // a name that leads to the client's own machine
    EXPECT_EQ(Asked(), (Lines{"den.example 5190 den.example", "203.0.113.5 5190 den.example"}));
    EXPECT_EQ(peers.size(), 2U);
}

TEST_F(TlsSession, FailsInWordsAndNeverGoesPlainInstead) {
    Use(WaysOf(Departure::Tls));
    const std::pair<SimCertificate, const char*> cases[] = {
        {{"other.example"}, "The certificate isn't made out to den.example, but to other.example."},
        {{"den.example", true}, "The certificate of den.example has expired (yesterday)."},
        {{"den.example", false, false},
         "The certificate of den.example is from nobody whom this machine trusts."}};
    for (const auto& [shown, words] : cases) {
        world.network.certificates[5190] = shown;
        Login("den.example");
        EXPECT_EQ(std::exchange(failures, {}), Lines{"10013 " + std::string(words) + " Nothing was sent."});
    }
    world.network.certificates.clear();
    Login("den.example");
    EXPECT_EQ(failures.at(0).find("10013 den.example doesn't answer in TLS"), 0U);
    world.RunFor(60000);
    EXPECT_EQ(Asked(), Lines(4, "den.example 5190 den.example"));
    EXPECT_TRUE(peers.empty()) << "nobody ever got a byte";
}

TEST(HostAndPort, ReadsBothFamiliesAndNames) {
    const struct {
        const char *text, *host;
        std::int32_t port;
        bool address;
    } cases[] = {{"den.example:99", "den.example", 99, false},
                 {"den.example", "den.example", 5190, false},
                 {"localhost:9", "localhost", 9, false},
                 {"10.1.2.3:99", "10.1.2.3", 99, true},
                 {"[2001:db8::1]:99", "2001:db8::1", 99, true},
                 {"[2001:db8::1]", "2001:db8::1", 5190, true},
                 {"2001:db8::1", "2001:db8::1", 5190, true},
                 {"fe80::1%eth0", "fe80::1%eth0", 5190, true},
                 {"[::1]99", "::1", 5190, true},
                 {"[::1]:x", "::1", 5190, true},
                 {"[::1", "[::1", 5190, false},
                 {"den.example:", "den.example", 5190, false},
                 {"[]:99", "", 99, true},
                 {":99", "", 99, true}};
    for (const auto& [text, host, port, address] : cases) {
        std::string readHost = "before";
        std::int32_t readPort = 5190;
        SplitHostAndPort(text, readHost, readPort);
        EXPECT_EQ(readHost, host) << text;
        EXPECT_EQ(readPort, port) << text;
        EXPECT_EQ(IsAddress(readHost), address) << text;
    }
}

} // namespace
} // namespace halyard
