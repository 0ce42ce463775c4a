#pragma once

// What an op did, day by day, and who else did something. The window Ledger owns the one.

#include "bridge/ledger/reading/Views.h"
#include "platform/Table.h"
#include "surface/bridge/ledger/LedgerQuestion.h"

#include <functional>
#include <string>
#include <vector>

namespace halyard {

class Platform;

class OpPane {
  public:
    static constexpr int Days = 365; ///< that are counted

    /// Both outlive it.
    OpPane(Platform& platform, const LedgerRead& read);

    Frame FrameOp{"FrameOp", "Op"};
    TextBox txtOp{"txtOp"}; ///< read only
    TableBox tblOps{"tblOps", {{"Op", 0}, {"Acts", 9}, {"Last", 11}}};

    /// Another op is to be looked at: row of persons, and the name (UTF-8).
    std::function<void(std::int64_t row, const std::string& name)> onGo;
    /// `row` of persons, or when that is 0 whoever has the name (UTF-8); nobody for an empty one.
    void Show(std::int64_t row, const std::string& name);

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameOp), visit(txtOp), visit(tblOps);
    }

  private:
    Platform& platform;
    LedgerQuestion question;
    std::vector<ActsOf> ops; ///< as listed
};

/// A line of a table whose columns are name, acts, and the last of them.
TableBox::Line ActsLine(const ActsOf& one);

} // namespace halyard
