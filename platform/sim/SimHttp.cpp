#include "platform/sim/SimHttp.h"

#include "platform/HttpReader.h"
#include "platform/sim/SimSocket.h"

#include <utility>

namespace halyard {

namespace {

std::string BytesOf(const HttpRequest& request, const HttpPlace& place) {
    auto bytes = request.method + " " + place.target + " HTTP/1.1\r\nHost: " + place.host + ":" +
                 std::to_string(place.port) + "\r\nConnection: close\r\n";
    for (const auto& [name, value] : request.headers) bytes += name + ": " + value + "\r\n";
    return bytes + "Content-Length: " + std::to_string(request.body.size()) + "\r\n\r\n" + request.body;
}

} // namespace

struct SimHttp::Exchange {
    Exchange(SimNetwork& network, SimClock& clock, Done done)
        : socket(network), clock(clock), done(std::move(done)) {}
    ~Exchange() { clock.Cancel(deadline); }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    SimSocket socket;
    SimClock& clock;
    SimClock::Ticket deadline;
    HttpReader reader{HttpReader::Kind::Answer};
    Done done;
};

SimHttp::SimHttp(SimNetwork& network, SimClock& clock) : network(network), clock(clock) {}

SimHttp::~SimHttp() = default;

void SimHttp::Ask(const HttpRequest& request, Done done) {
    auto& exchange = *exchanges.emplace_back(std::make_unique<Exchange>(network, clock, std::move(done)));
    auto problem = ProblemOf(request);
    if (problem.empty() && PlaceOf(request.url)->secure) problem = "the simulated network has no https";
    if (problem.empty()) return Start(exchange, request);
    exchange.deadline = clock.In(0, [this, &exchange, problem] { Finish(exchange, {0, {}, problem}); });
}

void SimHttp::Start(Exchange& exchange, const HttpRequest& request) {
    const auto place = *PlaceOf(request.url);
    exchange.deadline = clock.In(request.timeout, [this, &exchange] {
        Finish(exchange, {0, {}, "no answer in time"});
    });
    exchange.socket.onConnected = [&exchange, bytes = BytesOf(request, place)] {
        exchange.socket.Send(bytes);
    };
    exchange.socket.onData = [this, &exchange](std::size_t) {
        exchange.reader.Add(exchange.socket.ReadAll());
        Heard(exchange);
    };
    exchange.socket.onError = [this, &exchange](int, const std::string& description) {
        if (exchange.reader.End() == HttpReader::State::Whole) return Heard(exchange);
        Finish(exchange, {0, {}, description});
    };
    exchange.socket.Connect(place.host, place.port);
}

void SimHttp::Heard(Exchange& exchange) {
    const auto& reader = exchange.reader;
    if (reader.Now() == HttpReader::State::Whole)
        return Finish(exchange, {reader.Status(), reader.Body(), {}});
    if (reader.Now() == HttpReader::State::Broken) Finish(exchange, {0, {}, "the answer makes no sense"});
}

/// The exchange goes first: the handler may destroy this client.
void SimHttp::Finish(Exchange& exchange, const HttpAnswer& answer) {
    const auto done = std::move(exchange.done);
    const auto told = answer;
    exchanges.remove_if([&](const auto& each) { return each.get() == &exchange; });
    if (done) done(told);
}

} // namespace halyard
