#pragma once

// Who may use which ccom: a text of 28 digits, one a ccom, "1" allows. The text is read by two rules, which
// agree for exactly 28 digits and differ, on purpose, for the shorter and longer texts that older files may
// hold.

#include <string>

namespace halyard {

inline constexpr const char* DefaultPerms = "0000110011111100000000000011";
inline constexpr const char* FullPerms = "1111111111111111111111111111";

/// How a command is tested: indices 0 to 9 count from the left, 10 to 27 from the right end.
bool CommandAllowed(const std::string& strPerms, int index);
/// How the help list, the op panel and the universal permissions read: every index from the right end.
bool PermShown(const std::string& strPerms, int index);

} // namespace halyard
