#include "programs/ctl/Columns.h"

#include "bridge/ledger/reading/Visible.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

bool Begins(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }

/// Characters of a valid UTF-8 text.
std::size_t Width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), Begins));
}

std::string Cut(const std::string& text, std::size_t characters) {
    if (Width(text) <= characters) return text;
    std::size_t bytes = 0;
    for (std::size_t seen = 0; bytes < text.size(); ++bytes)
        if (Begins(text[bytes]) && ++seen == characters) break;
    return text.substr(0, bytes) + "\xE2\x80\xA6";
}

} // namespace

void Columns::Add(std::vector<std::string> cells) {
    for (auto& cell : cells) {
        cell = Visible(cell);
        if (&cell != &cells.back()) cell = Cut(cell, widest);
    }
    rows.push_back(std::move(cells));
}

std::string Columns::Text(std::size_t indent) const {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column + 1 < row.size(); ++column)
            widths[column] = std::max(widths[column], Width(row[column]));
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line(indent, ' ');
        for (std::size_t column = 0; column < row.size(); ++column) {
            line += row[column];
            if (column + 1 < row.size()) line.append(widths[column] - Width(row[column]) + 2, ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

} // namespace halyard
