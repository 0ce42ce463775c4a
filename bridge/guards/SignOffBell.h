#pragma once

// The alarm of Departure::MainSignOffs: the service has ended the main connection in so many words. It ends
// with the next sign-on. Guards owns the one.

#include "base/News.h"
#include "bridge/guards/GuardHands.h"

namespace halyard {

class SignOffBell : public News {
  public:
    explicit SignOffBell(const GuardHands& hands) : hands(hands) {}

    void GuardAsked(Departure guard, bool acts, std::int16_t room, const std::string& who) override;
    void SignedOffElsewhere(int reason, const std::string& page) override;
    void ConnectionEnded(int socket, const std::string& text) override;
    void SignedOn(const std::string& name) override;

  private:
    void Ring(const std::string& words);

    GuardHands hands;
    bool pending = false; ///< the guard acts, and what of comes next
    bool ringing = false;
};

} // namespace halyard
