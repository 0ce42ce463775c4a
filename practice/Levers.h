#pragma once

// What a test or a demonstration does to the practice network: what its people do, and what an operator of
// the real network could do. Names and rooms as everywhere, in lower case without blanks; what does not exist
// is passed over.

#include "practice/Options.h"
#include "practice/service/RateClasses.h"

#include <functional>
#include <string>

namespace halyard {

class PracticeConnection;
class Socket;
class World;
struct Room;

class PracticeLevers {
  public:
    explicit PracticeLevers(World& world) : world(world) {}

    // People of the script, who have no connection. They come on line when they first do something.
    /// False when the room does not let them in: kept out, in already, or full.
    bool Enter(const std::string& room, const std::string& name);
    void Leave(const std::string& room, const std::string& name);
    /// Nothing is said by someone who is not in.
    void Say(const std::string& room, const std::string& name, const std::string& text);
    void Message(const std::string& from, const std::string& to, const std::string& text);
    void Ban(const std::string& room, const std::string& by, const std::string& target);
    void Unban(const std::string& room, const std::string& by, const std::string& target);

    // Rooms. A room that is not there is made, on exchange 4.
    void SetMaxPeople(const std::string& room, int people);
    void SetOwner(const std::string& room, const std::string& name);
    /// Lets people named "crowd1", "crowd2" and so on enter until the room is full.
    void Fill(const std::string& room);
    void CloseRoom(const std::string& room);

    // Rates of a client in a room: told at once, and in force until cleared the same way.
    void SetRate(const std::string& room, const std::string& name, int classId, RateCode code);

    // The main connection of a client.
    void Pause(const std::string& name);
    void Resume(const std::string& name);
    /// Sends the client to this same port with a new cookie; its rooms stay.
    void Migrate(const std::string& name);
    /// Closes the connection without a word, or with a channel 4 frame.
    void Drop(const std::string& name);
    void SignOff(const std::string& name);
    /// The name has signed on elsewhere: a channel 4 frame that says so in TLVs, or in four bytes without a
    /// length.
    void SignOffElsewhere(const std::string& name, bool inFourBytes);
    /// The same for its connection to a room.
    void DropFromRoom(const std::string& room, const std::string& name);
    void SignOffFromRoom(const std::string& room, const std::string& name);

    /// All connections that the client has by now stand and are silent: what comes on them is passed over,
    /// and nothing is sent.
    void FallSilent(const std::string& name);
    /// Their sockets, for a network that loses what goes over them.
    void EachSocket(const std::string& name, const std::function<void(const Socket&)>& visit);

    // The next request of its kind, by whomever, is refused with this code; 0 takes that back.
    void RefuseNextSignOn(int code);
    void RefuseNextCreation(int word);
    void RefuseNextJoin(int word);

    // The management: how it answers from now on, and where a person's sessions come from.
    void SetManagementMood(ManagementMood mood);
    void SetAddress(const std::string& name, const std::string& address);
    bool IsSuspended(const std::string& name) const;

    /// An orderly stop: each connection ends with a channel 4 frame, and for so many seconds nobody gets in.
    void Stop(int seconds);

    /// The person of a script is on line from now on.
    void BringOnLine(const std::string& name);

  private:
    void WithBos(const std::string& name, const std::function<void(PracticeConnection&)>& act);
    void WithMember(const std::string& room, const std::string& name,
                    const std::function<void(PracticeConnection&)>& act);
    Room* RoomOf(const std::string& name);

    World& world;
};

} // namespace halyard
