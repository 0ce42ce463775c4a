#pragma once

// Tells an op by instant message, and the operator where the command was his own, which whole names fit a
// part that hit nobody. BanGuards owns the one.

#include "base/News.h"
#include "bridge/guards/GuardHands.h"
#include "bridge/ledger/answers/PacedMessages.h"

#include <string>
#include <vector>

namespace halyard {

class PartTeller : public News {
  public:
    static constexpr std::size_t MostNames = 20; ///< that a message holds

    explicit PartTeller(const GuardHands& hands) : hands(hands), messages(hands.platform, hands.control) {}

    void PartHitNobody(std::int16_t room, const std::string& op, const std::string& part,
                       const std::vector<std::string>& fits) override;

  private:
    GuardHands hands;
    PacedMessages messages;
};

} // namespace halyard
