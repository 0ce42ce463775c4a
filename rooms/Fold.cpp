#include "rooms/Fold.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace halyard {

namespace {

class Fold {
  public:
    Fold(Collection<Msgs>& queue, const std::string& strType, std::size_t templateLength, bool sameOther)
        : queue(queue), strType(strType), templateLength(templateLength), sameOther(sameOther),
          waitingCount(queue.Count()) {}

    // A pass that comes back unfinished has taken at least one entry, so this ends.
    std::optional<Msgs> Run(std::vector<std::int64_t>* numbers) {
        while (!Pass()) {
        }
        std::sort(taken.begin(), taken.end());
        if (numbers)
            for (const auto position : taken)
                numbers->push_back(queue.Item(static_cast<std::ptrdiff_t>(position)).Number);
        TakeOut();
        if (strList.empty()) return std::nullopt;
        read.TheReplacement = strList;
        return read;
    }

  private:
    /// An entry that may still be taken, or, without one, what is read over for good.
    struct Waiting {
        const Msgs* entry;
        std::size_t index;
    };

    // The position moves on after a removal, on purpose: a pass steps over the entry that slips into the gap,
    // and the next pass appends it. So three waiting names come out as first, third, second. Each pass leaves
    // at most half of what it could take, and of what it can't, one mark between: all of them together take
    // the time of one walk.
    bool Pass() {
        std::vector<Waiting> next;
        const auto keep = [&next](const Waiting& waiting) {
            if (waiting.entry || next.empty() || next.back().entry) next.push_back(waiting);
        };
        bool done = true;
        bool stepped = false;
        const auto count = first ? waitingCount : left.size();
        for (std::size_t at = 0; at < count; ++at) {
            const auto waiting = At(at);
            if (!waiting.entry || !Read(*waiting.entry)) {
                keep({nullptr, 0});
                continue;
            }
            if (!Append()) return true;
            read.TheReplacement.clear();
            taken.push_back(waiting.index + 1);
            done = false;
            if (++at == count) break;
            stepped = true;
            keep(At(at));
        }
        // Having stepped over one, the pass looks behind the end, where there is a name without letters.
        if (stepped && !Append()) return true;
        left = std::move(next);
        first = false;
        return done;
    }

    void TakeOut() {
        if (taken.size() <= FewTaken) { // the everyday case, at the front of a queue
            for (auto at = taken.rbegin(); at != taken.rend(); ++at)
                queue.Remove(static_cast<std::ptrdiff_t>(*at));
            return;
        }
        queue.RemoveIf([next = taken.begin(), end = taken.end()](std::size_t position) mutable {
            const bool goes = next != end && position == *next;
            if (goes) ++next;
            return goes;
        });
    }

    /// The first pass goes over the queue itself, of which it may need but the beginning.
    Waiting At(std::size_t at) const {
        if (first) return {&queue.Item(static_cast<std::ptrdiff_t>(at) + 1), at};
        return left[at];
    }

    // An empty second value is not remembered as the first: the next entry of the key still sets it.
    bool Read(const Msgs& entry) {
        if (entry.TheType != strType) return false;
        if (sameOther && strFirstOther.empty()) strFirstOther = entry.TheOther;
        if (sameOther && entry.TheOther != strFirstOther) return false;
        read = entry;
        return true;
    }

    // False when the name does not fit. The separators are not counted, on purpose.
    bool Append() {
        const auto& name = read.TheReplacement;
        if (strList.empty()) {
            strList = name;
            return true;
        }
        if (templateLength + name.size() + strList.size() > FoldLimit) return false;
        if (!name.empty()) strList += ", " + name;
        return true;
    }

    Collection<Msgs>& queue;
    const std::string& strType;
    const std::size_t templateLength;
    const bool sameOther;
    static constexpr std::size_t FewTaken = 40;

    const std::size_t waitingCount;
    std::vector<std::size_t> taken; // positions in the queue
    std::vector<Waiting> left;
    bool first = true;
    std::string strList;
    std::string strFirstOther;
    Msgs read;
};

} // namespace

std::optional<Msgs> FoldWaitingSends(Collection<Msgs>& queue, const std::string& strType,
                                     std::size_t templateLength, bool sameOther,
                                     std::vector<std::int64_t>* numbers) {
    return Fold(queue, strType, templateLength, sameOther).Run(numbers);
}

} // namespace halyard
