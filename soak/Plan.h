#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

/// What a long run is told: everything else follows from the seed.
struct SoakPlan {
    std::uint64_t seed = 1;
    double days = 1;
    int rooms = 1;
    int people = 20; ///< in all rooms together
    int faults = 0;  ///< 0 (none) to 9
    int journal = 0; ///< 1 writes down everything that happens, 2 everything that goes into the digest
    int lines = 0;   ///< an hour in each room; 0 is 6 in a single room and 1200 in each of several
    bool openServer = false; ///< the service has the habits of "Open server", and the bot its ways
    bool management = false; ///< with openServer: bans are enforced through its management
    bool bridge = false;     ///< the bridge is there as well, with nothing switched on but its ledger
    bool ledger = false;     ///< with the bridge: the ledger is compared with the desk, and its disk fails
    bool drill = false;      ///< with the bridge: each day plants what an alarm is there for
    bool raids = false;      ///< the same, with nothing but raids
    bool guards = false;     ///< with the bridge: every guard is on, the laws are sharper, and nobody helps
    int LinesAnHour() const { return lines > 0 ? lines : rooms == 1 ? 6 : 1200; }
};

/// One of the busy days by which two builds are compared: each number has its seed, rooms and level of
/// faults.
SoakPlan DayPlan(std::uint64_t number);

/// Reads "--seed N --days D [--rooms R] [--people P] [--faults 0..9] [--lines L] [--network open-server
/// [--management]] [--journal 0..2]", or "--day N [--journal 0..2]" for a DayPlan, and "--bridge",
/// "--ledger", "--guards" (the latter two not together), "--drill" or "--raids", which bring the bridge
/// along, anywhere, but not beside "--management", and the last two in one room without faults. Nothing for
/// words that make no sense or numbers out of their range; seed and days must be given, or the day.
std::optional<SoakPlan> ReadPlan(const std::vector<std::string>& words);
/// The command line that runs the plan again.
std::string ReplayLine(const SoakPlan& plan);

} // namespace halyard
