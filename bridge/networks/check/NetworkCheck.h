#pragma once

// "Check this network": asks a network for each thing that the bot will need, and tells row by row what it
// found. While the bot is signed off the check signs on by itself, with a control of its own; while the bot
// is signed on it works over the bot's session, and changes nothing there: no list, no queue, no counter, no
// word. docs/check.md tells what is asked and what each row means.

#include "oscar/networks/Network.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace halyard {

class News;
class Platform;
class TillerSock;

enum class CheckVerdict { Works, DoesNot, Odd };

/// What was asked, what became of it, and the same in words.
struct CheckRow {
    std::string what;
    CheckVerdict verdict = CheckVerdict::Odd;
    std::string detail;
};

class NetworkCheck {
  public:
    /// `name` is the bot's. Host, port, password and `hashed` are for the check's own sign-on: without
    /// `hashed` the password goes out roasted, which everybody on the way can read, and to ask first is the
    /// caller's. While the bot is signed on `room` must be one that it is in; empty takes the first of them.
    struct Terms {
        Network network;
        std::string host;
        std::int32_t port = 5190;
        std::string name;
        std::string password;
        bool hashed = true;
        std::string room;
        std::int16_t exchange = 4;
    };

    /// The row about wrong passwords, by which "checks no passwords" is known: Odd.
    static constexpr const char* PasswordsRow = "Passwords";
    static constexpr int StepDeadline = 10000; ///< ms, after which silence is what a step found

    /// `desk` is the bot's own control, over whose session the check works while it is signed on. Both must
    /// outlive the check.
    NetworkCheck(Platform& platform, TillerSock& desk);
    ~NetworkCheck();
    NetworkCheck(const NetworkCheck&) = delete;
    NetworkCheck& operator=(const NetworkCheck&) = delete;

    // Both run from the loop, never from a call of this class. They may stop or destroy the check.
    std::function<void(const CheckRow&)> onRow; ///< in order, as it is found
    std::function<void()> onDone;               ///< after the last row; not after Stop

    /// Begins, unless a check runs.
    void Start(const Terms& terms);
    /// Ends the check where it stands: its connections are closed, and a ban that it asked for is lifted.
    void Stop();
    bool Running() const;
    /// Every frame of the last check, a line each, secrets blanked; see HexLog::Text.
    std::string HexLog() const;
    /// To be told all that the bot's control tells, whether a check runs or not.
    News& Listener();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

} // namespace halyard
