#pragma once

// What the subjects of the practice network share: the connections, the people, the rooms, the cookies and
// the journal. One world a network; the subjects are functions on it.

#include "platform/Platform.h"
#include "practice/Connection.h"
#include "practice/Journal.h"
#include "practice/Options.h"
#include "practice/people/People.h"
#include "practice/service/Rooms.h"

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace halyard {

/// Refusals that a test asked for. Each is used once; 0 is none.
struct Refusals {
    int signOn = 0;   ///< code of TLV 0008 in the next sign-on's answer
    int creation = 0; ///< word of TLV 0008 to the next room creation
    int join = 0;     ///< word of TLV 0008 to the next service request for a room
};

class World {
  public:
    World(Platform& platform, PracticeOptions options);

    Platform& platform;
    PracticeOptions options;
    Rooms rooms;
    People people;
    Tickets tickets;
    Refusals refusals;
    PracticeListener listener;
    // By normalised name.
    std::set<std::string> known;     ///< who has ever signed on, at most 10,000
    std::set<std::string> suspended; ///< who may not
    std::map<std::string, std::string>
        addresses; ///< that sessions are told to come from; 127.0.0.1 otherwise
    ManagementMood mood = ManagementMood::Works;
    /// A client, not a person of the script, has entered the room.
    std::function<void(Room&)> onClientEntered;
    std::int32_t port = 0;        ///< it listens on
    std::int64_t closedUntil = 0; ///< ms; nobody gets in before

    std::int64_t Now() { return platform.Milliseconds(); }
    void Note(const std::string& room, const std::string& who, const std::string& what);
    /// Host, ":" and port for redirects.
    std::string Address() const { return options.address + ":" + std::to_string(port); }
    /// The same as redirects tell it.
    std::string RedirectAddress() const {
        return options.Has(Departure::ReachableRedirects) ? "0.0.0.0:" + std::to_string(port) : Address();
    }
    /// Gives out a cookie for a ticket that has none yet.
    std::string NewCookie(Ticket ticket);
    /// The user information of a person, on line or not.
    std::string InfoOf(const std::string& name);

    /// Takes over a new client.
    void Accept(std::unique_ptr<Socket> socket);
    /// A connection has ended, or is to be forgotten after the network closed it: its person leaves room or
    /// network.
    void Forget(ClientConnection& connection);
    /// Ends a connection with a channel 4 frame and forgets it.
    void Dismiss(ClientConnection& connection, std::string_view body = {});
    /// Runs for every connection that is open at its start.
    void EachConnection(const std::function<void(ClientConnection&)>& visit);
    std::size_t ConnectionCount() const { return connections.size(); }
    /// Once a second: rates that have recovered, connections that never said who they are.
    void Heartbeat();

  private:
    std::list<std::unique_ptr<ClientConnection>> connections;
    /// Ended ones, which may still be running a handler; emptied when the next client or second comes.
    std::list<std::unique_ptr<ClientConnection>> ended;
};

/// Sends a person's rate notice (0001 000A) on a connection.
void SendRateNotice(World& world, ClientConnection& connection, int classId, RateCode code);

} // namespace halyard
