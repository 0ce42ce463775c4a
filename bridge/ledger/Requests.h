#pragma once

// Which act a request id belongs to: from the moment the act is wanted until the id is given out again or its
// room ends. The ledger owns the one.

#include <cstdint>
#include <deque>
#include <functional>
#include <unordered_map>

namespace halyard {

struct Request {
    std::int64_t act = 0;
    std::int64_t cause = 0;
    std::int64_t began = 0; ///< ms of the clock that never goes back
    std::int16_t room = 0;
    bool answered = false;
    std::int64_t takesBack = 0; ///< as a step of the undo act that follows; of the file
    std::int64_t undo = 0;
};

class Requests {
  public:
    /// Null when the id belongs to nothing.
    Request* Find(std::int32_t id);
    /// What the id belonged to is gone.
    Request& Add(std::int32_t id, const Request& request) { return byId[id] = request; }
    /// It stays for what follows from the answer, as do the last few hundred.
    void Answered(std::int32_t id);
    void Remove(std::int32_t id) { byId.erase(id); }
    /// Those of one room, or of all with 0, go; `each` is told of those without an answer.
    void EndRoom(std::int16_t room, const std::function<void(std::int32_t, const Request&)>& each);

  private:
    static constexpr std::size_t MostAnswered = 500;

    std::unordered_map<std::int32_t, Request> byId;
    std::deque<std::int32_t> answered;
};

} // namespace halyard
