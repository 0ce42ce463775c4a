#include "bridge/networks/enforcement/Suspensions.h"

#include "bridge/networks/enforcement/ManagementWords.h"

#include <utility>

namespace halyard {

/// Kept before it is asked for: what the service did is then never forgotten, whatever happens meanwhile.
void Suspensions::Suspend(const std::string& name) {
    if (!record.AddSuspension(name, at))
        return tell(name + "'s account was not suspended: that can't be kept");
    Ask(name, true, [this, name, base = at](const HttpAnswer& answer) {
        if (answer.IsGood()) return tell(name + "'s account was suspended; unban lifts it");
        if (answer.status != 0) record.RemoveSuspension(name, base);
        tell(name +
             (answer.status != 0 ? "'s account was not suspended: "
                                 : "'s account may be suspended, and unban lifts it: ") +
             WordsOf(answer));
    });
}

void Suspensions::Lift(const std::string& name) {
    if (!record.IsSuspended(name, at)) return;
    Ask(name, false, [this, name, base = at](const HttpAnswer& answer) {
        const bool lifted = answer.IsGood() || answer.status == 404;
        if (lifted) record.RemoveSuspension(name, base);
        tell(name + (lifted ? "'s account is no longer suspended"
                            : "'s account is still suspended: " + WordsOf(answer)));
    });
}

void Suspensions::Ask(const std::string& name, bool suspended,
                      const std::function<void(const HttpAnswer&)>& done) {
    ManagementCall call{.method = "PATCH", .path = AccountPath(name), .body = SuspensionBody(suspended)};
    call.done = done;
    if (!line.Add(std::move(call))) done({0, {}, "too many requests wait"});
}

} // namespace halyard
