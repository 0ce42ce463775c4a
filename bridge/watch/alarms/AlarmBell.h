#pragma once

// Where whoever finds something wrong says so. The bell decides whether it rings: what is raised again while
// it stands counts once, and each kind may be turned off.

#include "bridge/watch/alarms/AlarmKinds.h"

#include <string>

namespace halyard {

class AlarmBell {
  public:
    virtual ~AlarmBell() = default;

    /// Something is wrong with `subject`, such as a room's name or an entry; empty for the bot as a whole. To
    /// be said again as often as it is found so; `words` say it to a person. Texts are Windows-1252.
    virtual void Raise(AlarmKind kind, const std::string& subject, const std::string& words) = 0;
    /// It is over. Nothing where it wasn't raised.
    virtual void End(AlarmKind kind, const std::string& subject, const std::string& words) = 0;
};

} // namespace halyard
