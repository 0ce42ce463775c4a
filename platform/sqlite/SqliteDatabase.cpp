#include "platform/sqlite/SqliteDatabase.h"

#include "platform/sqlite/Jobs.h"

#include <future>
#include <map>

namespace halyard {

/// What is still to be answered. It stays on the loop; the threads know the numbers alone.
class SqliteDatabase::Answers {
  public:
    std::uint64_t Keep(Done done) {
        waiting.emplace(++last, std::move(done));
        return last;
    }
    void Give(std::uint64_t number, const DatabaseResult& result) {
        const auto given = waiting.extract(number);
        if (given && given.mapped()) given.mapped()(result);
    }

  private:
    std::map<std::uint64_t, Done> waiting;
    std::uint64_t last = 0;
};

SqliteDatabase::SqliteDatabase(Post post)
    : post(std::move(post)), answers(std::make_shared<Answers>()), writer([this] {
          if (writing.connection) writing.connection->Checkpoint(true);
      }) {
    for (auto* each : {&writing, &reading})
        each->result = {DatabaseFault::Failed, "The database was not opened."};
}

SqliteDatabase::~SqliteDatabase() {
    // Reads are not run any more, or end at their next look. The reader may be waiting for the writer's
    // opening.
    ending = true;
    writer.Finish();
    reader.Finish();
}

void SqliteDatabase::Answer(std::uint64_t number, const DatabaseResult& result) {
    post([held = std::weak_ptr(answers), number, result] {
        if (const auto standing = held.lock()) standing->Give(number, result);
    });
}

void SqliteDatabase::Open(const DatabaseSpec& spec, Opened done) {
    inMemory = spec.path.empty();
    const auto outcome = std::make_shared<OpenOutcome>(OpenOutcome::Failed);
    const auto number = answers->Keep([outcome, done = std::move(done)](const DatabaseResult& result) {
        if (done) done(*outcome, result.words);
    });
    const auto opened = std::make_shared<std::promise<DatabaseResult>>();
    writer.Add([this, spec, outcome, opened, number] {
        writing = OpenConnection(spec, OpenMode::ReadWrite);
        *outcome = writing.outcome;
        const auto result = writing.result;
        opened->set_value(result);
        Answer(number, result);
    });
    reader.Add([this, spec, begun = opened->get_future().share()] {
        reading.result = begun.get();
        if (reading.result.Ok() && !spec.path.empty()) reading = OpenConnection(spec, OpenMode::ReadOnly);
    });
}

void SqliteDatabase::ForWriter(Run run, Job job, Done done) {
    const auto number = answers->Keep(std::move(done));
    writer.Add([this, run, job = std::move(job), number]() mutable {
        const auto result = writing.connection ? run(*writing.connection, job) : writing.result;
        job = nullptr;
        Answer(number, result);
    });
}

void SqliteDatabase::Write(Job job, Done done) { ForWriter(RunWrite, std::move(job), std::move(done)); }

void SqliteDatabase::Maintain(Job job, Done done) { ForWriter(RunMaintain, std::move(job), std::move(done)); }

std::shared_ptr<ReadTicket> SqliteDatabase::Read(Job job, Done done) {
    auto ticket = std::make_shared<ReadTicket>();
    const auto number = answers->Keep(std::move(done));
    auto& source = inMemory ? writing : reading;
    (inMemory ? writer : reader).Add([this, &source, job = std::move(job), ticket, number]() mutable {
        auto result = source.result;
        if (source.connection)
            result =
                RunRead(*source.connection, job, [this, &ticket] { return ending || ticket->Cancelled(); });
        job = nullptr;
        Answer(number, result);
    });
    return ticket;
}

} // namespace halyard
