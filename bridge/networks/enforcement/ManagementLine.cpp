#include "bridge/networks/enforcement/ManagementLine.h"

#include "bridge/networks/enforcement/ManagementWords.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace halyard {

namespace {

/// What another try may better: silence, a fault of the server's own, too many calls.
bool IsPassing(const HttpAnswer& answer) {
    return answer.status == 0 || answer.status >= 500 || answer.status == 429;
}

} // namespace

ManagementLine::ManagementLine(Platform& platform)
    : platform(platform), timer(platform.NewTimer()), nextTurn(platform.Milliseconds()) {
    timer->onTick = [this] { Turn(); };
}

bool ManagementLine::SetPlace(const std::string& address, const std::string& header) {
    Drop("the management is another one by now");
    const auto place = ManagementBase(address);
    const auto pair = ManagementHeader(header);
    const bool good = place && (header.empty() || pair);
    base = good ? *place : std::string();
    headers.assign({{"Content-Type", "application/json"}});
    if (pair) headers.push_back(*pair);
    return good;
}

bool ManagementLine::Add(ManagementCall call) {
    auto& queue = QueueOf(call);
    if (base.empty() || queue.size() >= Most) return false;
    queue.push_back(std::move(call));
    Wake();
    return true;
}

void ManagementLine::Drop(const std::string& why) {
    http.reset();
    timer->SetEnabled(false);
    std::vector<ManagementCall> dropped;
    for (auto* calls : {&acts, &looks}) {
        std::move(calls->begin(), calls->end(), std::back_inserter(dropped));
        calls->clear();
    }
    std::move(underWay.begin(), underWay.end(), std::back_inserter(dropped));
    underWay.clear();
    for (const auto& call : dropped)
        if (call.done) call.done({0, {}, why});
}

/// The next turn comes a pause after the last one, and never within the call that asks for it.
void ManagementLine::Wake() {
    if (timer->Enabled()) return;
    const auto left = nextTurn - platform.Milliseconds();
    timer->SetInterval(static_cast<int>(std::clamp<std::int64_t>(left, 1, Pause)));
    timer->SetEnabled(true);
}

void ManagementLine::Turn() {
    timer->SetEnabled(false);
    for (auto* calls : {&acts, &looks}) {
        while (!calls->empty()) {
            auto call = std::move(calls->front());
            calls->pop_front();
            if (call.wanted && !call.wanted()) continue;
            nextTurn = platform.Milliseconds() + Pause;
            Wake();
            return Send(std::move(call));
        }
    }
}

void ManagementLine::Send(ManagementCall call) {
    if (!http) http = platform.NewHttp();
    ++call.tries;
    const auto at = underWay.insert(underWay.end(), std::move(call));
    const HttpRequest request{at->method, base + at->path, headers, at->body, Patience};
    http->Ask(request, [this, at](const HttpAnswer& answer) { Answered(at, answer); });
}

void ManagementLine::Answered(std::list<ManagementCall>::iterator at, const HttpAnswer& answer) {
    auto call = std::move(*at);
    underWay.erase(at);
    if (IsPassing(answer) && call.tries < Tries) {
        QueueOf(call).push_front(std::move(call));
        return Wake();
    }
    if (call.done) call.done(answer);
}

} // namespace halyard
