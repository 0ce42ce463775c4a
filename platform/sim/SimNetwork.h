#pragma once

// The network of a simulated world: which ports are listened on, which connections stand, and what goes
// wrong. Every host name leads to the one machine there is. Owned by SimWorld, and must outlive all sockets.

#include "platform/Tls.h"
#include "platform/sim/SimClock.h"
#include "platform/sim/SimFaults.h"
#include "platform/sim/SimRandom.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class SimConnection;
class SimServer;
class SimSocket;
class Socket;

/// What a simulated server presents over TLS.
struct SimCertificate {
    std::string name;             ///< whom it is made out to
    bool expired = false;         ///< its day is past
    bool trusted = true;          ///< its issuer is known to every machine
    std::string fingerprint = {}; ///< what a pin is compared with
};

class SimNetwork {
  public:
    enum class Operation { Connect, Send, Listen };
    /// How a connect fares.
    enum class Fate { Accepted, Refused, Unanswered };

    SimNetwork(SimClock& clock, SimRandom& random) : clock(clock), random(random) {}
    SimNetwork(const SimNetwork&) = delete;
    SimNetwork& operator=(const SimNetwork&) = delete;

    SimFaults faults;
    /// The address of the one machine that there is. While it isn't a loopback address, those lead nowhere.
    std::string address = "127.0.0.1";

    /// The ports that speak TLS, and nothing else; the others speak plain.
    std::map<std::int32_t, SimCertificate> certificates;
    /// Hears of every Connect and its terms, null for a plain one.
    std::function<void(const std::string& host, std::int32_t port, const TlsTerms* tls)> onConnect;

    /// Resets every connection: both sides see an error, what was under way is lost.
    void DropAll();
    /// The same for the connection of one socket. Sockets of other kinds, or without a connection, pass.
    void DropConnection(const Socket& socket);
    /// The peer of this socket is gone without a word: nothing arrives any more on either side. A side that
    /// sent something sees an error after 60 seconds, one that didn't after 75.
    void HalfOpen(const Socket& socket);
    /// The next `count` connects are refused, or never answered; those fail after 60 seconds.
    void RefuseConnects(int count) { refuseNext = count; }
    void SilentConnects(int count) { silentNext = count; }
    /// Nothing arrives for so many milliseconds from now, and no connect is answered.
    void StallFor(int milliseconds) { stalledUntil = clock.Now() + milliseconds; }
    /// The same for one connection.
    void StallConnection(const Socket& socket, int milliseconds);
    /// Makes the `nth` such operation from now fail, 1 being the next; 0 takes the order back. A failing send
    /// resets its connection.
    void FailNth(Operation operation, int nth) { failing[Index(operation)] = nth; }
    /// How many such operations there have been.
    std::uint64_t Operations(Operation operation) const { return operations[Index(operation)]; }

    /// How many connections stand.
    std::size_t ConnectionCount() const;

  private:
    friend class SimConnection;
    friend class SimPipe;
    friend class SimServer;
    friend class SimSocket;

    static std::size_t Index(Operation operation) { return static_cast<std::size_t>(operation); }
    /// Counts an operation; true when it is the one to fail.
    bool Fails(Operation operation);
    Fate NextConnect();
    /// What keeps a connection on these terms from coming about on a port that is listened on.
    std::vector<TlsFault> FaultsOf(const TlsTerms& terms, std::int32_t port) const;
    bool LeadsHere(const std::string& host) const {
        return address == "127.0.0.1" || (host != "127.0.0.1" && host != "0.0.0.0");
    }
    std::int64_t Latency() { return random.Between(faults.latencyMin, faults.latencyMax); }
    /// The port taken, 0 when that is not possible.
    std::int32_t Listen(SimServer& server, std::int32_t port);
    void Unlisten(std::int32_t port) { servers.erase(port); }
    /// Connects `client` with whoever listens on the port: both sides are connected when the listener's
    /// handler runs. False when nobody listens.
    bool Accept(SimSocket& client, std::int32_t port);

    SimClock& clock;
    SimRandom& random;
    std::map<std::int32_t, SimServer*> servers;
    std::vector<std::weak_ptr<SimConnection>> connections; // in the order in which they came
    std::int64_t stalledUntil = 0;
    int refuseNext = 0;
    int silentNext = 0;
    int failing[3] = {};
    std::uint64_t operations[3] = {};
};

} // namespace halyard
