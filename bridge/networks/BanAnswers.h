#pragma once

// Whether requests for bans are answered: who asked and heard nothing for half a minute is told so, and once
// a room and connection that this network enforces none. The desk's own records stay as they are. What holds
// the bridge together owns the one, as a listener of the desk's news.

#include "base/News.h"
#include "platform/Timer.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace halyard {

class Platform;

class BanAnswers : public News {
  public:
    using Tell = std::function<void(const std::string& text)>;

    /// `platform` outlives it.
    BanAnswers(Platform& platform, Tell tell);

    /// True while another than the rooms enforces bans: then their silence and refusals mean nothing.
    bool enforcedElsewhere = false;
    /// How many requests wait for an answer.
    std::size_t Waiting() const { return asked.size(); }

    void SignedOn(const std::string& name) override;
    void SignedOff() override;
    void RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) override;
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override;
    void BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) override;
    void BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) override;

  private:
    struct Request {
        BanRequestKind kind;
        std::string name;
        std::int64_t until;
    };

    void Forget(std::int16_t room);
    void ForgetAll();
    void Tick();
    std::string RoomName(std::int16_t room) const;

    Platform& platform;
    Tell tell;
    std::map<std::pair<std::int16_t, std::int32_t>, Request> asked; ///< by room and request id
    std::map<std::int16_t, std::string> rooms;
    std::set<std::int16_t> notEnforced; ///< rooms of which it has been told
    std::unique_ptr<Timer> timer;
};

} // namespace halyard
