#pragma once

// The calls to a server's management, one a second, oldest first; those that act go before those that only
// look. A call that finds no answer is tried three times. Enforcement owns the one.

#include "platform/Http.h"
#include "platform/Platform.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <string>

namespace halyard {

struct ManagementCall {
    enum class Rank { Acts, Looks };
    Rank rank = Rank::Acts;
    std::string method = {};
    std::string path = {};
    std::string body = {};
    /// Asked when the call's turn comes, each try; false drops it without an answer. Null is yes.
    std::function<bool()> wanted = {};
    /// Runs once, with the last try's answer.
    std::function<void(const HttpAnswer&)> done = {};
    int tries = 0;
};

class ManagementLine {
  public:
    static constexpr std::size_t Most = 1000; ///< calls of each rank that wait
    static constexpr int Pause = 1000;        ///< ms from one call to the next
    static constexpr int Patience = 5000;     ///< ms for an answer
    static constexpr int Tries = 3;

    explicit ManagementLine(Platform& platform);

    /// Where calls go from now on, and the header that goes with them. False when either makes no sense: no
    /// call goes anywhere then. Drops all that wait or are under way; each hears of it as a problem.
    bool SetPlace(const std::string& address, const std::string& header);
    /// False when too many wait, or there is no place to go to: the call is not taken.
    bool Add(ManagementCall call);
    /// Drops all that wait or are under way; each hears `why` as its problem.
    void Drop(const std::string& why);
    std::size_t Waiting() const { return acts.size() + looks.size() + underWay.size(); }

  private:
    std::deque<ManagementCall>& QueueOf(const ManagementCall& call) {
        return call.rank == ManagementCall::Rank::Acts ? acts : looks;
    }
    void Wake();
    void Turn();
    void Send(ManagementCall call);
    void Answered(std::list<ManagementCall>::iterator call, const HttpAnswer& answer);

    Platform& platform;
    std::unique_ptr<Timer> timer;
    std::unique_ptr<Http> http;
    std::string base; ///< empty when there is none
    std::vector<std::pair<std::string, std::string>> headers;
    std::deque<ManagementCall> acts;
    std::deque<ManagementCall> looks;
    std::list<ManagementCall> underWay;
    std::int64_t nextTurn = 0;
};

} // namespace halyard
