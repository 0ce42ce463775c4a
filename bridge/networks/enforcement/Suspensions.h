#pragma once

// Accounts that are suspended for us, and lifted only when we know that we had them suspended. Enforcement
// owns the one.

#include "bridge/networks/enforcement/EnforcementRecord.h"
#include "bridge/networks/enforcement/ManagementLine.h"

#include <functional>
#include <string>

namespace halyard {

class Suspensions {
  public:
    Suspensions(ManagementLine& line, EnforcementRecord& record, std::function<void(const std::string&)> tell)
        : line(line), record(record), tell(std::move(tell)) {}

    /// The management's base URL, which names are kept under.
    void SetPlace(const std::string& base) { at = base; }
    void Suspend(const std::string& name);
    /// Nothing for an account that we didn't have suspended.
    void Lift(const std::string& name);

  private:
    void Ask(const std::string& name, bool suspended, const std::function<void(const HttpAnswer&)>& done);

    ManagementLine& line;
    EnforcementRecord& record;
    std::function<void(const std::string&)> tell;
    std::string at;
};

} // namespace halyard
