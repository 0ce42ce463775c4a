#pragma once

// A minute of the bot in figures, one sample for each minute of the calendar, for the strips of the watch and
// for the ledger. It counts what is told and looks at what is true when that changes. What holds the watch
// together owns the one.

#include "base/News.h"
#include "bridge/ledger/Facts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace halyard {

class Platform;
class Timer;
class Truth;

class Samples : public News {
  public:
    static constexpr std::int64_t InMemory = 24 * 60; ///< minutes
    static constexpr std::int64_t MinuteMs = 60'000;

    /// All outlive it. It is to hear each fact behind `truth`. Nothing is counted before Start.
    Samples(Platform& platform, const Telling& telling, const Truth& truth);
    ~Samples() override;

    /// A minute is over.
    std::function<void(const SampleFact&)> onSample;

    void Start();
    /// Minutes of earlier runs, in any order. One that is there already stays as it is.
    void TakeEarlier(const std::vector<SampleFact>& earlier);
    /// The minutes of the last day that the bot ran in, oldest first, without the one under way.
    const std::deque<SampleFact>& Minutes() const { return minutes; }
    /// The one under way, as far as it has gone.
    SampleFact UnderWay();
    /// How much of it has gone, 0 to 60.
    int SecondsUnderWay() const;

    // News.
    void ConnectionsReset() override { LookAgain(); }
    void SignedOn(const std::string&) override { LookAgain(); }
    void SignedOff() override { LookAgain(); }
    void SignedOffElsewhere(int, const std::string&) override { LookAgain(); }
    void ConnectionEnded(int, const std::string&) override { LookAgain(); }
    void SocketTagged(int, const std::string&) override { LookAgain(); }
    void RoomLeft(std::int16_t, const std::string&, const std::string&) override { LookAgain(); }
    void RateLevel(std::int16_t, int, bool, int) override { LookAgain(); }
    void LineQueued(std::int16_t, const Msgs&) override { CountWaiting(); }
    void LineSaid(std::int16_t, const Msgs&, const std::string&, const std::vector<std::int64_t>&) override {
        ++now.said;
    }
    void LineDropped(std::int16_t, const Msgs&, LineDrop) override { ++now.dropped; }
    void BanWanted(std::int16_t room, std::int32_t id, BanKind kind, const std::string& name,
                   const std::string& other) override;

  private:
    void Begin();
    void TurnTheMinute();
    void LookAgain();
    void CountWaiting();
    void Forget();

    Platform& platform;
    const Telling& telling;
    const Truth& truth;
    std::unique_ptr<Timer> timer;
    std::deque<SampleFact> minutes;
    SampleFact now;
    /// What holds since `lookedAt`, and for how many ms of this minute it has held: on line, a room's bans
    /// limited, a room's lines limited.
    std::array<bool, 3> holds{};
    std::array<std::int64_t, 3> held{};
    std::int64_t lookedAt = 0;
    std::int64_t began = 0;        ///< the minute under way, as Platform::Milliseconds
    std::uint64_t heardBefore = 0; ///< of the truth's count, what the minutes before had
};

/// Several minutes as one: sums, the most that waited at once, rooms and people at the end. The minute is
/// that of the first. A sample of nothing for none.
SampleFact Joined(const std::vector<const SampleFact*>& samples);

} // namespace halyard
