#include "platform/sim/SimPlatform.h"

#include "platform/sim/SimHttp.h"
#include "platform/sim/SimServer.h"
#include "platform/sim/SimSocket.h"
#include "platform/sim/SimTimer.h"

namespace halyard {

std::unique_ptr<Socket> SimPlatform::NewSocket() { return std::make_unique<SimSocket>(world.network); }
std::unique_ptr<SocketServer> SimPlatform::NewServer() { return std::make_unique<SimServer>(world.network); }
std::unique_ptr<Timer> SimPlatform::NewTimer() { return std::make_unique<SimTimer>(world.clock, ticks); }
std::unique_ptr<Http> SimPlatform::NewHttp() { return std::make_unique<SimHttp>(world.network, world.clock); }

} // namespace halyard
