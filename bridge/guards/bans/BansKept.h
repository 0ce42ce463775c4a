#pragma once

// Requests to ban and to let in again that a limited or lost room, a lost connection or a silent service
// swallowed: they are made again once their room may, if they are still wanted. A kick's second half and a
// time ban's end are among them. BanGuards owns the one.

#include "base/News.h"
#include "bridge/guards/bans/KeptBan.h"
#include "platform/Timer.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <unordered_map>

namespace halyard {

class Chats;
class Options;
class Platform;
class TillerSock;

class BansKept : public News {
  public:
    static constexpr std::int64_t AnswerTime = 30'000;      ///< ms after which nobody waits for an answer
    static constexpr std::int64_t LongestPause = 60'000;    ///< ms between two requests that aren't answered
    static constexpr std::int64_t LongestKept = 86'400'000; ///< ms
    static constexpr std::size_t Most = 2000;

    /// All outlive it.
    BansKept(Platform& platform, TillerSock& control, const Options& options);

    /// What waits to be asked again, the oldest first.
    const std::list<KeptBan>& Waiting() const { return kept; }

    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string& other) override;
    void BanDropped(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                    const std::string& other, DropReason why) override;
    void BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string& name) override;
    void BanAnswered(std::int16_t room, std::int32_t id, BanVerdict verdict, int word) override;
    void RoomOpened(std::int16_t room, const std::string& name, std::int16_t exchange) override {
        places[room] = {name, exchange};
    }
    void RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) override {
        places[room] = {name, exchange};
    }
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override;
    void ConnectionsReset() override { LoseAsked(0); }

  private:
    struct Open {
        KeptBan ban;
        std::int16_t room = 0;
        std::int64_t asked = -1; ///< ms; -1: it waits in the room's queue
        bool overtaken = false;  ///< something else was wanted of the same person since
    };
    KeptBan Begun(std::int16_t room, BanKind kind, const std::string& name, const std::string& other);
    void Overtake(KeptBan& newer);
    void MayBeDone(const KeptBan& overtaken);
    void LoseAsked(std::int16_t room);
    void Keep(const Open& lost);
    void Tick();
    void GiveUpUnanswered();
    void AskAgain();
    /// Whether the room has one request more than before.
    bool Ask(KeptBan ban, const Chats& room);
    bool IsOnList(const KeptBan& ban) const;

    Platform& platform;
    TillerSock& control;
    const Options& options;
    std::unordered_map<std::int32_t, Open> open; ///< by request id
    std::list<KeptBan> kept;
    struct Place {
        std::string name;
        std::int16_t exchange = 0;
    };
    std::unordered_map<std::int16_t, Place> places; ///< by slot, of rooms that may be gone
    const KeptBan* asking = nullptr;
    std::unique_ptr<Timer> timer; ///< runs while there is anything
};

} // namespace halyard
