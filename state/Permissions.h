#pragma once

// Who may use which ccom: a text of 28 digits, one a ccom, "1" allows. The text is read by two rules, which
// agree for exactly 28 digits and differ, on purpose, for the shorter and longer texts that older files may
// hold.

#include "base/Collection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace halyard {

inline constexpr const char* DefaultPerms = "0000110011111100000000000011";
inline constexpr const char* FullPerms = "1111111111111111111111111111";

/// How a command is tested: indices 0 to 9 count from the left, 10 to 27 from the right end.
bool CommandAllowed(const std::string& strPerms, int index);
/// How the help list, the op panel and the universal permissions read: every index from the right end.
bool PermShown(const std::string& strPerms, int index);

/// The permissions by the op's name. Ops who come one after the other with equal texts share one.
class OpPermissions {
  public:
    /// False, and no change, when `name` has permissions already or is empty.
    bool Add(const std::string& strPerms, std::string_view name);
    /// False when `name` has none.
    bool Remove(std::string_view name) { return ++changes, byName.Remove(name); }
    void Clear();
    /// Another number after each change, so that who looks now and then need not compare.
    std::uint64_t Changes() const { return changes; }
    std::size_t Count() const { return byName.Count(); }
    /// Empty when `name` has none.
    const std::string& Item(std::string_view name) const;

  private:
    using Shared = std::shared_ptr<const std::string>;

    Collection<Shared> byName;
    std::uint64_t changes = 0;
    Shared last;
};

} // namespace halyard
