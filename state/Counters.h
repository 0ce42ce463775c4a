#pragma once

// Life-long counters and the list of the last 20 actions. Every subsystem reports here.

#include "platform/Controls.h"

#include <array>
#include <deque>
#include <string>

namespace halyard {

class Options;
class TillerSock;

class Counters {
  public:
    static constexpr int StatCount = 21;
    static constexpr int FirstKept = 7; ///< labels from here on are the fourteen counters kept over runs
    static constexpr int KeptCount = StatCount - FirstKept;

    Counters(const Options& options, const TillerSock& control);

    /// `strStat` is a stat's name or "all"; another name does nothing. Only "totalcommand" looks at
    /// `Increment`.
    void UpdateStat(const std::string& strStat, bool Increment = true);
    void AddAction(const std::string& strAction);
    /// Every kept counter becomes 0 and all labels are shown anew.
    void ClearStats();

    /// The name under which `UpdateStat` and the statistics file know label `index` (0 to 20), and its
    /// caption.
    static const char* StatName(int index);
    static const char* StatCaption(int index);
    /// The kept counters by label index 7 to 20.
    double Kept(int index) const { return kept[static_cast<std::size_t>(index - FirstKept)]; }
    void SetKept(int index, double value) { kept[static_cast<std::size_t>(index - FirstKept)] = value; }

    std::deque<Label> lblStat; ///< 21 labels
    ListBox lstActions{"lstActions"};

  private:
    void Show(int index);
    double ListCountOf(int index) const;

    const Options& options;
    const TillerSock& control;
    std::array<double, KeptCount> kept{};
};

} // namespace halyard
