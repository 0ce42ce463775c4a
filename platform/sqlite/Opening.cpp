#include "platform/sqlite/Opening.h"

#include "base/Latin1.h"
#include "platform/sqlite/Beside.h"

#include <cstdio>

namespace halyard {

namespace {

DatabaseFault FaultOf(OpenOutcome outcome) {
    switch (outcome) {
    case OpenOutcome::Newer: return DatabaseFault::Newer;
    case OpenOutcome::Locked: return DatabaseFault::Locked;
    case OpenOutcome::Foreign:
    case OpenOutcome::Failed: return DatabaseFault::Failed;
    default: return DatabaseFault::None;
    }
}

OpenedConnection Refused(OpenOutcome outcome, const std::string& words) {
    return {outcome, {FaultOf(outcome), words}, nullptr};
}

/// The one opening of one file.
class Opening {
  public:
    Opening(const DatabaseSpec& spec, std::string path)
        : spec(spec), place(std::move(path)), newest(static_cast<std::int64_t>(spec.migrations.size())) {}

    OpenedConnection ToWrite();
    OpenedConnection ToRead();

  private:
    bool InMemory() const { return place.empty(); }
    std::string Name() const { return InMemory() ? "The database in memory" : FromUtf8(place); }
    void Connect(int flags);
    bool Settle();
    OpenedConnection Failure();
    OpenedConnection Checked();
    OpenedConnection Upgraded();
    bool CopyBeside();
    bool Migrate();
    OpenedConnection BegunAnew(const std::string& why);

    const DatabaseSpec& spec;
    std::string place; ///< UTF-8
    std::int64_t newest;
    std::int64_t version = 0;
    bool empty = false;
    std::unique_ptr<FileLock> lock;
    std::unique_ptr<SqliteConnection> file;
};

void Opening::Connect(int flags) {
    file = std::make_unique<SqliteConnection>(InMemory() ? ":memory:" : place, flags, spec.vfs);
    // What is refused stays as it was, with what its log holds.
    file->LeaveLog(FileStands(place + "-wal"));
}

OpenedConnection Opening::Failure() {
    const auto& result = file->Result();
    const auto outcome = result.fault == DatabaseFault::Locked ? OpenOutcome::Locked : OpenOutcome::Failed;
    return {outcome, {result.fault, Name() + ": " + result.words}, nullptr};
}

/// Nothing to say yet when the file is one of ours that this program understands, or an empty one.
OpenedConnection Opening::Checked() {
    const auto owner = file->Number("PRAGMA application_id");
    version = file->Number("PRAGMA user_version");
    empty = file->Number("SELECT count(*) FROM sqlite_master") == 0 && owner == 0 && version == 0;
    if (file->Failed()) return Failure();
    if (!empty && owner != spec.applicationId)
        return Refused(OpenOutcome::Foreign, Name() + " is another program's file; it was left alone.");
    if (version > newest)
        return Refused(OpenOutcome::Newer, Name() + " was written by a newer version of this program (" +
                                               std::to_string(version) + ", this one knows " +
                                               std::to_string(newest) + "); it was left alone.");
    return {OpenOutcome::Opened, {}, nullptr};
}

/// What holds for the connection and the file as long as it is open.
bool Opening::Settle() {
    const auto journal = file->Word("PRAGMA journal_mode=WAL");
    // Asking for it may quietly fail, on a file system without shared memory for one.
    if (journal != (InMemory() ? "memory" : "wal"))
        file->Fail(DatabaseFault::Failed, "the write-ahead log could not be had, only \"" + journal + "\".");
    return file->Execute("PRAGMA synchronous=NORMAL; PRAGMA secure_delete=ON");
}

/// Whole under its name, or not there.
bool Opening::CopyBeside() {
    const auto copy = CopyPath(place, version, spec.calendarSeconds);
    const auto part = copy + UnfinishedCopy;
    std::remove(part.c_str());
    if (!MakePrivateFile(part)) file->Fail(DatabaseFault::NotWritable, "a copy could not be put beside it.");
    file->Prepare("VACUUM INTO ?").Bind(1, part).Step();
    if (!file->Failed() && (!SyncFileAndFolder(part) || std::rename(part.c_str(), copy.c_str()) != 0 ||
                            !SyncFileAndFolder(copy)))
        file->Fail(DatabaseFault::Failed, "the copy beside it could not be brought to the disk.");
    if (file->Failed()) std::remove(part.c_str());
    return !file->Failed();
}

/// The missing steps and the look at what came of them are one transaction, so that a file whose upgrade
/// failed is still one for the program before.
bool Opening::Migrate() {
    file->Execute("BEGIN IMMEDIATE");
    for (auto step = version; step < newest; ++step)
        file->Execute(spec.migrations[static_cast<std::size_t>(step)]);
    // References are off meanwhile, since a step may put a table in the place of another.
    const auto orphans = version != newest ? file->Word("PRAGMA foreign_key_check") : std::string();
    if (!orphans.empty())
        file->Fail(DatabaseFault::Failed, "rows of \"" + orphans + "\" refer to what isn't there.");
    for (const auto& table : spec.tables) {
        auto& found = file->Prepare("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?");
        if (!found.Bind(1, table).Step())
            file->Fail(DatabaseFault::Failed, "its table \"" + table + "\" is missing.");
        found.Reset();
    }
    if (empty || version != newest) {
        file->Execute("PRAGMA user_version=" + std::to_string(newest));
        file->Execute("PRAGMA application_id=" + std::to_string(spec.applicationId));
    }
    file->ResetAll();
    return file->Execute("COMMIT") && file->Execute("PRAGMA foreign_keys=ON");
}

OpenedConnection Opening::Upgraded() {
    const auto outcome =
        empty ? OpenOutcome::Created : (version < newest ? OpenOutcome::Upgraded : OpenOutcome::Opened);
    if (outcome == OpenOutcome::Upgraded && !InMemory()) CopyBeside();
    if (!Migrate()) {
        auto failure = Failure();
        file->EndJob();
        return failure;
    }
    file->EndJob();
    if (!InMemory()) RemoveOldCopies(place, spec.calendarSeconds);
    file->Keep(std::move(lock));
    file->LeaveLog(false);
    return {outcome, {}, std::move(file)};
}

OpenedConnection Opening::BegunAnew(const std::string& why) {
    file.reset();
    const auto aside = PutAside(place, spec.calendarSeconds);
    if (aside.empty())
        return Refused(OpenOutcome::Failed, Name() + " is damaged (" + why + ") and can't be put aside.");
    if (!MakePrivateFile(place))
        return Refused(OpenOutcome::Failed, Name() + " is damaged; no new one could be made.");
    Connect(SQLite::OPEN_READWRITE);
    version = 0;
    empty = true;
    if (!Settle()) return Failure();
    auto opened = Upgraded();
    if (!IsOpen(opened.outcome)) return opened;
    opened.outcome = OpenOutcome::Damaged;
    opened.result.words =
        Name() + " was damaged (" + why + "). It lies beside the new one as " + FromUtf8(aside) + ".";
    return opened;
}

OpenedConnection Opening::ToWrite() {
    if (!InMemory()) {
        MakeFolderFor(place);
        bool busy = false;
        lock = FileLock::Take(place, busy);
        if (busy) return Refused(OpenOutcome::Locked, Name() + " is in use by another program.");
        if (!lock || !MakePrivateFile(place))
            return {
                OpenOutcome::Failed, {DatabaseFault::NotWritable, Name() + " can't be written."}, nullptr};
    }
    Connect(SQLite::OPEN_READWRITE);
    auto checked = Checked();
    if (checked.result.Ok()) {
        const auto state = file->Word("PRAGMA quick_check(1)");
        if (state != "ok") file->Fail(DatabaseFault::Damaged, state);
        if (!file->Failed() && Settle()) return Upgraded();
        checked = Failure();
    }
    if (checked.result.fault == DatabaseFault::Damaged && !InMemory())
        return BegunAnew(std::string(file->Result().words));
    return checked;
}

OpenedConnection Opening::ToRead() {
    Connect(SQLite::OPEN_READONLY);
    auto checked = Checked();
    if (!checked.result.Ok()) return checked;
    if (version < newest)
        return Refused(OpenOutcome::Failed, Name() + " is of an older version and not upgraded yet.");
    file->EndJob();
    checked.connection = std::move(file);
    return checked;
}

} // namespace

OpenedConnection OpenConnection(const DatabaseSpec& spec, OpenMode mode) {
    Opening opening(spec, ToUtf8(spec.path));
    return mode == OpenMode::ReadOnly ? opening.ToRead() : opening.ToWrite();
}

} // namespace halyard
