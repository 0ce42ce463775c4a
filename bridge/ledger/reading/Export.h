#pragma once

// The ledger's acts as text for other programs: CSV (RFC 4180) and JSON, one object a line. Always valid
// UTF-8.

#include "bridge/ledger/reading/Acts.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// The cells with commas between and CR LF behind. What a cell holds stands on one line (Visible.h); one that
/// a table would take for a formula, since it begins with = + - @, a tab or CR, gets a ' in front.
std::string CsvRow(const std::vector<std::string>& cells);
/// The names of the columns of CsvRow(act).
std::string CsvHead();
std::string CsvRow(const ActRow& act);

/// Times as UTC, "2026-11-23T14:05:09.123Z"; what an act hasn't is left out.
nlohmann::json JsonOf(const ActRow& act);
/// On one line with LF behind, all but ASCII escaped; bytes that are no UTF-8 become U+FFFD.
std::string JsonLine(const nlohmann::json& value);

/// "2026-11-23T14:05:09.123Z"
std::string UtcText(std::int64_t utcMilliseconds);

} // namespace halyard
