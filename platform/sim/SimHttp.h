#pragma once

// A client of HTTP/1.1 on the simulated network: one connection a request, and no https. Clock and network
// must outlive it.

#include "platform/Http.h"
#include "platform/sim/SimClock.h"

#include <list>
#include <memory>

namespace halyard {

class SimNetwork;

class SimHttp : public Http {
  public:
    SimHttp(SimNetwork& network, SimClock& clock);
    ~SimHttp() override;
    SimHttp(const SimHttp&) = delete;
    SimHttp& operator=(const SimHttp&) = delete;

    void Ask(const HttpRequest& request, Done done) override;

  private:
    struct Exchange;

    void Start(Exchange& exchange, const HttpRequest& request);
    void Heard(Exchange& exchange);
    void Finish(Exchange& exchange, const HttpAnswer& answer);

    SimNetwork& network;
    SimClock& clock;
    std::list<std::unique_ptr<Exchange>> exchanges;
};

} // namespace halyard
