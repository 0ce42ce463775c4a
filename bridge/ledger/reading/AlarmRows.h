#pragma once

// What rang, as the ledger has it. Run in a job of Read; texts are UTF-8.

#include "platform/Database.h"

#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

/// The numbers are those of AlarmKind and RingReason, or of a newer program.
struct AlarmRow {
    std::int64_t row = 0;
    std::int64_t at = 0; ///< UTC ms
    int kind = 0;
    std::string subject;
    int reason = 0;
    std::string words;
};

/// At most `count` that stand before the row `before` (0: of all), the newest first; without what was held
/// back.
std::vector<AlarmRow> ReadAlarmRows(Connection& file, std::int64_t before, int count);

} // namespace halyard
