#include "platform/qt/PosixFiles.h"

#include "base/Latin1.h"
#include "base/Letters.h"
#include "platform/qt/Descriptor.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/file.h>
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

bool MayWrite(const std::string& path) { return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0; }

/// Text that stands for the same path again, or nothing.
std::optional<std::string> AsText(const std::string& path) {
    auto text = FromUtf8(path);
    if (ToUtf8(text) != path) return std::nullopt;
    return text;
}

/// The operator's home from the user database, as the machine writes it.
std::string Home() {
    std::vector<char> text(1 << 14);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, text.data(), text.size(), &found) != 0 || !found || !found->pw_dir)
        return {};
    return found->pw_dir;
}

/// The folder that an environment variable names; nothing when it names none from the root on.
std::optional<std::string> NamedFolder(const char* variable) {
    const char* named = std::getenv(variable);
    auto place = AsText(named ? named : "");
    return place && place->starts_with('/') ? place : std::nullopt;
}

/// The program's folder in the one that a variable names, else below HOME, or where that names none, the home
/// of the user database; not created.
std::string NamedOrHome(const char* variable, const char* below) {
    if (auto place = NamedFolder(variable)) return *place + "/halyard";
    if (auto home = NamedFolder("HOME")) return *home + below;
    const auto home = Home();
    return home.starts_with('/') ? FromUtf8(home) + below : std::string();
}

constexpr mode_t OthersRights = S_IRWXG | S_IRWXO;

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

std::unique_ptr<HeldFile> PosixFiles::Hold(const std::string& path, const std::string& who) {
    struct Held : HeldFile {
        explicit Held(Descriptor opened) : file(std::move(opened)) {}
        Descriptor file;
    };
    Descriptor file(ToUtf8(path), O_RDWR | O_CREAT, S_IRUSR | S_IWUSR);
    if (!file.IsPlainFile() || flock(file.Number(), LOCK_EX | LOCK_NB) != 0) return nullptr;
    // What it says is for people alone.
    if (ftruncate(file.Number(), 0) != 0 || write(file.Number(), who.data(), who.size()) < 0) return nullptr;
    return std::make_unique<Held>(std::move(file));
}

std::unique_ptr<OutputFile> PosixFiles::CreateNew(const std::string& path, const std::string& like) {
    Descriptor file(ToUtf8(path), O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
    if (!file.IsOpen()) return nullptr;
    struct stat about {};
    if (!like.empty() && stat(ToUtf8(like).c_str(), &about) == 0) {
        // Without the group its rights would be those of another one.
        const bool grouped = fchown(file.Number(), static_cast<uid_t>(-1), about.st_gid) == 0;
        const auto mode = about.st_mode & (grouped ? 07777U : 07707U);
        if (fchmod(file.Number(), mode) != 0) {
            unlink(ToUtf8(path).c_str());
            return nullptr;
        }
    }
    return std::make_unique<PosixOutputFile>(std::move(file));
}

Files::Way PosixFiles::WayTo(const std::string& path) {
    const std::filesystem::path place(ToUtf8(path));
    struct stat about {};
    if (lstat(place.c_str(), &about) != 0) return Way::Beside;
    const bool link = S_ISLNK(about.st_mode);
    if (link && stat(place.c_str(), &about) != 0) return Way::None;
    if (!S_ISREG(about.st_mode) || !MayWrite(place)) return Way::None;
    const auto folder = place.parent_path();
    const bool replaceable =
        !link && about.st_uid == geteuid() && MayWrite(folder.empty() ? "." : folder.string());
    return replaceable ? Way::Beside : Way::InPlace;
}

std::string PosixFiles::Behind(const std::string& path) {
    constexpr int MostLinks = 40; // as the machine itself counts them
    std::filesystem::path place(ToUtf8(path));
    std::error_code failure;
    for (int link = 0; link < MostLinks && std::filesystem::is_symlink(place, failure); ++link) {
        const auto next = std::filesystem::read_symlink(place, failure);
        if (failure) return path;
        place = next.is_absolute() ? next : place.parent_path() / next;
    }
    return AsText(place.string()).value_or(path);
}

std::string PosixFiles::Canonical(const std::string& path) {
    std::error_code failure;
    auto place = std::filesystem::absolute(ToUtf8(path), failure);
    if (!failure) place = std::filesystem::weakly_canonical(place, failure);
    return failure ? path : AsText(place.string()).value_or(path);
}

bool PosixFiles::IsPrivate(const std::string& path) {
    struct stat about {};
    return stat(ToUtf8(path).c_str(), &about) == 0 && (about.st_mode & OthersRights) == 0;
}

bool PosixFiles::MakePrivate(const std::string& path) {
    struct stat about {};
    const auto place = ToUtf8(path);
    if (stat(place.c_str(), &about) != 0) return false;
    return (about.st_mode & OthersRights) == 0 ||
           chmod(place.c_str(), about.st_mode & 07777 & ~OthersRights) == 0;
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
    auto folder = AsText(own);
    if (!own.empty() && folder && MayWrite(own)) return *folder;
    return DataFolder();
}

std::string PosixFiles::DataFolder() { return HomeFolder(*this, "/.local/share/halyard"); }

std::string PosixFiles::OwnFolder() { return FromUtf8(QCoreApplication::applicationDirPath().toStdString()); }

std::string PosixFiles::StateFolder() {
    // Two bots of one account keep their counters apart by it.
    if (auto place = NamedFolder("XDG_STATE_HOME")) {
        auto folder = *place + "/halyard";
        MakeFolder(folder);
        return folder;
    }
    return HomeFolder(*this, FromLetters({'/', '.', 'l', 'o', 'c', 'a', 'l', '/', 's', 't', 'a',
                                          't', 'e', '/', 'h', 'a', 'l', 'y', 'a', 'r', 'd'}));
}

std::string PosixFiles::ConfigFolder() { return NamedOrHome("XDG_CONFIG_HOME", "/.config/halyard"); }

std::string PosixFiles::BridgeFolder() { return NamedOrHome("XDG_DATA_HOME", "/.local/share/halyard"); }

} // namespace halyard
