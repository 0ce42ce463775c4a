#pragma once

// The bot shown at work on the practice network: the tour plays the operator, an onlooker in the room prints
// what a person there would read, and afterwards visitors knock at the door under the names of those who
// should be kept out and those who should not. Nothing of what is printed is canned.

#include "surface/frmMain.h"
#include "tour/Visitor.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class Tour {
  public:
    Tour(Platform& platform, std::int32_t port);

    /// The tour is over; 0 when the service keeps out exactly those whom the scene got banned, and the bot's
    /// eject list names the same.
    std::function<void(int status)> onFinished;

  private:
    enum class Stage { SigningOn, Joining, Playing, Knocking, Done };

    void Step();
    void Begin();
    void Join();
    void LookOn();
    void Knock();
    void Report();
    void Fail(const std::string& why);
    void Finish(int status);
    void Print(const std::string& who, const std::string& what) const;
    std::int64_t Elapsed() const { return platform.Milliseconds() - started; }

    Platform& platform;
    std::int32_t port;
    frmMain window;
    std::unique_ptr<Timer> timer;
    std::unique_ptr<Visitor> onlooker;
    std::unique_ptr<Visitor> visitor;
    Stage stage = Stage::SigningOn;
    std::int64_t started;
    std::int64_t joined = 0;
    std::size_t knocked = 0; ///< how many of the expected names have been at the door
    bool asExpected = true;
};

} // namespace halyard
