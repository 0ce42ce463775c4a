#include "surface/bridge/watch/HistoryStrips.h"

#include "bridge/ledger/reading/Moments.h"
#include "bridge/watch/Samples.h"

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

namespace halyard {

namespace {

constexpr int Whole = 100; // percent

// Blue-green-red; dark enough to be seen on the ground of a field.
constexpr int Green = 0x3A6E12;
constexpr int Amber = 0x0070C8;
constexpr int Red = 0x1C1CB0;
constexpr int Teal = 0x8D6714;
constexpr int Purple = 0x8A2A6A;
constexpr int Brown = 0x2A4A7A;
constexpr int Grey = 0x606060;
constexpr int Black = 0x202020;

using BarOf = std::function<std::vector<int>(const HistoryColumn&)>;

Strips::Strip Barred(const std::vector<HistoryColumn>& columns, Strips::Strip strip, const BarOf& figures) {
    for (const auto& column : columns)
        strip.bars.push_back(column.seconds == 0 ? std::vector<int>() : figures(column));
    return strip;
}

/// The full height is the highest bar.
Strips::Strip Highest(const std::vector<HistoryColumn>& columns, Strips::Strip strip, const BarOf& figures) {
    strip = Barred(columns, std::move(strip), figures);
    int most = 0;
    for (const auto& bar : strip.bars) {
        int height = 0;
        for (const int figure : bar) height += figure;
        most = std::max(most, height);
    }
    strip.full = std::max(most, 1);
    strip.most = "at most " + std::to_string(most);
    return strip;
}

/// Each stage has a height of its own, so that it can be told without its colour.
std::vector<int> StageBar(const HistoryColumn& column) {
    switch (column.OnLine()) {
    case HistoryColumn::Line::On: return {Whole, 0, 0};
    case HistoryColumn::Line::Partly: return {0, Whole * 2 / 3, 0};
    default: return {0, 0, Whole / 3};
    }
}

} // namespace

std::vector<Strips::Strip> StripsOf(const std::vector<HistoryColumn>& columns) {
    const auto percent = [](int seconds, const HistoryColumn& column) {
        return std::min(Whole, seconds * Whole / std::max(column.seconds, 1));
    };
    return {
        Barred(columns,
               {.heading = "Stage",
                .most = {},
                .full = Whole,
                .parts = {{"on line", Green}, {"part of the time", Amber}, {"off line", Red}},
                .bars = {}},
               StageBar),
        Barred(columns,
               {.heading = "Limited",
                .most = "all of the time",
                .full = 2 * Whole,
                .parts = {{"talking", Amber}, {"banning", Red}},
                .bars = {}},
               [percent](const HistoryColumn& column) {
                   return std::vector<int>{percent(column.sum.ratedLines, column),
                                           percent(column.sum.ratedBans, column)};
               }),
        Highest(columns, {.heading = "Lines heard", .most = {}, .parts = {{"", Teal}}, .bars = {}},
                [](const HistoryColumn& column) { return std::vector<int>{column.sum.heard}; }),
        Highest(
            columns,
            {.heading = "Lines said", .most = {}, .parts = {{"said", Teal}, {"dropped", Red}}, .bars = {}},
            [](const HistoryColumn& column) {
                return std::vector<int>{column.sum.said, column.sum.dropped};
            }),
        Highest(columns,
                {.heading = "Bans",
                 .most = {},
                 .parts = {{"autoban", Teal},
                           {"autoword", Amber},
                           {"ghost", Purple},
                           {"digits", Green},
                           {"length", Brown},
                           {"ops", Black},
                           {"others", Grey}},
                 .bars = {}},
                [](const HistoryColumn& column) {
                    const auto& sum = column.sum;
                    return std::vector<int>{sum.byAutoban, sum.byAutoword, sum.byGhost, sum.byICQ,
                                            sum.byChars,   sum.byOps,      sum.byOthers};
                }),
        Highest(columns,
                {.heading = "Waiting", .most = {}, .parts = {{"lines", Teal}, {"bans", Red}}, .bars = {}},
                [](const HistoryColumn& column) {
                    return std::vector<int>{column.sum.linesWaiting, column.sum.bansWaiting};
                }),
    };
}

std::vector<Strips::Mark> MarksOf(const std::vector<HistoryColumn>& columns) {
    std::vector<Strips::Mark> marks;
    if (columns.empty()) return marks;
    // Ten minutes of an hour, four hours of a day.
    const int every = columns.front().length == 1 ? 10 : 4 * 60;
    for (std::size_t index = 0; index < columns.size(); ++index) {
        if (columns[index].minute % every != 0) continue;
        marks.push_back(
            {static_cast<int>(index), ShownClock(columns[index].minute * Samples::MinuteMs).substr(0, 5)});
    }
    return marks;
}

} // namespace halyard
