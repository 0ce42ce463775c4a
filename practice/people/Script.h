#pragma once

// What the people of the practice rooms do, as a text that a test and a demonstration share, a line a thing:
//
//     # a remark
//     room myroom               begins a scene; everything below belongs to it
//     exchange 4                4 without this line
//     owner roomboss            without this line whoever first asks for the room owns it
//     max 30                    people at most
//     here alice, bob           are in before the clock runs
//     clock start               seconds count from the beginning; without it from the first client's entry
//     repeat 120                after so many seconds everything begins again
//     0 guest%n enters          "%n" is the number of the round, from 1
//     5 alice says hello everyone
//     12.5 roomboss says ban bob
//     20 carol ims HalyardBot 1:status
//     25 roomboss bans bob      and "unbans"; only an owner is obeyed
//     30 bob leaves
//     40 network limits HalyardBot 5      a rate class; also "warns" and "clears"
//     50 network migrates HalyardBot      also "pauses", "resumes", "drops"
//     60 network fills room               until nobody else fits in; "closes room" puts everyone out
//
// Names may hold blanks, except behind "ims".

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

enum class ScriptVerb {
    Enters,
    Leaves,
    Says,
    Ims,
    Bans,
    Unbans,
    Limits,
    Warns,
    Clears,
    Pauses,
    Resumes,
    Migrates,
    Drops,
    Fills,
    Closes
};

struct ScriptLine {
    std::int64_t milliseconds; ///< on the scene's clock
    ScriptVerb verb;
    std::string who;
    std::string target; ///< whom it is done to, empty for enters, leaves and says
    std::string text;   ///< what is said, or the rate class
};

struct Scene {
    std::string room;
    int exchange = 4;
    std::string owner;
    int maxPeople = 0; ///< 0 leaves it as rooms are
    bool fromStart = false;
    std::int64_t repeat = 0; ///< ms, 0 for once
    std::vector<std::string> here;
    std::vector<ScriptLine> lines; ///< in order of time, and of the text within one moment
};

struct Script {
    std::vector<Scene> scenes;
};

/// Nothing for a text that cannot be read; `problem` then tells why and in which line.
std::optional<Script> ParseScript(std::string_view text, std::string& problem);

} // namespace halyard
