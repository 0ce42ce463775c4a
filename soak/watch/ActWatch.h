#pragma once

// What was seen of the bot's acts from outside, to be found again in the ledger: each request that went out
// has one row, in order, with the act, person and rule that it was made for; and whose word caused an act had
// just said it. The watch over the ledger owns the one.

#include "base/BanKind.h"
#include "platform/Database.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace halyard {

class ActWatch {
  public:
    std::function<void(const std::string&)> onFinding;
    bool faultless = false; ///< of the network: what is told as sent has gone out

    struct Request {
        int wire = 0;
        std::string room, user; ///< normalised
        bool ban = false;
        std::optional<BanKind> kind; ///< nothing when it isn't known
    };
    void Sent(Request&& request) { sent.push_back(std::move(request)); }
    /// A line or message came, at this moment of the calendar; `frame` has its sender and its text.
    void Heard(std::int64_t at, std::string_view frame);
    /// Looks at the rows that have come since the last time, which are all that was told. With `lost` facts
    /// of a gap among them, rows may be missing, and acts begun up to now may lack what belongs to them.
    void Look(Connection& file, std::int64_t lost);

  private:
    void LookAtActs(Connection& file);
    void LookAtRequests(Connection& file, bool lost);
    void LookAtAnswers(Connection& file);
    void LookAtRequest(const Statement& row, const Request& request);
    bool WasHeard(std::int64_t at, const std::string& who, const std::string& line) const;
    void Find(const char* words, std::int64_t row);

    struct Text {
        std::int64_t at;
        std::string text;
    };
    std::deque<Request> sent;
    std::deque<Text> heard;
    std::unordered_set<std::int64_t> asked;                   ///< acts
    std::int64_t act = 0, cause = 0, request = 0, change = 0; ///< the newest that were looked at
    std::int64_t doubtfulAct = 0, doubtfulCause = 0;          ///< a gap may have taken what belongs to these
};

} // namespace halyard
