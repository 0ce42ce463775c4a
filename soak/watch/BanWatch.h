#pragma once

// Follows every ban and unban request from its sending to its reply, and knows for which names the bot's
// eject lists may for good reason differ from the service's: the reply was lost, or a list file was loaded.

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace halyard {

class BanWatch {
  public:
    struct Request {
        std::string room;
        std::string user;
        std::uint64_t stream;
        std::int64_t since; ///< ms
    };

    void Sent(int id, Request request);
    /// True when a request of that id was waiting for this reply on this stream.
    bool Replied(int id, std::uint64_t stream);
    /// Replies that are on their way on this stream will not come. One that came in this very event may stand
    /// behind the word that made the bot leave the room, and is then acted on by nobody.
    void Ended(std::uint64_t stream);
    /// The event is over: the replies that came in it have been acted on.
    void EventOver() { answered.clear(); }
    /// Gives up requests that a rate limit of the service has swallowed.
    void GiveUpBefore(std::int64_t moment);

    bool Waiting(const std::string& room) const;
    std::size_t Waiting() const { return requests.size(); }
    /// From now on nothing is known of this name in this room, until a request for it is answered.
    void Excuse(const std::string& room, const std::string& user) { excused[room].insert(user); }
    bool Excused(const std::string& room, const std::string& user) const;

  private:
    std::map<int, Request> requests; ///< by request id
    std::vector<Request> answered;   ///< in this event
    std::map<std::string, std::set<std::string>> excused;
};

} // namespace halyard
