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

/// Every name that contains `part`, case ignored, in order.
std::vector<std::string> AllContaining(const Collection<std::string>& names, const std::string& part);

/// Whom a part of a name means.
struct Meant {
    std::vector<std::string> names; ///< in order
    bool passedOver = false;        ///< somebody fits, but nobody whom a part may hit
    std::string First() const { return names.empty() ? std::string() : names.front(); }
};
/// Those of `names` that contain the part. With Departure::NamesMeanPersons the whole name alone, where it is
/// among them.
Meant MeantBy(const CommandContext& context, const CommandCall& call, const Collection<std::string>& names,
              const std::string& part);
/// The same of the people in the call's room, for something that is done to them: with that departure a part
/// hits no op, no immune and not the bot, and an op whose part hits nobody else is told of.
Meant PeopleMeantBy(const CommandContext& context, const CommandCall& call, const std::string& part);

} // namespace halyard
