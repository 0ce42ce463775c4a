#pragma once

// The last hour or day of the bot as columns of minutes, one behind the other, and what each says in words.

#include "bridge/ledger/Facts.h"

#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

class Samples;

enum class HistorySpan { Hour, Day };

struct HistoryColumn {
    std::int64_t minute = 0; ///< its first, since 1970
    int length = 1;          ///< minutes
    int seconds = 0;         ///< of it in which the bot ran, by whole samples; 0: it didn't run
    SampleFact sum;          ///< see Joined
    /// Lost, or not yet on line, in all of it or a part.
    enum class Line { NotRunning, Off, Partly, On };
    Line OnLine() const;
    int Bans() const;
    bool operator==(const HistoryColumn&) const = default;
};

/// Oldest first: 60 columns of a minute, or 144 of ten. The last one is under way.
std::vector<HistoryColumn> HistoryOf(Samples& samples, HistorySpan span);

/// "2026-11-24 03:12:00 CET, 10 minutes: on line for 8 minutes 20 s; …" for a person and a screen reader.
std::string HistoryWords(const HistoryColumn& column);
/// "2 by autoban, 1 by an op"; empty for none.
std::string BansByRule(const SampleFact& sample);
/// "on line", "off line", "on line for 20 s", "not running".
std::string OnLineWords(const HistoryColumn& column);

} // namespace halyard
