#pragma once

// What the answers say, out of the ledger. Run in a job of Read; names and results are UTF-8, one line an
// act.

#include "bridge/ledger/reading/Acts.h"

#include <string>
#include <string_view>

namespace halyard {

/// "#1234 2026-11-23 15:05:09 CET: ban of bob in lobby, accepted; roomboss: ban bob/was rude".
std::string ActSentence(const ActRow& act);
/// Where somebody stands, since when and why, and the last three acts upon them.
std::string WhyText(Connection& connection, std::string_view person);
/// The last acts on the word of an op.
std::string LastText(Connection& connection, std::string_view op, int count);

/// The newest act on the word of the op that isn't taken back and could be; of `person` when that isn't
/// empty: then on whosever word. Nothing when there is none.
std::optional<ActRow> LastToUndo(Connection& connection, std::string_view op, std::string_view person);

} // namespace halyard
