#pragma once

// Why the desk does what it does. Whoever begins something says so for as long as it lasts by a CauseScope;
// what is told meanwhile has the innermost open scope as its one cause, and that one knows the scope around
// it. Scopes cost a few stores, whether somebody listens or not: nothing is copied until a listener wants to
// keep it.

#include <cstdint>
#include <string_view>

namespace halyard {

class CauseScope;
class News;

// The numbers of the next two stand in files: new ones come behind the last.
enum class CauseKind {
    Unknown,  ///< no scope was open
    OpLine,   ///< an op's command in a room
    OpIM,     ///< an op's command by instant message
    Internal, ///< a command of the operator's internal box
    Rule,     ///< something that the bot was told to act on by itself
    Hand,     ///< the operator's, on a control of the desk
    Load,     ///< a file that is read
    Timer,    ///< a time that is over
    Reply,    ///< the service's yes to a request; the act asked for then has the cause of that request
    Service,  ///< what came from the service otherwise
    Undo,     ///< the operator takes acts back
    Answer,   ///< the bridge answers an instant message
    Guard,    ///< a guard; the entry is its name
};

/// Which of the desk's own rules a cause of kind Rule is.
enum class RuleKind { None, Autoban, Autoword, Ghost, ICQ, Chars, Lock };

/// Texts are Windows-1252 and outlive the scope unchanged.
struct Cause {
    CauseKind kind = CauseKind::Unknown;
    RuleKind rule = RuleKind::None;
    std::int16_t room = 0;      ///< socket slot of where it was said, 0 for nowhere
    std::int32_t request = 0;   ///< the request id, of a Reply
    std::string_view who = {};  ///< the op, or whom the rule met, as the wire spells them
    std::string_view line = {}; ///< what was said, before anything was taken from it; empty when nothing was
    std::string_view reason = {}; ///< what stands behind a command's comment mark
    std::string_view entry = {};  ///< the list's entry that matched, the control's name, the file's path
};

/// Through which the desk tells its facts. The control owns the one; who tells holds a reference.
struct Telling {
    News* news = nullptr;        ///< hears everything but the two below; null for nobody
    News* frames = nullptr;      ///< hears News::Frame
    News* lines = nullptr;       ///< hears News::LineHeard
    CauseScope* cause = nullptr; ///< the innermost that is open
    std::int64_t lineNumber = 0; ///< the number given out last to a waiting line
};

/// Lives on the stack.
class CauseScope {
  public:
    CauseScope(Telling& telling, const Cause& cause);
    ~CauseScope();
    CauseScope(const CauseScope&) = delete;
    CauseScope& operator=(const CauseScope&) = delete;

    const Cause cause;
    CauseScope* const outer; ///< null for none
    std::int64_t number = 0; ///< the listener's own, 0 until it has given one

  private:
    Telling& telling;
};

/// What comes from the wire or a clock while a box of the operator's is open has no part in the hand that
/// opened it: scopes that are open are set aside until this one ends.
class CauseBreak {
  public:
    explicit CauseBreak(Telling& telling) : telling(telling), aside(telling.cause) {
        telling.cause = nullptr;
    }
    ~CauseBreak() { telling.cause = aside; }
    CauseBreak(const CauseBreak&) = delete;
    CauseBreak& operator=(const CauseBreak&) = delete;

  private:
    Telling& telling;
    CauseScope* aside;
};

} // namespace halyard
