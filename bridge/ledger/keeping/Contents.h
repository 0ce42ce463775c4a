#pragma once

// Whole contents of lists in the file: each kept once for as long as it is the same.

#include "base/News.h"
#include "platform/Database.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace halyard {

struct WholeRow {
    std::int64_t run = 0;
    std::int64_t at = 0;
    std::int64_t afterChange = 0;
    ListName list = ListName::None;
    std::int64_t room = 0; ///< 0 for none
    bool begins = false;   ///< not what the changes before lead to
};

/// `entries` are UTF-8, one a line.
void PutWhole(Connection& file, const WholeRow& whole, std::string_view entries);
/// The number of this content's row.
std::int64_t ContentId(Connection& file, std::string_view entries);

} // namespace halyard
