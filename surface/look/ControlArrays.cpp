#include "surface/look/ControlArrays.h"

#include "base/Text.h"

namespace halyard {

int FindLine(const ListBox& list, const std::string& wanted) {
    for (int index = 0; index < list.ListCount(); ++index)
        if (SameName(list.List(index), wanted)) return index;
    return -1;
}

} // namespace halyard
