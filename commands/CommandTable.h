#pragma once

// What distinguishes the 28 commands: their answers, the lengths they take, the options they look at, and who
// carries them out. The rows stand in the order of the ccom indices.

#include "commands/CommandContext.h"
#include "state/CcomTable.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace halyard {

/// One act on a list for one name; the number is the position of the room to reply to.
using ListAct = void (*)(ListWorkers& lists, const std::string& name, std::int16_t intChatColIndex);
using Branch = void (*)(const CommandContext& context, const CommandCall& call);

inline constexpr int NoOption = -1;
inline constexpr std::size_t AnyLength = std::string::npos;

struct CommandRule {
    int noperm; ///< chatsend when the digit is missing
    int size;   ///< chatsend of "invalidsize"; 0 when there is none
    std::size_t
        longest; ///< of an element; the shortest is 2 everywhere, and what has no elements looks at neither
    int partial; ///< subscript of PartialOn, or NoOption
    int chain;   ///< subscript of ChainOn, or NoOption
    ListAct act; ///< of a list command
    Branch branch;
};

/// The row of a ccom index, 0 to 27.
const CommandRule& RuleOf(int index);

/// Which command a line is: the index of its ccom and what stands behind it.
struct ParsedCommand {
    static constexpr int Help = CcomCount; ///< a fixed word, no ccom
    static constexpr int None = -1;
    int index = None;
    std::string rest;
    bool operator==(const ParsedCommand&) const = default;
};

/// The first ccom in index order that begins the text wins: there is no separator, so "opal" is op with "al".
/// A text that begins with no ccom may still begin with "help".
ParsedCommand ParseCommand(const CcomTable& ccoms, const std::string& strCommand);

} // namespace halyard
