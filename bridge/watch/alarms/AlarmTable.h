#pragma once

// The table [alarms] of bridge.toml: where alarms ring, and a table of its own for each kind that isn't as it
// is without one.

#include "bridge/TomlFields.h"
#include "bridge/watch/alarms/AlarmTerms.h"

#include <string>

namespace halyard {

/// What is wrong is told and left as it is without one.
AlarmTerms ReadAlarms(const TomlValue& table, TomlMistakes& mistakes);
/// The text that reads back as `terms`.
std::string AlarmsText(const AlarmTerms& terms);
/// False for what couldn't be read back.
bool MayBeAlarms(const AlarmTerms& terms);

} // namespace halyard
