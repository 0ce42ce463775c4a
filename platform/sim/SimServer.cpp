#include "platform/sim/SimServer.h"

namespace halyard {

bool SimServer::Listen(const std::string& /*address*/, std::int32_t port) {
    Stop();
    listening = network.Listen(*this, port);
    return listening != 0;
}

void SimServer::Stop() {
    if (listening != 0) network.Unlisten(listening);
    listening = 0;
}

} // namespace halyard
