#pragma once

// What is kept record by record: one file in transactions, worked on by jobs beside the message loop. Whoever
// keeps records owns one Database and hands it jobs. The real one stands in platform/sqlite.

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

/// A cursor over one prepared SQL text. Texts are UTF-8. Positions of Bind count from 1, columns from 0, as
/// SQLite does; a position that the text doesn't have fails the connection, a column that the row doesn't
/// have is null. Lives as long as the job that asked for it.
class Statement {
  public:
    virtual ~Statement() = default;

    virtual Statement& Bind(int position, std::int64_t number) = 0;
    virtual Statement& Bind(int position, std::string_view text) = 0;
    virtual Statement& BindBlob(int position, std::string_view bytes) = 0;
    virtual Statement& BindNull(int position) = 0;

    /// True: a row stands. False at the end, when the job was cancelled, or when the step failed (then the
    /// connection is failed); it stays false until Reset.
    virtual bool Step() = 0;
    /// Back to before the first row. Also clears what was bound.
    virtual void Reset() = 0;

    /// Of the row that stands: 0 or an empty text where there is none, where it is null, or where what is
    /// there can't be read so.
    virtual std::int64_t Integer(int column) const = 0;
    virtual std::string Text(int column) const = 0;
    virtual std::string Blob(int column) const = 0;
    virtual bool IsNull(int column) const = 0;
};

enum class DatabaseFault {
    None,
    Full,        ///< the disk
    Locked,      ///< by another program, for longer than one waits
    NotWritable, ///< file or folder, or a job of Read that tried to write
    Damaged,     ///< put aside at the next opening
    Newer,       ///< a file that only a newer program understands
    Failed,      ///< everything else: a wrong text, a constraint, the disk itself, a database that isn't open
    Cancelled,
};

struct DatabaseResult {
    DatabaseFault fault = DatabaseFault::None;
    std::string words; ///< what happened, for people; empty with None
    bool Ok() const { return fault == DatabaseFault::None; }
};

/// What a job works on: one open file. The first failing step makes the connection failed: every later step
/// has no effect until the job ends, and its transaction is rolled back. So a job reads as if nothing could
/// fail.
class Connection {
  public:
    virtual ~Connection() = default;

    /// Kept by its text and handed out reset; to use the same text again inside the loop over its rows is a
    /// mistake. With values in the text instead of bound each would be kept: bind them.
    virtual Statement& Prepare(std::string_view sql) = 0;
    /// One or several statements; rows are passed over. False when the connection is failed.
    virtual bool Execute(std::string_view sql) = 0;
    /// The number of the row that was inserted last, by this connection.
    virtual std::int64_t LastRow() = 0;
    /// How many rows the last INSERT, UPDATE or DELETE changed.
    virtual std::int64_t Changes() = 0;

    virtual bool Failed() const = 0;
    virtual const DatabaseResult& Result() const = 0;
    /// For what the job itself finds wrong. The first failure stays; None is none.
    virtual void Fail(DatabaseFault fault, const std::string& words) = 0;
    /// Steps look at it by themselves, between rows and in long ones; for a job that works between its steps.
    virtual bool Cancelled() const = 0;
};

struct DatabaseSpec {
    /// Windows-1252 as in Files.h. Empty: in memory. Folders that are missing are made, for the owner alone.
    std::string path;
    /// What makes a file one of ours, in its header; others are left alone.
    std::int32_t applicationId = 0;
    /// One SQL text a version, oldest first: a file of version n lacks those from index n on. They are never
    /// changed once a release had them.
    std::vector<std::string> migrations;
    /// Names of tables that a whole file has.
    std::vector<std::string> tables;
    /// Seconds since 1970, for the dates in the names of copies and of what is put aside.
    std::int64_t calendarSeconds = 0;
    /// The name of a registered file layer of SQLite's; empty: the machine's.
    std::string vfs;
};

enum class OpenOutcome {
    Created,
    Opened,
    Upgraded, ///< a copy as it was lies beside it, "ledger.db.v3-2026-11-24", for 30 days
    Damaged,  ///< a new one was begun; the damaged one lies beside it, "ledger.db.damaged-2026-11-24"
    // Nothing is open from here on, and the file is as it was.
    Newer,
    Foreign, ///< another program's
    Locked,
    Failed, ///< a failed migration too, which is never counted as damage
};
constexpr bool IsOpen(OpenOutcome outcome) { return outcome < OpenOutcome::Newer; }

/// Held by whoever asked for a read. To let it go cancels nothing.
class ReadTicket {
  public:
    /// A flag that the read looks at. One that is not run yet is not run at all; one that had its last row by
    /// then ends well all the same.
    void Cancel() { cancelled = true; }
    bool Cancelled() const { return cancelled; }

  private:
    std::atomic<bool> cancelled = false;
};

/// One file with a writer and a reader. All calls are made from the loop.
///
/// - No call takes the loop over 100 µs, making and destroying aside. Jobs run elsewhere, so what they share
///   with the loop is a value that goes in with the job and comes back with the answer.
/// - Each `done` is called exactly once, on the loop, also after an error and after Cancel, and is released
///   there; it never leaves the loop's thread. The job has been released by then. `done` may destroy the
///   Database. One that answers at once (InlineDatabase) calls it before the call returns.
/// - Jobs of Write and Maintain run in the order they came in, one after the other, and so do those of Read.
///   A Read sees every Write whose `done` was called before.
/// - Answers come in bundles: one Read is one bundle, a page of a list. No read stays open for long, and
/// every
///   statement is reset before COMMIT and after its last row: an open one counts as a reader, and with a
///   reader the write-ahead log can't start anew and grows. A write is a batch, not a whole import.
/// - The writer brings the log into the file when it is idle and whenever the log has passed 4 MB; it
///   stays below 16 MB while searches run.
class Database {
  public:
    using Job = std::function<void(Connection&)>;
    using Done = std::function<void(const DatabaseResult&)>;
    using Opened = std::function<void(OpenOutcome outcome, const std::string& words)>;

    /// Ends its threads. What was handed in for writing is written first, a read that is under way is
    /// cancelled; answers not yet given are dropped.
    virtual ~Database() = default;

    /// Jobs may follow at once; they wait for it, and are answered with its fault when nothing was opened.
    /// Then, and only then, it may be asked again.
    virtual void Open(const DatabaseSpec& spec, Opened done) = 0;
    /// One transaction of the writer, rolled back when the job failed. The job leaves BEGIN and COMMIT alone.
    virtual void Write(Job job, Done done) = 0;
    /// By the writer outside a transaction: VACUUM INTO, a checkpoint, an integrity check.
    virtual void Maintain(Job job, Done done) = 0;
    /// By the reader, which can't write, in one read transaction that ends with the job.
    virtual std::shared_ptr<ReadTicket> Read(Job job, Done done) = 0;
};

} // namespace halyard
