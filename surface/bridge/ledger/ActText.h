#pragma once

// The ledger's acts in the words of the window Ledger. All texts are Windows-1252 on one line each, with what
// can't be seen made visible; lines of a longer text end with CR LF.

#include "bridge/ledger/reading/Views.h"
#include "platform/Table.h"

#include <string>
#include <vector>

namespace halyard {

/// UTF-8 of the ledger as a control shows it.
std::string Readable(const std::string& utf8);
/// "1 act", "1,234 acts"; the number alone for an empty `one`.
std::string Counted(std::int64_t count, const char* one);

/// The columns of a table of acts, and what stands in them.
std::vector<TableBox::Column> ActColumns();
std::vector<std::string> ActCells(const ActRow& act);
/// All that is known of the act.
std::string ActDetail(const ActRow& act);
/// "Said before: ..."; empty for no lines.
std::string EvidenceWords(const std::vector<EvidenceLine>& lines);

/// What stands on the pages beside the acts. `rooms`: in which the person is now.
std::string PersonWords(const PersonPage& page, const std::vector<std::string>& rooms);
std::string OpWords(const OpPage& page, int days); ///< that were counted
std::string RuleWords(const RulePage& page);

} // namespace halyard
