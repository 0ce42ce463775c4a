#pragma once

// The real database: a writer and a reader thread, each with a connection of its own to the file. Whoever
// keeps records owns it; what it is made with must outlive it.

#include "platform/sqlite/Opening.h"
#include "platform/sqlite/Worker.h"

#include <atomic>

namespace halyard {

class SqliteDatabase : public Database {
  public:
    /// Runs a function on the loop, some time after the call; called on any thread.
    using Post = std::function<void(std::function<void()>)>;
    explicit SqliteDatabase(Post post);
    ~SqliteDatabase() override;

    void Open(const DatabaseSpec& spec, Opened done) override;
    void Write(Job job, Done done) override;
    void Maintain(Job job, Done done) override;
    std::shared_ptr<ReadTicket> Read(Job job, Done done) override;

  private:
    class Answers;
    using Run = DatabaseResult (*)(SqliteConnection&, const Job&);
    void ForWriter(Run run, Job job, Done done);
    void Answer(std::uint64_t number, const DatabaseResult& result);

    Post post;
    std::shared_ptr<Answers> answers; ///< the loop's
    bool inMemory = false;            ///< the loop's: one connection for both
    std::atomic<bool> ending = false;
    // The writer's closes last: that brings the log into the file, which a reader can't.
    OpenedConnection writing; ///< the writer thread's
    OpenedConnection reading; ///< the reader thread's; the result says why it has none
    Worker writer;
    Worker reader;
};

} // namespace halyard
