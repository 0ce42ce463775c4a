#pragma once

// What the readers and writers of files ask of a machine, one call an operation, so that each can be made to
// fail. Paths are Windows-1252 text with the machine's own separator.

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

/// A file that is being written. Destroying it closes it.
class OutputFile {
  public:
    virtual ~OutputFile() = default;
    /// False when not every byte was taken.
    virtual bool Write(std::string_view bytes) = 0;
    /// Brings what was written to the disk itself. False when that failed.
    virtual bool Sync() = 0;
    /// False when the last bytes could not be written.
    virtual bool Close() = 0;
};

/// Held by one program at a time. Destroying it lets go.
class HeldFile {
  public:
    virtual ~HeldFile() = default;
};

class Files {
  public:
    virtual ~Files() = default;

    /// Takes the lock of a file, which is made where there is none, and writes `who` into it for people to
    /// read. Null when another program holds it, or the file can't be had. A program that dies lets go.
    virtual std::unique_ptr<HeldFile> Hold(const std::string& path, const std::string& who) = 0;

    /// True when `path` names a file: not a folder, not a device.
    virtual bool Exists(const std::string& path) = 0;
    /// The whole of a plain file of at most `limit` bytes; nothing for anything else. Never blocks on a
    /// device.
    virtual std::optional<std::string> Read(const std::string& path, std::size_t limit) = 0;
    /// Creates or empties a file. Null when that is not possible.
    virtual std::unique_ptr<OutputFile> Create(const std::string& path) = 0;
    /// Creates a file where nothing stands; null when something does, or that is not possible. It is the
    /// operator's alone; when `like` names a file it gets that one's mode and, where the machine allows it,
    /// its group.
    virtual std::unique_ptr<OutputFile> CreateNew(const std::string& path, const std::string& like) = 0;

    /// How new bytes get into the place of a path.
    enum class Way {
        Beside,  ///< nothing stands there, or a file that another may take the place of
        InPlace, ///< a file that may be written in a folder that may not, or of another owner
        None,    ///< a file that may only be read, or no file
    };
    virtual Way WayTo(const std::string& path) = 0;
    /// Where links lead to from `path`; `path` itself when it is none, or leads where text can't name it.
    virtual std::string Behind(const std::string& path) = 0;
    /// The one absolute name of what `path` names, links followed in each of its parts, whether a file stands
    /// there or not; `path` itself where text can't name it.
    virtual std::string Canonical(const std::string& path) = 0;
    /// True when neither group nor others have any right on the file or folder.
    virtual bool IsPrivate(const std::string& path) = 0;
    /// Takes those rights away. False when they couldn't be, or nothing stands there.
    virtual bool MakePrivate(const std::string& path) = 0;
    /// Puts `from` in the place of `to`, at once for every reader.
    virtual bool Rename(const std::string& from, const std::string& to) = 0;
    virtual bool Remove(const std::string& path) = 0;
    /// Makes renames and creations in `folder` last through a power cut.
    virtual bool SyncFolder(const std::string& folder) = 0;
    /// Creates the folder and those above it. True when it stands afterwards.
    virtual bool MakeFolder(const std::string& folder) = 0;

    /// Where the program keeps what its operator saves: its own folder, or where that cannot be written the
    /// operator's data folder. No separator at the end.
    virtual std::string ProgramFolder() = 0;
    /// The folder in which the program itself stands, beside the pages that come with it.
    virtual std::string OwnFolder() = 0;
    /// The operator's folder for the program's data. Empty when there is none.
    virtual std::string DataFolder() = 0;
    /// The operator's folder for program state: in XDG_STATE_HOME when that names a place, else in the home
    /// of the user database. Empty when there is none.
    virtual std::string StateFolder() = 0;
    /// The operator's folder for the bridge's configuration: in XDG_CONFIG_HOME when that names a place, else
    /// in HOME or the home of the user database. It need not stand yet. Empty when there is none.
    virtual std::string ConfigFolder() = 0;
    /// The operator's folder for the bridge's data: in XDG_DATA_HOME when that names a place, else in
    /// HOME or the home of the user database. Empty when there is none; not created.
    virtual std::string BridgeFolder() = 0;
    /// The separator between the parts of a path, "/" or "\".
    virtual char Separator() const = 0;
};

/// Puts `bytes` in the place of the file `path`, or of the one that it links to, so that a crash, a full disk
/// or a failing call leaves either the old file or the new one: a neighbour is written, synced and renamed
/// over it, then the folder is synced. A neighbour has a name that nobody had, ".halyard-" and a number.
/// False, with the old file as it was and no neighbour left, when a step up to the rename failed. False, too,
/// when only the folder could not be synced: the new file stands then, but a power cut may bring the old one
/// back.
///
/// A file that can only be written in place is written there, once a synced copy of `bytes` lies in
/// DataFolder(); the copy goes when all is written, and stays for the operator when neither the new bytes nor
/// the old could be.
bool ReplaceFile(Files& files, const std::string& path, std::string_view bytes);

} // namespace halyard
