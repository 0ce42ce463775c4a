#include "platform/sim/SimFiles.h"

#include <filesystem>
#include <utility>

namespace halyard {

/// Writes as long as the power stays on that it was opened under.
class SimFiles::Output : public OutputFile {
  public:
    Output(SimFiles& disk, std::shared_ptr<File> file)
        : disk(disk), file(std::move(file)), epoch(disk.epoch) {}

    bool Write(std::string_view bytes) override {
        if (!Open()) return false;
        auto works = disk.Works();
        if (!disk.stopped) file->bytes.append(works ? bytes : bytes.substr(0, bytes.size() / 2));
        return works;
    }
    bool Sync() override {
        if (!Open() || !disk.Works()) return false;
        file->synced = file->bytes;
        return true;
    }
    bool Close() override {
        if (!Open()) return false;
        closed = true;
        return disk.Works();
    }

  private:
    bool Open() const { return !closed && epoch == disk.epoch; }

    SimFiles& disk;
    std::shared_ptr<File> file;
    int epoch;
    bool closed = false;
};

SimFiles::SimFiles() : folders{"", "/"} {
    AddFolders("/program");
    AddFolders("/data");
    AddFolders("/state");
}

void SimFiles::Crash(Cut cut) {
    if (cut == Cut::SyncedOnly) names = syncedNames;
    for (auto& [path, file] : names) {
        auto unsynced = file->bytes != file->synced;
        auto cutShort = cut == Cut::NamesFirst && unsynced;
        file->bytes = cutShort ? file->bytes.substr(0, file->bytes.size() / 2) : file->synced;
        file->synced = file->bytes;
    }
    syncedNames = names;
    ++epoch;
    failing = stopping = 0;
    stopped = false;
}

std::unique_ptr<HeldFile> SimFiles::Hold(const std::string& path, const std::string&) {
    struct Held : HeldFile {
        Held(std::shared_ptr<std::set<std::string>> all, std::string path)
            : all(std::move(all)), path(std::move(path)) {}
        ~Held() override { all->erase(path); }
        std::shared_ptr<std::set<std::string>> all;
        std::string path;
    };
    if (!held->insert(path).second) return nullptr;
    return std::make_unique<Held>(held, path);
}

void SimFiles::Put(const std::string& path, std::string_view bytes) {
    AddFolders(FolderOf(path));
    auto file = std::make_shared<File>(File{std::string(bytes), std::string(bytes)});
    names[path] = file;
    syncedNames[path] = file;
}

std::string SimFiles::Contents(const std::string& path) const {
    auto found = names.find(path);
    return found == names.end() ? std::string() : found->second->bytes;
}

std::set<std::string> SimFiles::Paths() const {
    std::set<std::string> paths;
    for (const auto& [path, file] : names) paths.insert(path);
    return paths;
}

std::optional<std::string> SimFiles::Read(const std::string& path, std::size_t limit) {
    auto found = names.find(path);
    if (!Works() || found == names.end() || found->second->bytes.size() > limit) return std::nullopt;
    return found->second->bytes;
}

std::unique_ptr<OutputFile> SimFiles::Create(const std::string& path) {
    if (!Works() || folders.contains(path) || !folders.contains(FolderOf(path))) return nullptr;
    if (locked.contains(FolderOf(path)) && !names.contains(path)) return nullptr;
    auto& file = names[path];
    if (!file) file = std::make_shared<File>();
    file->bytes.clear();
    return std::make_unique<Output>(*this, file);
}

std::unique_ptr<OutputFile> SimFiles::CreateNew(const std::string& path, const std::string&) {
    return names.contains(path) ? nullptr : Create(path);
}

Files::Way SimFiles::WayTo(const std::string& path) {
    return names.contains(path) && locked.contains(FolderOf(path)) ? Way::InPlace : Way::Beside;
}

std::string SimFiles::Canonical(const std::string& path) {
    return (std::filesystem::path("/") / path).lexically_normal().string();
}

bool SimFiles::IsPrivate(const std::string& path) {
    return (names.contains(path) || folders.contains(path)) && !shown.contains(path);
}

bool SimFiles::MakePrivate(const std::string& path) {
    if (!Works() || (!names.contains(path) && !folders.contains(path))) return false;
    shown.erase(path);
    return true;
}

bool SimFiles::Rename(const std::string& from, const std::string& to) {
    if (!Works() || !names.contains(from)) return false;
    if (locked.contains(FolderOf(from)) || locked.contains(FolderOf(to))) return false;
    if (folders.contains(to) || !folders.contains(FolderOf(to))) return false;
    auto moved = names.extract(from);
    names[to] = std::move(moved.mapped());
    return true;
}

bool SimFiles::Remove(const std::string& path) {
    return Works() && !locked.contains(FolderOf(path)) && names.erase(path) > 0;
}

bool SimFiles::SyncFolder(const std::string& folder) {
    if (!Works() || !folders.contains(folder == "." ? "" : folder)) return false;
    auto inside = [&](const auto& entry) { return FolderOf(entry.first) == (folder == "." ? "" : folder); };
    std::erase_if(syncedNames, inside);
    for (const auto& entry : names)
        if (inside(entry)) syncedNames.insert(entry);
    return true;
}

bool SimFiles::MakeFolder(const std::string& folder) {
    if (!Works() || names.contains(folder)) return false;
    AddFolders(folder);
    return true;
}

std::string SimFiles::FolderOf(const std::string& path) {
    auto cut = path.rfind('/');
    if (cut == std::string::npos) return "";
    return cut == 0 ? "/" : path.substr(0, cut);
}

bool SimFiles::Works() {
    ++operations;
    if (stopping > 0 && --stopping == 0) stopped = true;
    auto fails = failing > 0 && --failing == 0;
    return !stopped && !fails;
}

void SimFiles::AddFolders(const std::string& folder) {
    if (folders.insert(folder).second) AddFolders(FolderOf(folder));
}

} // namespace halyard
