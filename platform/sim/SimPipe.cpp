#include "platform/sim/SimPipe.h"

#include "platform/sim/SimConnection.h"
#include "platform/sim/SimSocket.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {
constexpr std::size_t trimFrom = 4096;
constexpr int smallCut = 16;
} // namespace

void SimPipe::Send(std::string_view sent) {
    if (ending != Ending::None || sent.empty()) return;
    auto& network = connection.Network();
    lastDue = std::max(lastDue, network.clock.Now() + network.Latency());
    segments.push_back({lastDue, sent.size()});
    bytes.append(sent);
    if (!network.clock.Waiting(giveUp)) Watch();
    if (!network.clock.Waiting(pump)) Schedule();
}

void SimPipe::End(Ending how) {
    // A reset may come again: the first one may have been kept from its receiver by a severed line.
    if (how != Ending::Reset && ending != Ending::None) return;
    ending = how;
    auto& network = connection.Network();
    if (how == Ending::Reset) {
        segments.clear();
        bytes.clear();
        delivered = 0;
        network.clock.Cancel(giveUp);
        endDue = network.clock.Now();
    } else {
        endDue = std::max(lastDue, network.clock.Now() + network.Latency());
    }
    Schedule();
}

std::int64_t SimPipe::NextDue() {
    if (ending == Ending::Reset) return endDue;
    auto due = segments.empty() ? endDue : segments.front().due;
    return std::max({due, heldUntil, connection.StalledUntil()});
}

void SimPipe::Schedule() {
    auto& clock = connection.Network().clock;
    clock.Cancel(pump);
    if (segments.empty() && ending == Ending::None) return;
    pump = clock.At(NextDue(), [this, keep = connection.shared_from_this()] { Pump(); });
}

void SimPipe::Pump() {
    if (connection.Severed()) return;
    if (connection.Network().clock.Now() < NextDue()) return Schedule();
    if (segments.empty()) {
        if (auto to = std::exchange(receiver, nullptr)) to->Ended(ending == Ending::Reset);
        return;
    }
    auto taken = TakeDue();
    Watch();
    Schedule();
    if (receiver) receiver->Arrive(taken);
}

/// What has arrived by now; with cut streams some of it, the rest waits.
std::string SimPipe::TakeDue() {
    auto& network = connection.Network();
    auto now = network.clock.Now();
    std::size_t count = 0;
    for (const auto& segment : segments) {
        if (segment.due > now) break;
        count += segment.length;
    }
    if (network.faults.cutBytes && count > 1) {
        auto all = static_cast<std::int64_t>(count);
        auto most = network.random.Chance(0.5) ? std::min<std::int64_t>(all, smallCut) : all;
        count = static_cast<std::size_t>(network.random.Between(1, most));
        if (network.random.Chance(0.5)) heldUntil = now + network.Latency();
    }
    return Take(count);
}

std::string SimPipe::Take(std::size_t count) {
    auto taken = bytes.substr(delivered, count);
    delivered += count;
    while (!segments.empty() && count >= segments.front().length) {
        count -= segments.front().length;
        segments.pop_front();
    }
    if (count > 0) segments.front().length -= count;
    if (delivered < bytes.size() && (delivered < trimFrom || delivered < bytes.size() / 2)) return taken;
    bytes.erase(0, delivered);
    delivered = 0;
    return taken;
}

/// Gives what is under way a minute to arrive, from every step forward.
void SimPipe::Watch() {
    auto& clock = connection.Network().clock;
    clock.Cancel(giveUp);
    if (UnderWay() > 0)
        giveUp = clock.In(SimSocket::silence, [this, keep = connection.shared_from_this()] { GiveUp(); });
}

void SimPipe::GiveUp() {
    End(Ending::Reset);
    if (sender) sender->TimedOut();
}

} // namespace halyard
