#include "platform/Files.h"

namespace halyard {

namespace {

constexpr int MostNeighbours = 1000;
constexpr std::size_t LargestKept = 1 << 28;

std::string FolderOf(const std::string& path, char separator) {
    auto cut = path.rfind(separator);
    if (cut == std::string::npos) return ".";
    return path.substr(0, cut == 0 ? 1 : cut);
}

/// A new file in `folder`, which nobody had there before, and its path; null when none can be made.
std::unique_ptr<OutputFile> CreateFresh(Files& files, const std::string& folder, const std::string& like,
                                        std::string& path) {
    const auto head = folder == "."                        ? std::string()
                      : folder.back() == files.Separator() ? folder
                                                           : folder + files.Separator();
    for (int number = 1; number <= MostNeighbours; ++number) {
        path = head + ".halyard-" + std::to_string(number);
        if (auto file = files.CreateNew(path, like)) return file;
        if (!files.Exists(path)) break;
    }
    return nullptr;
}

bool WriteWhole(std::unique_ptr<OutputFile> file, std::string_view bytes) {
    return file && file->Write(bytes) && file->Sync() && file->Close();
}

bool WriteBeside(Files& files, const std::string& path, std::string_view bytes) {
    const auto folder = FolderOf(path, files.Separator());
    std::string neighbour;
    auto file = CreateFresh(files, folder, path, neighbour);
    if (!file) return false;
    if (!WriteWhole(std::move(file), bytes) || !files.Rename(neighbour, path)) {
        files.Remove(neighbour);
        return false;
    }
    return files.SyncFolder(folder);
}

bool WriteInPlace(Files& files, const std::string& path, std::string_view bytes) {
    const auto before = files.Read(path, LargestKept);
    const auto folder = files.DataFolder();
    std::string copy;
    if (!before || folder.empty()) return false;
    auto file = CreateFresh(files, folder, {}, copy);
    if (!file) return false;
    if (!WriteWhole(std::move(file), bytes) || !files.SyncFolder(folder)) {
        files.Remove(copy);
        return false;
    }
    if (WriteWhole(files.Create(path), bytes)) {
        files.Remove(copy);
        return true;
    }
    if (WriteWhole(files.Create(path), *before)) files.Remove(copy);
    return false;
}

} // namespace

bool ReplaceFile(Files& files, const std::string& path, std::string_view bytes) {
    const auto target = files.Behind(path);
    switch (files.WayTo(target)) {
    case Files::Way::Beside: return WriteBeside(files, target, bytes);
    case Files::Way::InPlace: return WriteInPlace(files, target, bytes);
    case Files::Way::None: break;
    }
    return false;
}

} // namespace halyard
