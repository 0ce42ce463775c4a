#include "bridge/watch/History.h"

#include "bridge/ledger/reading/Moments.h"
#include "bridge/watch/Samples.h"

#include <array>
#include <utility>

namespace halyard {

namespace {

constexpr int SampleSeconds = 60;
/// A sample's seconds are rounded, and a timer may be a little late.
constexpr int SampleSlack = 1;

struct ColumnScale {
    int columns;
    int length;
};

ColumnScale ScaleOf(HistorySpan span) {
    return span == HistorySpan::Hour ? ColumnScale{60, 1} : ColumnScale{144, 10};
}

std::string Lasting(int seconds) {
    if (seconds < SampleSeconds) return std::to_string(seconds) + " s";
    const auto rest = seconds % SampleSeconds;
    return std::to_string(seconds / SampleSeconds) + " min" +
           (rest == 0 ? "" : " " + std::to_string(rest) + " s");
}

std::string CountOfThem(int count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string LimitedFor(const SampleFact& sum) {
    if (sum.ratedBans == 0 && sum.ratedLines == 0) return "nothing limited";
    std::string words;
    if (sum.ratedLines > 0) words = "talking limited for " + Lasting(sum.ratedLines);
    if (sum.ratedBans > 0)
        words += (words.empty() ? "" : ", ") + std::string("banning limited for ") + Lasting(sum.ratedBans);
    return words;
}

} // namespace

HistoryColumn::Line HistoryColumn::OnLine() const {
    if (seconds == 0) return Line::NotRunning;
    if (sum.online == 0) return Line::Off;
    return sum.online + SampleSlack * length >= seconds ? Line::On : Line::Partly;
}

int HistoryColumn::Bans() const {
    return sum.byAutoban + sum.byAutoword + sum.byGhost + sum.byICQ + sum.byChars + sum.byOps + sum.byOthers;
}

std::vector<HistoryColumn> HistoryOf(Samples& samples, HistorySpan span) {
    const int columns = ScaleOf(span).columns, length = ScaleOf(span).length;
    const auto current = samples.UnderWay();
    const auto last = current.minute / length; // of columns, since 1970
    std::vector<std::vector<const SampleFact*>> parts(static_cast<std::size_t>(columns));
    std::vector<HistoryColumn> history(static_cast<std::size_t>(columns));
    for (int index = 0; index < columns; ++index) {
        auto& column = history[static_cast<std::size_t>(index)];
        column.minute = (last - columns + 1 + index) * length;
        column.length = length;
    }
    const auto add = [&](const SampleFact& sample, int seconds) {
        const auto place = sample.minute / length - last + columns - 1;
        if (place < 0 || place >= columns) return;
        parts[static_cast<std::size_t>(place)].push_back(&sample);
        history[static_cast<std::size_t>(place)].seconds += seconds;
    };
    for (const auto& sample : samples.Minutes())
        if (sample.minute != current.minute) add(sample, SampleSeconds);
    add(current, samples.SecondsUnderWay());
    for (std::size_t index = 0; index < history.size(); ++index) {
        history[index].sum = Joined(parts[index]);
        history[index].sum.minute = history[index].minute;
    }
    return history;
}

std::string OnLineWords(const HistoryColumn& column) {
    switch (column.OnLine()) {
    case HistoryColumn::Line::NotRunning: return "not running";
    case HistoryColumn::Line::Off: return "off line";
    case HistoryColumn::Line::Partly: return "on line for " + Lasting(column.sum.online);
    case HistoryColumn::Line::On: break;
    }
    return "on line";
}

std::string BansByRule(const SampleFact& sample) {
    const std::array<std::pair<int, const char*>, 7> counts{{{sample.byAutoban, "by autoban"},
                                                             {sample.byAutoword, "by autoword"},
                                                             {sample.byGhost, "of ghosts"},
                                                             {sample.byICQ, "of names of digits"},
                                                             {sample.byChars, "by length of name"},
                                                             {sample.byOps, "by ops"},
                                                             {sample.byOthers, "otherwise"}}};
    std::string words;
    for (const auto& [count, how] : counts)
        if (count > 0) words += (words.empty() ? "" : ", ") + std::to_string(count) + " " + how;
    return words;
}

std::string HistoryWords(const HistoryColumn& column) {
    auto words = ShownMoment(column.minute * Samples::MinuteMs);
    if (column.length > 1) words += ", " + std::to_string(column.length) + " minutes";
    words += ": " + OnLineWords(column);
    if (column.seconds == 0) return words + ".";
    const auto& sum = column.sum;
    words += "; " + CountOfThem(sum.rooms, "room", "rooms") + ", " +
             CountOfThem(sum.people, "person", "people") + "; " + LimitedFor(sum) + "; " +
             CountOfThem(sum.heard, "line", "lines") + " heard, " + std::to_string(sum.said) + " said, " +
             std::to_string(sum.dropped) + " dropped; " + CountOfThem(column.Bans(), "ban", "bans");
    if (column.Bans() > 0) words += " (" + BansByRule(sum) + ")";
    return words + "; at most " + CountOfThem(sum.linesWaiting, "line", "lines") + " and " +
           CountOfThem(sum.bansWaiting, "ban", "bans") + " waited.";
}

} // namespace halyard
