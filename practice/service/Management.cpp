#include "practice/service/Management.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "practice/service/RoomTraffic.h"
#include "practice/service/Services.h"

#include <charconv>
#include <optional>
#include <utility>
#include <vector>

namespace halyard {

namespace {

constexpr std::size_t mostCallers = 100;
constexpr std::int64_t patience = 30000; // ms

std::string Reply(const std::string& line, const std::string& body = {}) {
    return "HTTP/1.1 " + line +
           "\r\nConnection: close\r\nContent-Type: application/json\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

/// The bytes that a segment of a path stands for; nothing for a broken one.
std::optional<std::string> Decoded(std::string_view segment) {
    std::string bytes;
    for (std::size_t at = 0; at < segment.size(); ++at) {
        if (segment[at] != '%') {
            bytes += segment[at];
            continue;
        }
        unsigned value = 0;
        const auto digits = segment.substr(at + 1, 2);
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
        if (digits.size() < 2 || result.ptr != digits.data() + 2) return std::nullopt;
        bytes += static_cast<char>(value);
        at += 2;
    }
    return bytes;
}

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : ToUtf8(text)) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += static_cast<unsigned char>(c) < 32 ? '?' : c;
    }
    return quoted + '"';
}

} // namespace

struct Management::Caller {
    std::unique_ptr<Socket> socket;
    std::int64_t since = 0;
    HttpReader reader{HttpReader::Kind::Request};
    bool over = false;
};

Management::Management(World& world) : world(world), server(world.platform.NewServer()) {}

Management::~Management() = default;

bool Management::Start(std::int32_t port) {
    server->onConnection = [this](std::unique_ptr<Socket> socket) { Accept(std::move(socket)); };
    return server->Listen("127.0.0.1", port);
}

void Management::Heartbeat() {
    std::erase_if(callers, [now = world.Now()](const auto& caller) {
        return caller->over || now - caller->since >= patience;
    });
}

void Management::Accept(std::unique_ptr<Socket> socket) {
    Heartbeat();
    if (callers.size() >= mostCallers) return socket->Close();
    auto& caller = *callers.emplace_back(std::make_unique<Caller>());
    caller.socket = std::move(socket);
    caller.since = world.Now();
    caller.socket->onData = [this, &caller](std::size_t) {
        caller.reader.Add(caller.socket->ReadAll());
        Heard(caller);
    };
    caller.socket->onError = [&caller](int, const std::string&) { caller.over = true; };
}

void Management::Heard(Caller& caller) {
    if (caller.over || caller.reader.Now() == HttpReader::State::Partial) return;
    if (world.mood == ManagementMood::Silent) return;
    caller.over = true;
    if (world.mood == ManagementMood::Garbage)
        caller.socket->Send("\x01\x02 no HTTP\r\n\r\n");
    else if (caller.reader.Now() == HttpReader::State::Broken)
        caller.socket->Send(Reply("400 Bad Request"));
    else if (world.mood == ManagementMood::Failing)
        caller.socket->Send(Reply("500 Internal Server Error"));
    else
        caller.socket->Send(AnswerTo(caller.reader.FirstLine(), caller.reader.Body()));
    caller.socket->Close();
}

std::string Management::AnswerTo(const std::string& firstLine, const std::string& body) {
    const auto words = Split(firstLine, " ");
    if (words.size() != 3) return Reply("400 Bad Request");
    const auto segments = Split(words[1], "/");
    const auto name = segments.size() > 2 ? Decoded(segments[2]) : std::nullopt;
    if (!name) return Reply("404 Not Found");
    world.Note("", "the management", words[0] + " " + words[1]);
    const auto inside = FromUtf8(*name);
    if (segments[1] == "session" && segments.size() == 3) return Session(words[0], inside);
    if (segments[1] == "user" && segments.size() == 4 && segments[3] == "account")
        return words[0] == "PATCH" ? Account(inside, body) : Reply("405 Method Not Allowed");
    return Reply("404 Not Found");
}

std::string Management::Session(const std::string& method, const std::string& name) {
    const auto* person = world.people.Find(name);
    if (method != "GET" && method != "DELETE") return Reply("405 Method Not Allowed");
    if (!person) return Reply("404 Not Found", R"({"message":"session not found"})");
    if (method == "GET") {
        const auto place = world.addresses.find(NormalizeName(name));
        return Reply("200 OK", R"({"count":1,"sessions":[{"id":)" + Quoted(NormalizeName(name)) +
                                   R"(,"screen_name":)" + Quoted(person->name) +
                                   R"(,"online_seconds":0,"remote_addr":)" +
                                   Quoted(place == world.addresses.end() ? "127.0.0.1" : place->second) +
                                   R"(,"remote_port":1234}]})");
    }
    if (person->scripted)
        SignOffScripted(world, name);
    else
        DismissOthers(world, name, nullptr);
    return Reply("204 No Content");
}

std::string Management::Account(const std::string& name, const std::string& body) {
    if (!world.known.contains(NormalizeName(name)) && !world.people.Find(name)) return Reply("404 Not Found");
    const auto bare = NormalizeName(body);
    if (bare == R"({"suspended_status":"suspended"})")
        world.suspended.insert(NormalizeName(name));
    else if (bare == R"({"suspended_status":null})")
        world.suspended.erase(NormalizeName(name));
    else
        return Reply("400 Bad Request", R"({"message":"malformed input"})");
    return Reply("204 No Content");
}

} // namespace halyard
