#include "platform/Files.h"

namespace halyard {

namespace {

std::string FolderOf(const std::string& path, char separator) {
    auto cut = path.rfind(separator);
    if (cut == std::string::npos) return ".";
    return path.substr(0, cut == 0 ? 1 : cut);
}

bool WriteWhole(Files& files, const std::string& path, std::string_view bytes) {
    auto file = files.Create(path);
    return file && file->Write(bytes) && file->Sync() && file->Close();
}

} // namespace

bool ReplaceFile(Files& files, const std::string& path, std::string_view bytes) {
    auto neighbour = path + ".new";
    if (!WriteWhole(files, neighbour, bytes) || !files.Rename(neighbour, path)) {
        files.Remove(neighbour);
        return false;
    }
    return files.SyncFolder(FolderOf(path, files.Separator()));
}

} // namespace halyard
