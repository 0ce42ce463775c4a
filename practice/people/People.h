#pragma once

// Who is on line, and the cookies by which one connection vouches for the next.

#include "practice/Connection.h"

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

struct Person {
    std::string name;                ///< as given at sign-on
    ClientConnection* bos = nullptr; ///< null for a person of the script, and while a migration is under way
    bool scripted = false;
    std::int64_t since = 0; ///< ms
    std::string encoding;   ///< of the profile
    std::string profile;
    std::string capabilities;
};

/// Everyone on line, by normalised name.
class People {
  public:
    /// Null when nobody of that name is on line.
    Person* Find(std::string_view name);
    /// The person of that name, new when needed.
    Person& Enter(std::string_view name, std::int64_t now);
    void Remove(std::string_view name);

  private:
    std::map<std::string, Person> people;
};

/// What a cookie stands for.
struct Ticket {
    std::string cookie = {};
    std::string name = {};
    Service service = Service::None;
    std::string room = {};  ///< the cookie of the room, for a chat connection
    bool migration = false; ///< the person is on line already and stays so
};

/// Cookies that were given out and not yet presented. Each is good for one connection; the oldest lapse.
class Tickets {
  public:
    void Add(Ticket ticket);
    /// Nothing for a cookie that was never given out, or was used before.
    std::optional<Ticket> Take(std::string_view cookie);

  private:
    static constexpr std::size_t most = 1000;
    std::deque<Ticket> tickets;
};

/// The user information that stands for a person in joins, messages and answers: the name, a warning level of
/// zero, and the TLVs 0001 (class), 0003 (moment of sign-on, seconds since 1970) and 000F (seconds on line).
std::string UserInfo(const std::string& name, const Person* person, std::int64_t startedAt, std::int64_t now);

} // namespace halyard
