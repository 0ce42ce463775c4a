#pragma once

// How fast a client may send. Requests are sorted into five classes; each connection keeps for each class a
// moving average of the time between requests, and what falls below a level is warned of, dropped, or ends
// the connection. Pure rules about state and a moment: the network sends what they say.

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace halyard {

/// The levels of one class, in milliseconds between requests.
struct RateClass {
    int window;
    int clear;
    int alert;
    int limit;
    int disconnect;
    int max;
};

/// Classes 1 to 5 at indices 0 to 4.
using RateClasses = std::array<RateClass, 5>;
RateClasses DefaultRateClasses();

/// The class that governs a request; 0 for one that is not counted.
/// `asElsewhere`: as common services sort them, room lines in class 2, messages and user information in 3.
int RateClassOf(int family, int subtype, bool asElsewhere = false);

/// The codes of a rate notice (0001 000A).
enum class RateCode { None = 0, Alert = 2, Limit = 3, Clear = 4 };

struct RateVerdict {
    RateCode notice = RateCode::None; ///< what to tell the client
    bool drop = false;                ///< the request has no effect
    bool disconnect = false;
};

/// The rate state of one connection.
class RateMeter {
  public:
    RateMeter(const RateClasses& classes, std::int64_t now);

    /// Counts a request of a class (1 to 5) at a moment in ms.
    RateVerdict Count(int classId, std::int64_t now);
    /// True when no class is warned or limited: none has to recover.
    bool AllClear() const {
        return std::all_of(levels.begin(), levels.end(),
                           [](const Level& level) { return level.state == RateCode::Clear; });
    }
    /// True once when a class that was warned or limited has recovered by silence alone.
    bool Recover(int classId, std::int64_t now);
    /// Puts a class into a state that counting does not end: only another Force does.
    void Force(int classId, RateCode code);

    /// The answer to a rate request (0001 0007): the classes, then what belongs to them.
    std::string Answer(bool longForm, std::int64_t now, bool asElsewhere = false) const;
    /// One class as it stands in answers and notices: 35 bytes in the long form, 30 in the short.
    std::string ClassBytes(int classId, bool longForm, std::int64_t now) const;

  private:
    struct Level {
        std::int64_t average;
        std::int64_t last;
        RateCode state;
        bool forced;
    };
    const RateClass& Limits(int classId) const { return classes[static_cast<std::size_t>(classId - 1)]; }
    Level& Of(int classId) { return levels[static_cast<std::size_t>(classId - 1)]; }
    const Level& Of(int classId) const { return levels[static_cast<std::size_t>(classId - 1)]; }
    std::int64_t After(int classId, std::int64_t now) const;

    RateClasses classes;
    std::array<Level, 5> levels{};
};

} // namespace halyard
