#pragma once

// The alarms of the account: off line, given up, needs you. AlarmEars owns the one.

#include "base/News.h"

#include <cstdint>
#include <string>

namespace halyard {

class AlarmBook;
class Platform;
class Truth;

class AccountAlarms : public News {
  public:
    /// All outlive it. `telling` is the control's.
    AccountAlarms(Platform& platform, const Telling& telling, const Truth& truth, AlarmBook& book)
        : platform(platform), telling(telling), truth(truth), book(book) {}

    bool OnLine() const { return online; }
    /// The service has refused what only a person can set right, and no hand has signed on since.
    bool NeedsPerson() const { return needsPerson; }
    /// Rings what has lasted too long.
    void Look();

    void SignOnBegun(const std::string& name) override;
    void SignOnRefused(int code, const std::string& text) override;
    void SignedOn(const std::string& name) override;
    void SignedOff() override;
    void SignedOffElsewhere(int reason, const std::string& page) override;
    void ConnectionEnded(int socket, const std::string& text) override;
    void ConnectionsReset() override { GoOff(); }
    void ComebackPlanned(int milliseconds) override { comeback = milliseconds >= 0; }

  private:
    static constexpr std::int64_t LongestAttempt = 60'000; ///< ms

    void GoOff();
    void LookAtMain(std::int64_t now);

    Platform& platform;
    const Telling& telling;
    const Truth& truth;
    AlarmBook& book;
    bool wanted = false; ///< the operator wants it on line
    bool online = false;
    bool needsPerson = false;
    bool comeback = false;     ///< an attempt is to follow
    std::int64_t attempt = -1; ///< since when one is under way
    std::int64_t offSince = 0;
    std::int64_t mainOffSince = -1; ///< on line, but for its main connection; -1: not so
    std::string why;                ///< the last reason, a sentence
};

} // namespace halyard
