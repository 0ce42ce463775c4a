#pragma once

// Every option that goes to the settings file, in the order of its lines. One row ties an option's key,
// variable, control and default together; the window's click handlers, the defaults, the writer and the
// reader all work on these rows. An option with rules of its own has a row of functions instead.

#include "rooms/ChatSends.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace halyard {

class CheckBox;
class ListWorkers;
class Options;
class TextBox;
class TextLines;
struct OptionControls;

/// How a flag's line of a file reaches its variable and its box. To check is to give the box the value as an
/// integer, which runs the click handler; anything but 0 and 1 leaves the box as it is.
enum class FlagReading {
    Check,
    SetThenCheck,
    CheckThenSet,
    TruthThenCheck, ///< any number but 0 sets the variable
    Set,            ///< the box keeps showing the default, on purpose
    SetTruth,
};

/// The part of NewSettings that puts an option back.
enum class Reset {
    None, ///< left alone, or put back by code of its own
    Account,
    SignOn,
    Rooms,
    Autobans,
    Commands,
    Speech,
    Files,
    User,
    Font,
    Permissions,
};

struct FlagOption {
    const char* key;
    bool& (*variable)(Options&);
    CheckBox* (*box)(OptionControls&); ///< null: no check box of the main window shows it
    bool byDefault;
    Reset reset;
    FlagReading reading;
    void (Options::*setter)(bool) = nullptr; ///< null: the variable is stored and nothing else happens
    bool Options::*needs = nullptr; ///< the line counts only while this is on; the box is enabled then
    bool writesBox = false;         ///< the file shows the box, not the variable
};

struct TextOption {
    const char* key;
    std::string (*get)(Options&); ///< what the file shows
    void (*set)(Options&, const std::string&);
    const char* byDefault;
    Reset reset;
    std::size_t shortest = 0; ///< a line counts only with a text from here...
    std::size_t longest = std::numeric_limits<std::size_t>::max(); ///< ...to here
    TextBox* (*enabledBox)(OptionControls&) = nullptr;             ///< enabled when a line counts
    bool Options::*needs = nullptr;
};

/// Names, one a line.
struct ListOption {
    const char* key;
    void (*write)(Options&, TextLines&, const std::string& head);
    void (ListWorkers::*add)(const std::string&, std::int16_t);
};

/// What a reading of a settings file works on.
struct SettingsReading {
    Options& options;
    ListWorkers& lists;
    std::array<std::string, ChatSendCount>& chatSends; ///< by index, put back at the end of the file
};

struct SpecialOption {
    const char* key;
    void (*write)(Options&, TextLines&);
    /// `line` is the whole line, `value` what stands behind its first colon.
    void (*read)(SettingsReading&, std::string_view line, const std::string& value);
};

using Option = std::variant<FlagOption, TextOption, ListOption, SpecialOption>;

std::span<const Option> OptionTable();

/// The rows with rules of their own, defined in SpecialOptions.cpp.
namespace special {
extern const SpecialOption op, ablevel, charbannum, unratepause, banpause, bold, italics, underline, strike,
    ccom, chatsend;
}

/// Through the option's setter.
void SetFlag(Options& options, const FlagOption& flag, bool value);

} // namespace halyard
