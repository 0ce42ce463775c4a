#include "soak/watch/PacingWatch.h"

#include "oscar/TillerSock.h"

#include <algorithm>

namespace halyard {

namespace {

// The numbers of the templates whose keys are said one by one, are dropped while a pause runs, and are said
// at once. All others are of the class whose waiting names are merged.
constexpr int oneByOne[] = {53, 57, 88, 91, 94};
constexpr int dropped[] = {3,  4,  7,  8,  11, 12, 15, 16,  19,  20,  23,  24,  27, 28, 31, 32,
                           34, 35, 38, 39, 42, 43, 45, 46,  48,  49,  50,  51,  52, 54, 55, 56,
                           58, 59, 62, 63, 66, 67, 72, 73,  76,  77,  82,  83,  86, 87, 89, 90,
                           92, 93, 95, 96, 97, 98, 99, 101, 102, 103, 116, 117, 121};
constexpr int unpaced[] = {107, 110, 111, 112, 118, 119, 120, 123};

/// Milliseconds between two lines of a class.
constexpr std::array<std::int64_t, 4> pauses{0, 8200, 8500, 11000};

template <std::size_t Size>
bool Holds(const int (&numbers)[Size], int number) {
    return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}

int ClassOf(int number) {
    if (Holds(unpaced, number)) return 0;
    if (Holds(oneByOne, number)) return 2;
    return Holds(dropped, number) ? 3 : 1;
}

/// The list of commands that "help" gives is its own template.
int ClassOf(std::string_view line) {
    if (line.starts_with("Commands: ")) return 3;
    if (line.size() < 2 || line[1] != '~' || line[0] < '1' || line[0] > '3') return 0;
    return line[0] - '0';
}

} // namespace

void MarkTemplates(TillerSock& control) {
    Collection<std::string> marked;
    int number = 0;
    for (const auto& text : control.ChatSends) {
        auto kind = ClassOf(++number);
        if (kind == 0 || text.find('~') == 1)
            marked.Add(text);
        else
            marked.Add(std::to_string(kind) + "~" + text);
    }
    control.ChatSends = std::move(marked);
}

bool PacingWatch::Heard(std::uint64_t stream, std::string_view line, std::int64_t now) {
    auto kind = static_cast<std::size_t>(ClassOf(line));
    if (kind == 0) return true;
    auto& before = last[stream][kind];
    const bool early = before != 0 && now - before < pauses[kind];
    before = now;
    return !early;
}

} // namespace halyard
