#pragma once

// The file that keeps the counters over runs, outside the program's folder. The main window owns the one,
// loads it at start-up and writes it every 31 seconds. Every failure is silent: the counters go on in memory.

#include <string>
#include <string_view>

namespace halyard {

class Counters;
class Platform;

class StatisticsFile {
  public:
    StatisticsFile(Platform& platform, Counters& counters);

    /// Takes the counters from the file, if there is one. False for a file of another version, which is
    /// emptied: the start-up must end there then.
    bool Load();
    /// Writes the file whole. False when that failed.
    bool Write();
    /// Empty where the machine has no place for it.
    std::string Path() const;

  private:
    void ReadCounter(std::string_view line);

    Platform& platform;
    Counters& counters;
    std::string strStatsDrive; ///< with drive letters the program folder's, else the operator's state folder
    std::string strStatsPlace; ///< the rest of the path, in hex digits
};

} // namespace halyard
