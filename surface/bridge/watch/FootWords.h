#pragma once

// What the foot line says of the bot in six words, each with how good that is.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace halyard {

class Truth;
struct AwaitedRoom;

struct FootField {
    enum class Level { Plain, Good, Care, Bad } level = Level::Plain;
    std::string words;
};

inline constexpr std::size_t FootFields = 6;

enum class LedgerState { None, Kept, NotWritten };

/// Connection, rooms, rates, waiting, ledger, alarms. `now` as Platform::Milliseconds; `alarms` is how many
/// ring.
std::array<FootField, FootFields> FootWords(const Truth& truth, std::int64_t now, LedgerState ledger,
                                            std::size_t alarms);

/// Whether an awaited room stands among those that were asked for, refused or lost.
bool IsAbsent(const Truth& truth, const AwaitedRoom& room);

/// When the words will be others although nothing is told: the next moment at which a stage becomes stuck;
/// -1 for never.
std::int64_t NextStuck(const Truth& truth, std::int64_t now);

} // namespace halyard
