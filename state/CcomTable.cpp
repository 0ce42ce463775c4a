#include "state/CcomTable.h"

namespace halyard {

std::string CcomTable::GetCcom(int Index) const {
    return Index >= 0 && Index < CcomCount ? CcomNames[static_cast<std::size_t>(Index)] : std::string();
}

void CcomTable::SetCcoms(const Collection<std::string>& ColCcoms, const std::string& strNewTrigger,
                         bool blnComments) {
    std::size_t index = 0;
    for (const auto& ccom : ColCcoms) {
        if (index == CcomNames.size()) break;
        CcomNames[index++] = ccom;
    }
    strTrigger = strNewTrigger;
    blnCcomComments = blnComments;
}

void CcomTable::DefaultCcoms() {
    CcomNames = {"op",    "unop", "imm",    "unimm", "ab", "unab",   "aw",    "unaw", "kick", "ban",
                 "unban", "gban", "status", "info",  "bl", "rejoin", "bp",    "lop",  "uop",  "limm",
                 "uimm",  "lban", "uban",   "cb",    "sc", "icq",    "uinfo", "tban"};
    strTrigger.clear();
    blnCcomComments = true;
}

} // namespace halyard
