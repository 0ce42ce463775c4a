// HTTP as text: where URLs lead, what is refused, messages put together from pieces, and the simulated
// client.

#include "platform/Http.h"

#include "base/Text.h"
#include "platform/Hmac.h"
#include "platform/HttpReader.h"
#include "platform/sim/SimPlatform.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

TEST(HttpText, UrlsLeadWhereTheySay) {
    const std::pair<const char*, const char*> cases[] = {
        {"http://127.0.0.1:8080/session/bob", "0 127.0.0.1 8080 /session/bob"},
        {"https://aim.example", "1 aim.example 443 /"},
        {"http://[::1]/a%2Fb?x=1", "0 ::1 80 /a%2Fb?x=1"},
        {"http://h?x", "0 h 80 /?x"}};
    for (const auto& [url, leads] : cases) {
        const auto place = PlaceOf(url);
        ASSERT_TRUE(place) << url;
        EXPECT_EQ(std::to_string(place->secure) + " " + place->host + " " + std::to_string(place->port) +
                      " " + place->target,
                  leads);
    }
    for (const auto* none : {"ftp://h/", "http://", "http://h:0/", "http://h:65536/", "http://h:80x/",
                             "http://h:/", "http://user@h/", "http://[::1/", "http://h/a b", "http://h/#x",
                             "http://h/\r\nX: y", "http://h\r\n/"})
        EXPECT_FALSE(PlaceOf(none)) << none;
    for (const std::string header :
         {"X: a\r\nY: b", "X: a\n", "X\r\nY: a", "X Y: a", ": a", "X: a\x01", "content-LENGTH: 5"}) {
        const auto parts = Split(header, ": ", 2);
        EXPECT_FALSE(ProblemOf({.url = "http://h/", .headers = {{parts[0], parts[1]}}, .body = {}}).empty());
    }
    EXPECT_EQ(PercentEncoded("a/..%\n\xC3\xA9"), "a%2F..%25%0A%C3%A9");
    EXPECT_EQ(HmacSha256("key", "The quick brown fox jumps over the lazy dog").substr(0, 4),
              "\xF7\xBC\x83\xF4");
}

TEST(HttpText, ReadsMessagesInPiecesAndWithinBounds) {
    using Kind = HttpReader::Kind;
    const std::string ok = "HTTP/1.1 200 OK\r\n";
    const std::tuple<Kind, std::string, std::string> cases[] = {
        // what is found: status and body
        {Kind::Answer, ok + "content-length: 3\r\n\r\nabcdef", "200 abc"},
        {Kind::Answer, "HTTP/1.1 204 None\r\n\r\n", "204 "},
        {Kind::Answer, "HTTP/1.0 404 No\r\n\r\nto the end", "404 to the end"},
        {Kind::Request, "DELETE /x HTTP/1.1\r\nHost: h\r\n\r\n", "0 "},
        {Kind::Request, "PATCH /x HTTP/1.1\r\nContent-Length: 2\r\n\r\n{}", "0 {}"}};
    const auto read = [](Kind kind, const std::string& bytes) {
        HttpReader reader(kind);
        for (std::size_t at = 0; at < bytes.size(); at += 7) reader.Add(bytes.substr(at, 7));
        const bool whole = reader.End() == HttpReader::State::Whole;
        return whole ? std::to_string(reader.Status()) + " " + reader.Body() : "broken";
    };
    for (const auto& [kind, bytes, found] : cases) EXPECT_EQ(read(kind, bytes), found) << bytes;
    for (const auto& bytes :
         {ok + "Content-Length: 4\r\n\r\nabc", ok + "Content-Length: -1\r\n\r\n",
          ok + "Content-Length: 65537\r\n\r\n", ok + "Transfer-Encoding: chunked\r\n\r\n0\r\n\r\n",
          std::string("HTTP/1.1 100 Continue\r\n\r\n"), std::string("garbage\r\n\r\n"),
          ok + "no colon\r\n\r\n", std::string(20000, 'x'), ok + "\r\n" + std::string(65537, 'x')})
        EXPECT_EQ(read(Kind::Answer, bytes), "broken") << bytes.substr(0, 60);
}

TEST(SimHttp, AsksFailsAndFallsSilentWithItsOwner) {
    SimWorld world;
    world.network.faults.cutBytes = true;
    SimPlatform machine(world);
    auto server = machine.NewServer();
    std::vector<std::unique_ptr<Socket>> callers;
    std::string heard, answer = "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nhi", told;
    server->onConnection = [&](std::unique_ptr<Socket> socket) {
        auto* caller = socket.get();
        caller->onData = [&, caller](std::size_t) {
            heard += caller->ReadAll();
            if (heard.ends_with("\r\n\r\n")) caller->Send(answer);
        };
        callers.push_back(std::move(socket));
    };
    ASSERT_TRUE(server->Listen("127.0.0.1", 8080));
    auto http = machine.NewHttp();
    const auto ask = [&](const std::string& url) {
        told.clear();
        http->Ask({.url = url, .headers = {{"X", "y"}}, .body = {}}, [&](const HttpAnswer& got) {
            told = std::to_string(got.status) + got.body + got.problem;
            http.reset();
        });
        EXPECT_EQ(told, "") << "no handler runs within the call";
        world.RunFor(6000);
        http = machine.NewHttp();
        return told;
    };
    EXPECT_EQ(ask("http://h:8080/a"), "200hi");
    EXPECT_EQ(heard,
              "GET /a HTTP/1.1\r\nHost: h:8080\r\nConnection: close\r\nX: y\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(ask("http://h:8081/"), "0Connection refused");
    EXPECT_EQ(ask("nowhere"), "0the address is no URL of HTTP");
    answer = "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhi";
    EXPECT_EQ(ask("http://h:8080/"), "0no answer in time");
    http->Ask({.url = "http://h:8080/", .headers = {}, .body = {}},
              [&](const HttpAnswer&) { ADD_FAILURE(); });
    world.RunFor(1);
    http.reset();
    world.RunFor(6000);
}

} // namespace
} // namespace halyard
