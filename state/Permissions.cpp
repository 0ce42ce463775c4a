#include "state/Permissions.h"

#include "state/CcomTable.h"

namespace halyard {

namespace {

/// True for a "1" at `position`, from 1. Positions outside the text, 0 and below too, refuse.
bool DigitAllows(const std::string& strPerms, long position) {
    return position >= 1 && position <= static_cast<long>(strPerms.size()) &&
           strPerms[static_cast<std::size_t>(position - 1)] == '1';
}

bool IsCcom(int index) { return index >= 0 && index < CcomCount; }

} // namespace

bool CommandAllowed(const std::string& strPerms, int index) {
    // The first ten digits count from the left whatever the length: older files' permissions depend on it.
    if (index >= CcomOp && index <= CcomBan) return DigitAllows(strPerms, index + 1);
    return PermShown(strPerms, index);
}

bool PermShown(const std::string& strPerms, int index) {
    return IsCcom(index) &&
           DigitAllows(strPerms, static_cast<long>(strPerms.size()) - (CcomCount - 1) + index);
}

bool OpPermissions::Add(const std::string& strPerms, std::string_view name) {
    if (name.empty()) return false;
    ++changes;
    if (!last || *last != strPerms) last = std::make_shared<const std::string>(strPerms);
    return byName.Add(last, name);
}

void OpPermissions::Clear() {
    ++changes;
    byName.Clear();
    last.reset();
}

const std::string& OpPermissions::Item(std::string_view name) const {
    static const std::string none;
    const auto& found = byName.Item(name);
    return found ? *found : none;
}

} // namespace halyard
