#pragma once

#include "platform/sqlite/InlineDatabase.h"

namespace halyard {

/// For the simulated world, whose paths are none of the machine's.
class MemoryDatabase : public InlineDatabase {
  public:
    void Open(const DatabaseSpec& spec, Opened done) override {
        auto inMemory = spec;
        inMemory.path.clear();
        InlineDatabase::Open(inMemory, std::move(done));
    }
};

} // namespace halyard
