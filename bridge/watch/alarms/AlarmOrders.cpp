#include "bridge/watch/alarms/AlarmOrders.h"

namespace halyard {

namespace {

template <typename Is>
bool AnyAround(const Telling& telling, Is is) {
    for (const auto* scope = telling.cause; scope; scope = scope->outer)
        if (is(scope->cause.kind)) return true;
    return false;
}

} // namespace

bool IsOrderedByHand(const Telling& telling) {
    return AnyAround(telling, [](CauseKind kind) {
        return kind == CauseKind::Hand || kind == CauseKind::Undo || kind == CauseKind::Internal;
    });
}

bool IsOrdered(const Telling& telling) {
    return IsOrderedByHand(telling) || AnyAround(telling, [](CauseKind kind) {
               return kind == CauseKind::OpLine || kind == CauseKind::OpIM;
           });
}

} // namespace halyard
