#pragma once

// Lines of a table that come anew again and again: what stays the same stays where it is, chosen and unmoved.

#include "platform/Table.h"

#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

class LiveTable {
  public:
    /// `box` outlives it.
    explicit LiveTable(TableBox& box) : box(box) {}
    /// `keys` name the lines, one each. The chosen line stays chosen as long as its key is among them.
    void Show(const std::vector<std::string>& keys, std::vector<TableBox::Line> lines);

  private:
    TableBox& box;
    std::vector<std::string> shown;
};

} // namespace halyard
