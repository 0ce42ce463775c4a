#include "bridge/watch/Origins.h"

namespace halyard {

Origin Origins::Now(const Telling& telling) const {
    if (!telling.cause) return {};
    const auto& cause = telling.cause->cause;
    if (cause.kind == CauseKind::Reply)
        if (const auto found = kept.find(cause.request); found != kept.end()) return found->second;
    const bool byOp = cause.kind == CauseKind::OpLine || cause.kind == CauseKind::OpIM;
    return {cause.kind, cause.rule, byOp ? std::string(cause.who) : "", std::string(cause.entry)};
}

void Origins::Keep(std::int32_t request, const Origin& origin) {
    if (!kept.insert_or_assign(request, origin).second) return;
    order.push_back(request);
    if (order.size() <= MostKept) return;
    kept.erase(order.front());
    order.pop_front();
}

} // namespace halyard
