#include "bridge/watch/SampleRows.h"

namespace halyard {

std::vector<SampleFact> ReadSamples(Connection& file, std::int64_t first) {
    std::vector<SampleFact> found;
    auto& row =
        file.Prepare("SELECT minute, online, rooms, people, rated_bans, rated_lines, heard, said, "
                     "dropped, lines_waiting, bans_waiting, by_autoban, by_autoword, by_ghost, by_icq, "
                     "by_chars, by_ops, by_others FROM samples WHERE minute >= ? ORDER BY minute "
                     "LIMIT 2880");
    row.Bind(1, first);
    while (row.Step()) {
        SampleFact sample;
        sample.minute = row.Integer(0);
        int column = 0;
        for (auto* field : {&sample.online, &sample.rooms, &sample.people, &sample.ratedBans,
                            &sample.ratedLines, &sample.heard, &sample.said, &sample.dropped,
                            &sample.linesWaiting, &sample.bansWaiting, &sample.byAutoban, &sample.byAutoword,
                            &sample.byGhost, &sample.byICQ, &sample.byChars, &sample.byOps, &sample.byOthers})
            *field = static_cast<int>(row.Integer(++column));
        found.push_back(sample);
    }
    row.Reset();
    return found;
}

} // namespace halyard
