#pragma once

// The rooms of the practice network: who is in, who owns, who is kept out. Data and look-up only; what is
// told to whom stands in RoomTraffic.h. Rooms stay when they are empty, so that ownership and bans outlast a
// reconnection, until their place is needed.

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

class ClientConnection;

struct RoomMember {
    std::string name;
    ClientConnection* connection; ///< null for a person of the script
};

struct Room {
    int exchange = 4;
    int instance = 0;
    std::string name;
    std::string owner; ///< as given; empty until somebody asks for the room's creation
    int maxPeople = 0;
    bool keep = false;                       ///< a script needs it
    std::vector<RoomMember> members;         ///< in order of entering
    std::map<std::string, std::string> bans; ///< normalised name, name as banned

    /// What names the room on the wire: exchange, "-", instance, "-", name.
    std::string Cookie() const;
    /// Names are compared in lower case without blanks. Null when the person is not in.
    const RoomMember* Find(std::string_view who) const;
    bool IsOwner(std::string_view who) const;
    bool IsBanned(std::string_view who) const;
    bool IsFull() const { return members.size() >= static_cast<std::size_t>(maxPeople); }
};

class Rooms {
  public:
    explicit Rooms(std::size_t limit) : limit(limit) {}

    /// Finds the room, or makes it. Null when there is no place for another.
    Room* FindOrCreate(int exchange, int instance, std::string_view name, int maxPeople);
    /// By cookie; case and blanks do not count. Null for an unknown one.
    Room* FindCookie(std::string_view cookie) const;
    /// The first room of that name on any exchange.
    Room* FindName(std::string_view name) const;
    /// In the order of their cookies.
    void EachRoom(const std::function<void(Room&)>& visit) {
        for (const auto& [cookie, room] : rooms) visit(*room);
    }

  private:
    bool MakePlace();

    std::size_t limit;
    std::map<std::string, std::unique_ptr<Room>> rooms; ///< by normalised cookie
};

} // namespace halyard
