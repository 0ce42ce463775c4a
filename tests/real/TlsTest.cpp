// TLS on the real loopback: whose certificate is taken, what the others are told, and that they get nothing.

#include "tests/platform_qt/Loop.h"
#include "tests/real/Certificates.h"

#include <QSslServer>

#include <gtest/gtest.h>

namespace halyard {
namespace {

class Tls : public testing::Test {
  protected:
    Tls() {
        QObject::connect(&service, &QTcpServer::pendingConnectionAvailable, &service, [this] {
            peer = service.nextPendingConnection();
            QObject::connect(peer, &QTcpSocket::readyRead, peer, [this] { served += peer->readAll(); });
            QObject::connect(peer, &QTcpSocket::disconnected, &service, [this] { peerGone = true; });
            peer->write("welcome"); // right behind the handshake
            peer->flush();
        });
        client->onData = [this](std::size_t) { heard += client->ReadAll(); };
        client->onError = [this](int number, const std::string& description) {
            failure = number;
            words = description;
        };
        service.listen(QHostAddress::LocalHost);
    }
    /// Connects on these terms, and sends. True when each side got the other's first words.
    bool Reaches(const TlsTerms& terms, const std::string& host = "127.0.0.1") {
        words.clear(), served.clear(), heard.clear(), failure = 0, peer = nullptr;
        client->SetTls(terms);
        client->Connect(host, service.serverPort());
        client->Send("too early");
        EXPECT_TRUE(
            RunUntil([this] { return failure != 0 || (peer && client->State() == SocketState::Connected); }));
        client->Send("password");
        return failure == 0 && RunUntil([this] { return served == "password" && heard == "welcome"; });
    }
    static std::string SumOf(const QSslConfiguration& shown) {
        return shown.localCertificate().digest(QCryptographicHash::Sha256).toHex().toStdString();
    }

    Authority known{"Known"}, stranger{"Stranger"};
    std::optional<Trust> trust{std::in_place, known};
    QtPlatform platform;
    QSslServer service;
    QTcpSocket* peer = nullptr;
    bool peerGone = false;
    std::unique_ptr<Socket> client = platform.NewSocket();
    QByteArray served;
    std::string heard, words;
    int failure = 0;
};

TEST_F(Tls, TakesTheCertificateThatIsMeantAndSaysWhatIsWrongWithOthers) {
    auto older = known.Issue("DNS:localhost");
    older.setProtocol(QSsl::TlsV1_2);
    const auto good = known.Issue("DNS:localhost"), old = known.Issue("DNS:localhost", -9, -2);
    const auto unknown = stranger.Issue("DNS:else.where"), mine = known.Issue("IP:127.0.0.1");
    const struct {
        const QSslConfiguration& shown;
        TlsTerms terms;
        const char* said; // empty: it is taken
    } cases[] = {
        {good, {"localhost"}, ""},
        {older, {"localhost"}, ""},
        {good, {"else.where"}, "The certificate isn't made out to else.where, but to localhost."},
        {good, {"127.0.0.1"}, "isn't made out to 127.0.0.1"},
        {mine, {"127.0.0.1"}, ""},
        {known.Issue("DNS:localhost", 2, 9), {"localhost"}, "The certificate of localhost isn't valid yet ("},
        {old, {"localhost"}, "The certificate of localhost has expired ("},
        {unknown, {"else.where"}, "else.where is from nobody whom this machine trusts. Nothing was sent."},
        {unknown, {"localhost"}, "isn't made out to localhost, but to else.where."},
        {unknown, {"localhost", SumOf(unknown)}, ""},
        {old, {"else.where", SumOf(old)}, ""},
        {older, {"localhost", SumOf(good)}, "isn't the pinned one"},
        {good, {"localhost", SumOf(unknown)}, "isn't the pinned one. Its SHA-256 is "},
        {unknown, {"localhost", SumOf(good)}, "isn't the pinned one. Its SHA-256 is "},
    };
    const auto check = [this](const QSslConfiguration& shown, const TlsTerms& terms,
                              const std::string& said) {
        service.setSslConfiguration(shown);
        EXPECT_EQ(Reaches(terms), said.empty()) << words;
        EXPECT_NE(words.find(said), std::string::npos) << words;
        if (said.empty()) return;
        EXPECT_TRUE(words.ends_with(" Nothing was sent.")) << words;
        EXPECT_EQ(failure, TlsFailed);
        EXPECT_EQ(client->State(), SocketState::Error);
        RunPending();
        EXPECT_EQ(served + QByteArray::fromStdString(heard), "");
    };
    for (const auto& [shown, terms, said] : cases) check(shown, terms, said);
    trust.reset(); // the machine's own authorities
    check(good, {"localhost"}, "is from nobody whom this machine trusts.");
}

TEST_F(Tls, OffersNothingOlderAndNothingPlain) {
    QTcpServer plain;
    QByteArray got;
    QObject::connect(&plain, &QTcpServer::pendingConnectionAvailable, &plain, [&] {
        auto* came = plain.nextPendingConnection();
        came->write("*\1\0\0\0\4\0\0\0\1", 10);
        QObject::connect(came, &QTcpSocket::readyRead, &plain, [&got, came] { got += came->readAll(); });
    });
    plain.listen(QHostAddress::LocalHost);
    client->SetTls(TlsTerms{"localhost"});
    client->Connect("127.0.0.1", plain.serverPort());
    ASSERT_TRUE(RunUntil([&] { return failure != 0 && !got.isEmpty(); }));
    EXPECT_EQ(words.find("localhost doesn't answer in TLS 1.2 or newer ("), 0U) << words;
    EXPECT_EQ(got.left(1), "\x16") << "the handshake's record";
    EXPECT_TRUE(got.contains(QByteArray("\0\x2B\0\5\4\3\4\3\3", 9))) << "versions 1.3 and 1.2 alone";
}

TEST_F(Tls, HoldsTheMarkAndSendsWhatIsQueuedBeforeItCloses) {
    service.setSslConfiguration(known.Issue("DNS:localhost"));
    ASSERT_TRUE(Reaches({"localhost"}));
    heard.clear();
    client->SetLowWaterMark(6);
    for (const char* piece : {"ab", "cd", "e"}) peer->write(piece), peer->flush(), RunPending();
    EXPECT_EQ(heard, "");
    peer->write("f");
    ASSERT_TRUE(RunUntil([this] { return heard == "abcdef"; }));
    const QByteArray much(3'000'000, 'q');
    served.clear();
    client->Send(much.toStdString());
    peer->write("too late");
    client->Close();
    ASSERT_TRUE(RunUntil([this] { return peerGone; }));
    EXPECT_EQ(served, much);
    EXPECT_EQ(heard + words, "abcdef");

    ASSERT_TRUE(Reaches({"localhost"}));
    heard.clear();
    client->SetLowWaterMark(100);
    peer->write("last words");
    peer->disconnectFromHost();
    ASSERT_TRUE(RunUntil([this] { return failure != 0; }));
    EXPECT_EQ(heard, "last words");
    EXPECT_EQ(client->State(), SocketState::Closed);
}

TEST_F(Tls, ReachesAnIPv6AddressWithAndWithoutBrackets) {
    service.close();
    if (!service.listen(QHostAddress::LocalHostIPv6)) GTEST_SKIP() << "no IPv6 on this machine";
    service.setSslConfiguration(known.Issue("IP:::1"));
    for (const char* host : {"::1", "[::1]"}) EXPECT_TRUE(Reaches({"::1"}, host)) << words;
}

} // namespace
} // namespace halyard
