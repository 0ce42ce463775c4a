#include "bridge/ledger/reading/AlarmRows.h"

#include <limits>

namespace halyard {

std::vector<AlarmRow> ReadAlarmRows(Connection& file, std::int64_t before, int count) {
    std::vector<AlarmRow> rows;
    auto& read = file.Prepare("SELECT id, at, kind, subject, reason, words FROM alarms "
                              "WHERE id < ? AND reason <> 0 ORDER BY id DESC LIMIT ?");
    read.Bind(1, before > 0 ? before : std::numeric_limits<std::int64_t>::max()).Bind(2, std::int64_t{count});
    while (read.Step())
        rows.push_back({read.Integer(0), read.Integer(1), static_cast<int>(read.Integer(2)), read.Text(3),
                        static_cast<int>(read.Integer(4)), read.Text(5)});
    return rows;
}

} // namespace halyard
