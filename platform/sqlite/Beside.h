#pragma once

// The files around a database: its folder, its lock, copies from before an upgrade and what was put aside.
// Paths are as the machine takes them. A call that fails has no effect but its answer.

#include <cstdint>
#include <memory>
#include <string>

namespace halyard {

/// Keeps a database to one program; ends with the object and with the program. It is a file of its own, since
/// to close the database's would let go of SQLite's locks on it.
class FileLock {
  public:
    /// `path` is the database's. Null when another holds it (`busy`) or the lock's file can't be written.
    static std::unique_ptr<FileLock> Take(const std::string& path, bool& busy);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

  private:
    explicit FileLock(int descriptor) : descriptor(descriptor) {}
    int descriptor;
};

/// Makes the missing folders above `path`, mode 0700.
void MakeFolderFor(const std::string& path);
bool FileStands(const std::string& path);
/// Mode 0600: an empty file where nothing stands, else others' rights are taken away. False when it can't be.
bool MakePrivateFile(const std::string& path);
/// Brings a file and its name to the disk itself.
bool SyncFileAndFolder(const std::string& path);

/// Behind a copy's name until it is whole.
constexpr const char* UnfinishedCopy = ".part";
/// Where the copy of a file of that version goes that is taken on that day.
std::string CopyPath(const std::string& path, std::int64_t version, std::int64_t calendarSeconds);
/// Removes copies of `path`, unfinished ones too, that are over 30 days old by the day in their names.
void RemoveOldCopies(const std::string& path, std::int64_t calendarSeconds);
/// Renames the database and its companions to a dated name that nobody has. Empty when that failed.
std::string PutAside(const std::string& path, std::int64_t calendarSeconds);

} // namespace halyard
