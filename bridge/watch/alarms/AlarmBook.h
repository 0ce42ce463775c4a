#pragma once

// All alarms there are: what fires, what was told of it, and what rang. Whoever finds something wrong raises
// it here; who rings is told. The bridge owns the one.

#include "bridge/watch/alarms/AlarmBell.h"
#include "bridge/watch/alarms/AlarmTerms.h"
#include "bridge/watch/alarms/ToRing.h"
#include "platform/Timer.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

class Platform;

/// One ring, or that one was held back: then its reason is Nothing.
struct Ring {
    std::int64_t at = 0; ///< UTC ms
    AlarmKind kind{};
    std::string subject;
    RingReason reason = RingReason::Nothing;
    std::string words;
};
/// "Room lost: lobby. It is closed.", "Over: room lost: lobby. The bot is in it again."
std::string SentenceOf(const Ring& ring);

/// What rings now.
struct RingingAlarm {
    AlarmKind kind{};
    std::string subject;
    std::int64_t since = 0; ///< UTC ms
    std::string words;
};

class AlarmBook : public AlarmBell {
  public:
    static constexpr std::size_t MostRings = 200;    ///< that are remembered
    static constexpr std::size_t MostSubjects = 100; ///< of a kind at a time; what is raised beyond is lost
    static constexpr std::size_t LongestWords = 500;

    /// `platform` outlives it.
    explicit AlarmBook(Platform& platform);

    /// An alarm rings. It may be raised or ended anew by who hears it.
    std::function<void(const Ring&)> onRing;
    /// What is to be kept: each ring, what was held back, and an end that was the operator's own doing.
    std::function<void(const Ring&)> onKeep;
    /// What stands or rang is another.
    std::function<void()> onChanged;

    /// From now on; what stands of a kind that is off now stands no more.
    void SetTerms(const AlarmTerms& terms);
    const AlarmTerms& Terms() const { return terms; }

    // AlarmBell.
    void Raise(AlarmKind kind, const std::string& subject, const std::string& words) override;
    void End(AlarmKind kind, const std::string& subject, const std::string& words) override;
    /// It is over by the operator's own doing, which rings nothing.
    void Withdraw(AlarmKind kind, const std::string& subject);
    /// All of a kind.
    void Withdraw(AlarmKind kind);

    /// True also for one that rests or is off.
    bool Fires(AlarmKind kind, const std::string& subject) const;
    /// Oldest first.
    std::vector<RingingAlarm> Ringing() const;
    /// The newest last.
    const std::deque<Ring>& Rang() const { return rang; }
    std::uint64_t RingCount() const { return ringCount; }
    /// Another number whenever Ringing or Rang is another.
    std::uint64_t Version() const { return version; }

  private:
    using Key = std::pair<AlarmKind, std::string>;
    struct Entry {
        AlarmTold told;
        AlarmNow is;
        bool held = false;         ///< that it rests was kept
        std::int64_t rangFrom = 0; ///< UTC ms, of what stands
        std::string words;
        std::uint64_t changes = 0;
    };

    void Judge(const Key& key);
    void RingOut(const Key& key, RingReason reason);
    Ring RingOf(const Key& key, RingReason reason, const std::string& words) const;
    bool MayAdd(AlarmKind kind) const;
    bool OthersStand(const Key& key) const;
    std::int64_t RestOf(AlarmKind kind) const;
    void WakeForRests();
    void Tick();

    Platform& platform;
    AlarmTerms terms;
    std::map<Key, Entry> entries;
    std::deque<Ring> rang;
    std::uint64_t ringCount = 0;
    std::uint64_t version = 0;
    std::unique_ptr<Timer> restTimer;
};

} // namespace halyard
