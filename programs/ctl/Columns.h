#pragma once

// Plain columns for people: what stands in a cell is made visible, and each column is as wide as its widest
// cell.

#include <cstddef>
#include <string>
#include <vector>

namespace halyard {

class Columns {
  public:
    /// No cell of a column but a row's last is shown wider than `widest` characters; what is cut ends with
    /// "…".
    explicit Columns(std::size_t widest = 32) : widest(widest) {}

    void Add(std::vector<std::string> cells);
    bool Empty() const { return rows.empty(); }
    /// The rows, a line each, with `indent` blanks in front.
    std::string Text(std::size_t indent = 0) const;

  private:
    std::size_t widest;
    std::vector<std::vector<std::string>> rows;
};

} // namespace halyard
