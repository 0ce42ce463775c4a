#include "platform/qt/PosixFiles.h"

#include "base/Latin1.h"
#include "base/Letters.h"
#include "platform/qt/Descriptor.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <pwd.h>
#include <vector>

namespace halyard {

namespace {

class PosixOutputFile : public OutputFile {
  public:
    explicit PosixOutputFile(Descriptor opened) : file(std::move(opened)) {}

    bool Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            auto taken = write(file.Number(), bytes.data(), bytes.size());
            if (taken < 0 && errno == EINTR) continue;
            if (taken <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(taken));
        }
        return true;
    }
    bool Sync() override { return fsync(file.Number()) == 0; }
    bool Close() override { return file.Close(); }

  private:
    Descriptor file;
};

/// The operator's home from the user database, as the machine writes it; the environment is not asked.
std::string Home() {
    std::vector<char> text(1 << 14);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, text.data(), text.size(), &found) != 0 || !found || !found->pw_dir)
        return {};
    return found->pw_dir;
}

/// A folder in the operator's home, created when it is not there; empty when there is no home.
std::string HomeFolder(PosixFiles& files, std::string_view below) {
    auto home = Home();
    if (home.empty() || home.front() != '/') return {};
    auto folder = FromUtf8(home).append(below);
    files.MakeFolder(folder);
    return folder;
}

} // namespace

bool PosixFiles::Exists(const std::string& path) {
    std::error_code failure;
    return std::filesystem::is_regular_file(ToUtf8(path), failure);
}

std::optional<std::string> PosixFiles::Read(const std::string& path, std::size_t limit) {
    // Asked by name first, because merely opening some devices moves them.
    if (!Exists(path)) return std::nullopt;
    Descriptor file(ToUtf8(path), O_RDONLY);
    if (!file.IsPlainFile()) return std::nullopt;
    std::string bytes;
    std::array<char, 1 << 16> part;
    for (;;) {
        auto count = read(file.Number(), part.data(), part.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) return bytes;
        bytes.append(part.data(), static_cast<std::size_t>(count));
        if (bytes.size() > limit) return std::nullopt;
    }
}

std::unique_ptr<OutputFile> PosixFiles::Create(const std::string& path) {
    // The saved settings are the operator's own, so nobody else reads them.
    Descriptor file(ToUtf8(path), O_WRONLY | O_CREAT | O_TRUNC, S_IRUSR | S_IWUSR);
    if (!file.IsPlainFile()) return nullptr;
    return std::make_unique<PosixOutputFile>(std::move(file));
}

bool PosixFiles::Rename(const std::string& from, const std::string& to) {
    return std::rename(ToUtf8(from).c_str(), ToUtf8(to).c_str()) == 0;
}

bool PosixFiles::Remove(const std::string& path) { return unlink(ToUtf8(path).c_str()) == 0; }

bool PosixFiles::SyncFolder(const std::string& folder) {
    Descriptor opened(folder.empty() ? "." : ToUtf8(folder), O_RDONLY | O_DIRECTORY);
    return opened.IsOpen() && fsync(opened.Number()) == 0;
}

bool PosixFiles::MakeFolder(const std::string& folder) {
    std::error_code failure;
    std::filesystem::path path(ToUtf8(folder));
    std::filesystem::create_directories(path, failure);
    return std::filesystem::is_directory(path, failure);
}

std::string PosixFiles::ProgramFolder() {
    auto own = QCoreApplication::applicationDirPath().toStdString();
    auto folder = FromUtf8(own);
    // A path with characters that text inside cannot hold would name another folder.
    if (!own.empty() && ToUtf8(folder) == own && access(own.c_str(), W_OK) == 0) return folder;
    return HomeFolder(*this, "/.local/share/halyard");
}

std::string PosixFiles::OwnFolder() { return FromUtf8(QCoreApplication::applicationDirPath().toStdString()); }

std::string PosixFiles::StateFolder() {
    return HomeFolder(*this, FromLetters({'/', '.', 'l', 'o', 'c', 'a', 'l', '/', 's', 't', 'a',
                                          't', 'e', '/', 'h', 'a', 'l', 'y', 'a', 'r', 'd'}));
}

} // namespace halyard
