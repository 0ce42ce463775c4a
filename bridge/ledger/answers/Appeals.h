#pragma once

// Who stands on an eject list and sends an instant message is told once a day where they are out, since when,
// until when and whom to ask; what they wrote is kept as an appeal. Neither the op nor the entry is ever
// named. The bridge owns the one, as a listener of the desk's news.

#include "base/News.h"
#include "bridge/ledger/LedgerTerms.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace halyard {

class Ledger;
class PacedMessages;
class Platform;
class TillerSock;

class Appeals : public News {
  public:
    static constexpr std::size_t MostRooms = 3;          ///< that are named in an answer
    static constexpr std::size_t MostKept = 3;           ///< appeals of one person
    static constexpr std::size_t Longest = 300;          ///< characters of one that are kept
    static constexpr std::size_t MostPeople = 10'000;    ///< who are remembered as answered
    static constexpr std::int64_t Rest = 24 * 3'600'000; ///< ms between two answers to one person

    /// All outlive it. Answers nobody until the terms say so.
    Appeals(Platform& platform, TillerSock& control, Ledger& ledger, PacedMessages& messages);

    LedgerTerms terms;
    /// An appeal came: how many by now, and of whom.
    std::function<void(std::size_t count, const std::string& name)> onAppeal;
    /// Those kept since the program's start.
    std::size_t Count() const { return count; }

    void MessagePassedOver(const std::string& name, const std::string& message) override;

  private:
    struct Place {
        std::string room;
        std::int16_t exchange;
        std::string until; ///< in words
    };
    std::vector<Place> PlacesOf(const std::string& key) const;
    void Heard(const std::string& name, const std::string& text, const std::vector<Place>& places,
               std::size_t kept, const std::map<std::string, std::string>& since);

    Platform& platform;
    TillerSock& control;
    Ledger& ledger;
    PacedMessages& messages;
    std::map<std::string, std::int64_t> answered; ///< by normalised name
    std::size_t count = 0;
    std::shared_ptr<int> life = std::make_shared<int>();
};

} // namespace halyard
