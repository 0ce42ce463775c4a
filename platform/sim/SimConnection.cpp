#include "platform/sim/SimConnection.h"

#include "platform/sim/SimSocket.h"

#include <algorithm>

namespace halyard {

void SimConnection::Attach(SimSocket& socket, int side) {
    pipes[static_cast<std::size_t>(side)].sender = &socket;
    pipes[static_cast<std::size_t>(1 - side)].receiver = &socket;
}

void SimConnection::Detach(int side) {
    pipes[static_cast<std::size_t>(side)].sender = nullptr;
    pipes[static_cast<std::size_t>(1 - side)].receiver = nullptr;
}

void SimConnection::Send(int side, std::string_view bytes) {
    if (pipes[static_cast<std::size_t>(side)].Ended() == SimPipe::Ending::Reset)
        return; // no further fault may hide the error that is on its way
    auto& faults = network.faults;
    if (network.Fails(SimNetwork::Operation::Send) || network.random.Chance(faults.drop)) return Reset();
    if (network.random.Chance(faults.halfOpen)) Sever();
    if (network.random.Chance(faults.stall))
        StallUntil(network.clock.Now() + network.random.Between(1, faults.stallMax));
    pipes[static_cast<std::size_t>(side)].Send(bytes);
}

void SimConnection::Reset() {
    severed = false; // the error itself arrives
    for (auto& pipe : pipes) pipe.End(SimPipe::Ending::Reset);
}

void SimConnection::Sever() {
    if (severed) return;
    severed = true;
    network.clock.In(SimSocket::probing, [known = weak_from_this()] {
        const auto self = known.lock();
        if (!self || !self->severed) return;
        for (auto& pipe : self->pipes)
            if (pipe.Ended() == SimPipe::Ending::None) pipe.GiveUp();
    });
}

std::int64_t SimConnection::StalledUntil() const { return std::max(stalledUntil, network.stalledUntil); }

bool SimConnection::Standing() const {
    return std::all_of(pipes.begin(), pipes.end(), [](const SimPipe& pipe) {
        return pipe.sender && pipe.Ended() == SimPipe::Ending::None;
    });
}

} // namespace halyard
