#pragma once

// A database that answers at once, on the caller: for simulated worlds and tests, in memory or on a file.
// Whoever keeps records owns it.

#include "platform/sqlite/Opening.h"

namespace halyard {

class InlineDatabase : public Database {
  public:
    InlineDatabase();

    void Open(const DatabaseSpec& spec, Opened done) override;
    void Write(Job job, Done done) override;
    void Maintain(Job job, Done done) override;
    std::shared_ptr<ReadTicket> Read(Job job, Done done) override;

  private:
    OpenedConnection opened;
};

} // namespace halyard
