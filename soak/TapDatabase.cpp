#include "soak/TapDatabase.h"

#include <utility>

#ifdef HALYARD_SQLITE
#include "platform/sqlite/InlineDatabase.h"
#endif

namespace halyard {

#ifdef HALYARD_SQLITE

namespace {

class TapDatabase : public Database {
  public:
    TapDatabase(DatabaseTap& tap, std::shared_ptr<Database> file) : tap(tap), file(std::move(file)) {}

    void Open(const DatabaseSpec& spec, Opened done) override {
        if (spec.path.ends_with("ledger.db")) tap.file = file;
        auto inMemory = spec;
        inMemory.path.clear();
        file->Open(inMemory, std::move(done));
    }
    void Write(Job job, Done done) override {
        // Rows that were written first and didn't stay must be forgotten by whoever wrote them.
        const auto failing = [this, job = std::move(job)](Connection& connection) {
            job(connection);
            connection.Fail(tap.fault, "The disk says no.");
        };
        const auto told = [this, done = std::move(done)](const DatabaseResult& result) {
            tap.written = tap.written || result.Ok();
            if (done) done(result);
        };
        file->Write(failing, told);
    }
    void Maintain(Job job, Done done) override { file->Maintain(std::move(job), std::move(done)); }
    std::shared_ptr<ReadTicket> Read(Job job, Done done) override {
        return file->Read(std::move(job), std::move(done));
    }

  private:
    DatabaseTap& tap;
    std::shared_ptr<Database> file;
};

} // namespace

std::function<std::unique_ptr<Database>()> TappedDatabases(DatabaseTap& tap) {
    return [&tap] { return std::make_unique<TapDatabase>(tap, std::make_shared<InlineDatabase>()); };
}

#else

std::function<std::unique_ptr<Database>()> TappedDatabases(DatabaseTap& /*tap*/) { return nullptr; }

#endif

void DatabaseTap::Read(const Database::Job& job) const {
    if (file) file->Read(job, nullptr);
}

std::size_t DatabaseTap::Bytes() const {
    constexpr std::size_t pageBytes = 4096 + 256;
    std::size_t pages = 0;
    Read([&](Connection& connection) {
        auto& count = connection.Prepare("PRAGMA page_count");
        pages = count.Step() ? static_cast<std::size_t>(count.Integer(0)) : 0;
        count.Reset();
    });
    return pages * pageBytes;
}

} // namespace halyard
