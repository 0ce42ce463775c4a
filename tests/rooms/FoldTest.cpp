// The fold in one walk takes what the fold as it is laid down takes, which goes over the queue again and
// again.

#include "rooms/Fold.h"

#include "platform/sim/SimRandom.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace halyard {
namespace {

std::optional<Msgs> FoldStepByStep(Collection<Msgs>& queue, const std::string& type, std::size_t length,
                                   bool sameOther) {
    std::string names, firstOther;
    Msgs read;
    for (bool done = false; !done;) {
        done = true;
        const auto count = static_cast<std::ptrdiff_t>(queue.Count());
        for (std::ptrdiff_t i = 1; i <= count; ++i) {
            if (i <= static_cast<std::ptrdiff_t>(queue.Count())) {
                const auto entry = queue.Item(i);
                if (entry.TheType != type) continue;
                if (sameOther && firstOther.empty()) firstOther = entry.TheOther;
                if (sameOther && entry.TheOther != firstOther) continue;
                read = entry;
            }
            const auto& name = read.TheReplacement;
            done = !names.empty() && length + name.size() + names.size() > FoldLimit;
            if (done) break;
            names += names.empty() || name.empty() ? name : ", " + name;
            read.TheReplacement.clear();
            done = queue.Count() < 1;
            if (done) break;
            queue.Remove(i);
        }
    }
    if (names.empty()) return std::nullopt;
    read.TheReplacement = names;
    return read;
}

std::string Shown(const Msgs& send) {
    return send.TheType + "|" + send.TheReplacement + "|" + send.TheOther + "|" + send.TheMessage + "; ";
}
std::string Shown(const Collection<Msgs>& queue) {
    std::string all;
    for (const auto& send : queue) all += Shown(send);
    return all;
}

TEST(Fold, TakesWhatStepsWouldTake) {
    SimRandom chance(5);
    for (int round = 0; round < 3000; ++round) {
        Collection<Msgs> queue;
        const auto size = chance.Between(0, 40);
        const auto kinds = chance.Between(1, 3);
        for (int entry = 0; entry < size; ++entry) {
            const auto number = std::to_string(entry);
            const std::string type = chance.Between(1, kinds) == 1 ? "ab" : "op";
            const std::string name = chance.Between(0, 4) == 0 ? "" : "name" + number;
            const std::string other = chance.Between(0, 2) == 0 ? "" : std::to_string(chance.Between(1, 2));
            queue.Add({type, "%p", name, "text" + number, other, "msg1", 0});
        }
        auto steps = queue;
        const bool same = chance.Between(0, 1) == 1;
        const auto length = static_cast<std::size_t>(chance.Between(0, 220));
        const auto wanted = FoldStepByStep(steps, "ab", length, same);
        const auto folded = FoldWaitingSends(queue, "ab", length, same);
        ASSERT_EQ(folded ? Shown(*folded) : "none", wanted ? Shown(*wanted) : "none") << round;
        ASSERT_EQ(Shown(queue), Shown(steps)) << round;
    }
}

} // namespace
} // namespace halyard
