// The real HTTP client against bytes on the loopback.

#include "tests/platform_qt/Loop.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

class QtHttpTest : public testing::Test {
  protected:
    QtHttpTest() {
        server->onConnection = [this](std::unique_ptr<Socket> socket) {
            auto* caller = socket.get();
            caller->onData = [this, caller](std::size_t) {
                heard += caller->ReadAll();
                if (heard.find("\r\n\r\n") == std::string::npos) return;
                caller->Send(answer);
                if (!answer.empty()) caller->Close();
            };
            callers.push_back(std::move(socket));
        };
        EXPECT_TRUE(server->Listen("127.0.0.1", 0));
    }
    std::string Ask(HttpRequest request) {
        heard.clear();
        std::string told;
        request.url = "http://127.0.0.1:" + std::to_string(server->Port()) + request.url;
        http->Ask(request, [&](const HttpAnswer& got) {
            told = std::to_string(got.status) + " " + (got.body.size() > 20 ? "long" : got.body);
            problem = got.problem;
            http.reset(); // a handler may
        });
        EXPECT_TRUE(told.empty());
        EXPECT_TRUE(RunUntil([&] { return !told.empty(); }));
        http = platform.NewHttp();
        return told;
    }

    QtPlatform platform;
    std::unique_ptr<SocketServer> server = platform.NewServer();
    std::unique_ptr<Http> http = platform.NewHttp();
    std::vector<std::unique_ptr<Socket>> callers;
    std::string heard, answer, problem;
};

TEST_F(QtHttpTest, SendsWhatItIsToldAndNothingElse) {
    qputenv("http_proxy", "http://127.0.0.1:9");
    answer = "HTTP/1.1 204 No Content\r\n\r\n";
    const HttpRequest request{"PATCH", "/user/a%2F%25%C3%BC/account", {{"X-Key", "secret"}}, "{}"};
    EXPECT_EQ(Ask(request), "204 ");
    EXPECT_TRUE(heard.starts_with("PATCH /user/a%2F%25%C3%BC/account HTTP/1.1\r\n")) << heard;
    EXPECT_NE(heard.find("X-Key: secret\r\n"), std::string::npos);
    EXPECT_EQ(heard.find("Cookie"), std::string::npos);
    EXPECT_TRUE(heard.ends_with("\r\n\r\n{}")) << heard;
    qunsetenv("http_proxy");
}

TEST_F(QtHttpTest, TakesAnswersAsTheyAreAndBoundsThem) {
    const std::tuple<std::string, std::string, bool> cases[] = {
        {"HTTP/1.1 404 No\r\nContent-Length: 4\r\n\r\ngone", "404 gone", false},
        {"HTTP/1.1 500 No\r\nContent-Length: 0\r\n\r\n", "500 ", false},
        {"HTTP/1.1 302 Go\r\nLocation: /elsewhere\r\nContent-Length: 0\r\n\r\n", "302 ", false},
        {"HTTP/1.1 401 Who\r\nWWW-Authenticate: Basic realm=\"x\"\r\nContent-Length: 0\r\n\r\n", "401 ",
         false},
        {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nhi\r\n0\r\n\r\n", "200 hi", false},
        {"HTTP/1.1 200 OK\r\nContent-Length: 70000\r\n\r\n" + std::string(70000, 'x'), "0 ", true},
        {"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhi", "0 ", true},
        {"no HTTP at all\r\n\r\n", "0 ", true}};
    for (const auto& [bytes, told, failed] : cases) {
        answer = bytes;
        EXPECT_EQ(Ask({.url = "/", .headers = {}, .body = {}}), told) << bytes.substr(0, 60);
        EXPECT_EQ(!problem.empty(), failed) << problem;
    }
    answer.clear();
    EXPECT_EQ(Ask({.url = "/", .headers = {}, .body = {}, .timeout = 50}), "0 ");
    EXPECT_EQ(Ask({.url = "/", .headers = {{"X", "a\r\nY: b"}}, .body = {}}), "0 ");
    EXPECT_EQ(problem + heard, "a header can't be sent");

    bool ran = false;
    http->Ask({.url = "http://127.0.0.1:" + std::to_string(server->Port()) + "/", .headers = {}, .body = {}},
              [&](const HttpAnswer&) { ran = true; });
    ASSERT_TRUE(RunUntil([&] { return !heard.empty(); }));
    http.reset();
    RunPending();
    EXPECT_FALSE(ran);
}

} // namespace
} // namespace halyard
