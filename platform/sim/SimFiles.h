#pragma once

// An in-memory disk of one party, with what a machine would find on it after a power cut. Every operation can
// be made to fail. Files stand in folders that exist; ProgramFolder, DataFolder, StateFolder and the root
// exist from the start.

#include "platform/Files.h"

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace halyard {

class SimFiles : public Files {
  public:
    /// What a power cut leaves: only what was synced; or the names as they were last, with the bytes behind
    /// them synced or cut short.
    enum class Cut { SyncedOnly, NamesFirst };

    SimFiles();
    SimFiles(const SimFiles&) = delete;
    SimFiles& operator=(const SimFiles&) = delete;

    /// Makes the `nth` operation from now fail, 1 being the next; 0 takes the order back. A failing write
    /// takes half the bytes. Every call but Exists is an operation, each write, sync and close, too.
    void FailNth(int nth) { failing = nth; }
    /// Nothing has an effect any more from the `nth` operation from now on, as when the machine stops there.
    void StopAtNth(int nth) { stopping = nth; }
    /// How many operations there have been.
    std::uint64_t Operations() const { return operations; }

    /// A power cut and a new start. Files that are being written then are lost to their writers.
    void Crash(Cut cut = Cut::SyncedOnly);
    /// From now on no name in `folder` comes, goes or changes.
    void Lock(const std::string& folder) { locked.insert(folder); }
    void Unlock() { locked.clear(); }
    /// Gives others the right to read a path, until it is made private; none has it at the start.
    void Show(const std::string& path) { shown.insert(path); }
    /// Lays down a file, synced, with its folders.
    void Put(const std::string& path, std::string_view bytes);
    /// The bytes of a file, empty when there is none.
    std::string Contents(const std::string& path) const;
    /// The paths of all files, sorted.
    std::set<std::string> Paths() const;

    std::unique_ptr<HeldFile> Hold(const std::string& path, const std::string& who) override;
    bool Exists(const std::string& path) override { return names.contains(path); }
    std::optional<std::string> Read(const std::string& path, std::size_t limit) override;
    std::unique_ptr<OutputFile> Create(const std::string& path) override;
    std::unique_ptr<OutputFile> CreateNew(const std::string& path, const std::string& like) override;
    Way WayTo(const std::string& path) override;
    std::string Behind(const std::string& path) override { return path; }
    std::string Canonical(const std::string& path) override;
    bool IsPrivate(const std::string& path) override;
    bool MakePrivate(const std::string& path) override;
    bool Rename(const std::string& from, const std::string& to) override;
    bool Remove(const std::string& path) override;
    bool SyncFolder(const std::string& folder) override;
    bool MakeFolder(const std::string& folder) override;
    std::string ProgramFolder() override { return "/program"; }
    std::string OwnFolder() override { return "/program"; }
    std::string DataFolder() override { return "/data"; }
    std::string StateFolder() override { return "/state"; }
    std::string ConfigFolder() override { return "/config"; }
    std::string BridgeFolder() override { return "/bridge"; }
    char Separator() const override { return '/'; }

  private:
    struct File {
        std::string bytes;
        std::string synced;
    };
    class Output;
    using Names = std::map<std::string, std::shared_ptr<File>>;

    static std::string FolderOf(const std::string& path);
    /// Counts an operation; true when it works.
    bool Works();
    void AddFolders(const std::string& folder);

    Names names;
    Names syncedNames;
    std::set<std::string> folders;
    std::set<std::string> locked;
    std::set<std::string> shown;
    std::shared_ptr<std::set<std::string>> held = std::make_shared<std::set<std::string>>();
    int epoch = 0;
    int failing = 0;
    int stopping = 0;
    bool stopped = false;
    std::uint64_t operations = 0;
};

} // namespace halyard
