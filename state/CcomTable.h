#pragma once

// The 28 words that start a chat command. A word can be edited; its index is fixed and ties it to its
// permission digit, its branch and its place in the help list. The trigger and the comment switch are kept
// with them.

#include "base/Collection.h"

#include <array>
#include <string>

namespace halyard {

enum Ccom : int {
    CcomOp,
    CcomUnop,
    CcomImm,
    CcomUnimm,
    CcomAb,
    CcomUnab,
    CcomAw,
    CcomUnaw,
    CcomKick,
    CcomBan,
    CcomUnban,
    CcomGban,
    CcomStatus,
    CcomInfo,
    CcomBl,
    CcomRejoin,
    CcomBp,
    CcomLop,
    CcomUop,
    CcomLimm,
    CcomUimm,
    CcomLban,
    CcomUban,
    CcomCb,
    CcomSc,
    CcomIcq,
    CcomUinfo,
    CcomTban,
    CcomCount
};

class CcomTable {
  public:
    std::array<std::string, CcomCount> CcomNames;
    std::string strTrigger;
    bool blnCcomComments = true;

    CcomTable() { DefaultCcoms(); }
    /// An empty text outside 0 to 27.
    std::string GetCcom(int Index) const;
    bool GetCcomComments() const { return blnCcomComments; }
    const std::string& GetTrigger() const { return strTrigger; }
    /// Item k goes to index k - 1, up to the 28th; then trigger and switch take the new values. Nothing is
    /// checked.
    void SetCcoms(const Collection<std::string>& ColCcoms, const std::string& strNewTrigger,
                  bool blnComments);
    void DefaultCcoms();
};

} // namespace halyard
