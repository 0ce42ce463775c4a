#include "base/Cause.h"

#include "base/News.h"

namespace halyard {

// Here and not in the header, where the compiler would take what the destructor undoes for a dangling
// pointer.
CauseScope::CauseScope(Telling& telling, const Cause& cause)
    : cause(cause), outer(telling.cause), telling(telling) {
    telling.cause = this;
}

CauseScope::~CauseScope() {
    if (telling.news && !outer) telling.news->CauseEnded(*this);
    telling.cause = outer;
}

} // namespace halyard
