#include "surface/ControlArrays.h"

#include "base/Text.h"

namespace halyard {

int FindLine(const ListBox& list, const std::string& wanted) {
    const auto normal = NormalizeName(wanted);
    for (int index = 0; index < list.ListCount(); ++index)
        if (NormalizeName(list.List(index)) == normal) return index;
    return -1;
}

} // namespace halyard
