#include "rooms/Fold.h"

namespace halyard {

namespace {

class Fold {
  public:
    Fold(Collection<Msgs>& queue, const std::string& strType, std::size_t templateLength, bool sameOther)
        : queue(queue), strType(strType), templateLength(templateLength), sameOther(sameOther) {}

    // A pass that comes back unfinished has taken at least one entry, so this ends.
    std::optional<Msgs> Run() {
        while (!Pass()) {
        }
        if (strList.empty()) return std::nullopt;
        read.TheReplacement = strList;
        return read;
    }

  private:
    // The count is taken once and the position moves on after a removal, on purpose: a pass steps over the
    // entry that slips into the gap, and the next pass appends it. So three waiting names come out as first,
    // third, second.
    bool Pass() {
        bool done = true;
        const auto count = queue.Count();
        for (std::size_t i = 1; i <= count; ++i) {
            if (i <= queue.Count() && !Read(queue.Item(static_cast<std::ptrdiff_t>(i)))) continue;
            if (!Append()) return true;
            read.TheReplacement.clear();
            if (queue.Count() < 1) return true;
            // Behind the end nothing was read and nothing is removed; what moved the end has cleared `done`
            // before.
            queue.Remove(static_cast<std::ptrdiff_t>(i));
            done = false;
        }
        return done;
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
    std::string strList;
    std::string strFirstOther;
    Msgs read;
};

} // namespace

std::optional<Msgs> FoldWaitingSends(Collection<Msgs>& queue, const std::string& strType,
                                     std::size_t templateLength, bool sameOther) {
    return Fold(queue, strType, templateLength, sameOther).Run();
}

} // namespace halyard
