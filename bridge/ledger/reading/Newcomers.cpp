#include "bridge/ledger/reading/Newcomers.h"

namespace halyard {

std::vector<std::string> NewcomersOf(Connection& file, const std::vector<std::string>& names,
                                     std::int64_t moment) {
    std::vector<std::string> unknown;
    for (const auto& name : names) {
        // The oldest act of a person comes first by its number.
        const bool known = file.Prepare("SELECT 1 FROM persons p JOIN acts a ON a.person = p.id "
                                        "WHERE p.key = ? AND a.at < ? LIMIT 1")
                               .Bind(1, name)
                               .Bind(2, moment)
                               .Step();
        if (!known) unknown.push_back(name);
    }
    return unknown;
}

} // namespace halyard
