#pragma once

// Whom a command means: the comma list behind the ccom, its length rule, and the names that a part of a name
// finds.

#include "base/Collection.h"
#include "commands/CommandContext.h"

#include <functional>
#include <string>
#include <vector>

namespace halyard {

struct CommandRule;

/// `text` with its first asterisk and without all others.
std::string KeepFirstAsterisk(std::string text);

/// True when an element of this length passes the row's rule.
bool LengthFits(const CommandRule& rule, const std::string& element);

/// Runs `act` for each element of the call's comma list that passes the length rule, until `act` returns
/// false. Every other element, and an empty list, gets the "invalidsize" answer in its place. Elements of ab
/// and lban lose their further asterisks first.
void ForEachTarget(const CommandContext& context, const CommandCall& call,
                   const std::function<bool(const std::string&)>& act);

/// The first name that contains `part`, case ignored; empty when none does.
std::string FirstContaining(const Collection<std::string>& names, const std::string& part);
/// Every such name, in order.
std::vector<std::string> AllContaining(const Collection<std::string>& names, const std::string& part);

} // namespace halyard
