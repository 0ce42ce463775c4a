#pragma once

// Departure::SilenceIsAskedAbout: a service that is there and answers nothing is noticed. A connection on
// which nothing came for two minutes is asked for the account's own information (0001 000E); where that was
// answered once, half a minute without a frame is a lost connection. Each is asked once soon after it stands,
// so that it is known whether it answers. Guards owns the one.

#include "base/News.h"
#include "bridge/guards/GuardHands.h"
#include "platform/Timer.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class SilenceGuard : public News {
  public:
    // Milliseconds.
    static constexpr int FirstQuestion = 10'000;
    static constexpr int Silence = 120'000;
    static constexpr int Answer = 30'000;
    /// The ids of its questions count from here, beyond all that the desk gives out.
    static constexpr std::uint32_t FirstId = 0x47000001;

    explicit SilenceGuard(const GuardHands& hands);

    /// The switch may be another.
    void SwitchesChanged();
    /// Connections that were asked and never answered, in words, such as "the main connection": there silence
    /// means nothing.
    std::vector<std::string> Unanswering() const;

    /// How many connections have answered.
    int Answering() const;

    void SignedOn(const std::string& name) override;
    void SignedOff() override { Reset(); }
    void ConnectionsReset() override { Reset(); }
    void SocketTagged(int socket, const std::string& tag) override;
    void ConnectionEnded(int socket, const std::string& text) override;
    void RoomEntered(std::int16_t room, const std::string& name, std::int16_t exchange) override;
    void RoomLeft(std::int16_t room, const std::string& name, const std::string& reason) override;
    void SomethingHeard(int socket, bool ownInfo) override;

  private:
    struct Line {
        std::string words;
        std::uint64_t generation = 0; ///< of its socket
        std::int64_t heard = 0;       ///< or last asked in vain
        std::int64_t asked = -1;      ///< -1: no question is open
        bool everAsked = false, answered = false;
    };
    bool On() const;
    void Stands(int socket, const std::string& words);
    void Reset();
    std::int64_t DueAt(const Line& line) const;
    void Arm();
    void Tick();
    void Ask(int socket, Line& line, std::int64_t now);
    void GiveUp(int socket);

    GuardHands hands;
    std::map<int, Line> lines;
    std::uint32_t nextId = FirstId;
    std::unique_ptr<Timer> timer;
};

} // namespace halyard
