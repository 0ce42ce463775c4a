#include "platform/sqlite/Beside.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace halyard {

namespace {

constexpr std::int64_t SecondsADay = 86400;
constexpr std::int64_t DaysOfCopies = 30;

std::int64_t DayOf(std::int64_t calendarSeconds) { return calendarSeconds / SecondsADay; }

/// "2026-11-24"
std::string Date(std::int64_t calendarSeconds) {
    const std::chrono::year_month_day date{std::chrono::sys_days{std::chrono::days{DayOf(calendarSeconds)}}};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    return text;
}

/// Takes a number off the front; nothing when there is none.
std::optional<int> TakeNumber(std::string_view& text) {
    int number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc() || number < 0) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

bool Take(std::string_view& text, std::string_view front) {
    if (!text.starts_with(front)) return false;
    text.remove_prefix(front.size());
    return true;
}

/// The day, since 1970, of the copy with that name; nothing for a name of another form.
std::optional<std::int64_t> DayOfCopy(std::string_view name, const std::string& original) {
    if (!Take(name, original) || !Take(name, ".v") || !TakeNumber(name) || !Take(name, "-"))
        return std::nullopt;
    const auto year = TakeNumber(name);
    const auto month = Take(name, "-") ? TakeNumber(name) : std::nullopt;
    const auto day = Take(name, "-") ? TakeNumber(name) : std::nullopt;
    Take(name, UnfinishedCopy);
    if (!year || !month || !day || !name.empty()) return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year{*year},
                                           std::chrono::month{static_cast<unsigned>(*month)},
                                           std::chrono::day{static_cast<unsigned>(*day)});
    if (!date.ok()) return std::nullopt;
    return std::chrono::sys_days{date}.time_since_epoch().count();
}

int OpenPlainly(const std::string& path, int flags) {
    return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, S_IRUSR | S_IWUSR);
}

std::string FolderOf(const std::string& path) {
    auto folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

bool Sync(const std::string& path, int flags) {
    const int descriptor = OpenPlainly(path, flags);
    if (descriptor < 0) return false;
    const bool done = fsync(descriptor) == 0;
    return close(descriptor) == 0 && done;
}

} // namespace

std::unique_ptr<FileLock> FileLock::Take(const std::string& path, bool& busy) {
    busy = false;
    const int descriptor = OpenPlainly(path + ".lock", O_RDWR | O_CREAT);
    if (descriptor < 0) return nullptr;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) return std::unique_ptr<FileLock>(new FileLock(descriptor));
    busy = errno == EWOULDBLOCK;
    close(descriptor);
    return nullptr;
}

FileLock::~FileLock() { close(descriptor); }

void MakeFolderFor(const std::string& path) {
    const std::filesystem::path folder(FolderOf(path));
    std::filesystem::path grown;
    for (const auto& part : folder) {
        grown /= part;
        mkdir(grown.c_str(), S_IRWXU);
    }
}

bool FileStands(const std::string& path) {
    struct stat about {};
    return stat(path.c_str(), &about) == 0;
}

bool MakePrivateFile(const std::string& path) {
    // Only where nothing stands: to close it would let go of locks on it.
    const int descriptor = OpenPlainly(path, O_RDWR | O_CREAT | O_EXCL);
    if (descriptor >= 0) return close(descriptor) == 0;
    struct stat about {};
    if (stat(path.c_str(), &about) != 0) return false;
    return (about.st_mode & (S_IRWXG | S_IRWXO)) == 0 || chmod(path.c_str(), S_IRUSR | S_IWUSR) == 0;
}

bool SyncFileAndFolder(const std::string& path) {
    return Sync(path, O_RDONLY) && Sync(FolderOf(path), O_RDONLY | O_DIRECTORY);
}

std::string CopyPath(const std::string& path, std::int64_t version, std::int64_t calendarSeconds) {
    return path + ".v" + std::to_string(version) + "-" + Date(calendarSeconds);
}

void RemoveOldCopies(const std::string& path, std::int64_t calendarSeconds) {
    const auto original = std::filesystem::path(path).filename().string();
    const auto firstKept = DayOf(calendarSeconds) - DaysOfCopies;
    std::vector<std::filesystem::path> old;
    std::error_code failure;
    std::filesystem::directory_iterator place(FolderOf(path), failure);
    for (; !failure && place != std::filesystem::directory_iterator(); place.increment(failure)) {
        const auto day = DayOfCopy(place->path().filename().string(), original);
        if (day && *day < firstKept) old.push_back(place->path());
    }
    for (const auto& copy : old) unlink(copy.c_str());
}

std::string PutAside(const std::string& path, std::int64_t calendarSeconds) {
    const auto dated = path + ".damaged-" + Date(calendarSeconds);
    auto aside = dated;
    for (int number = 2; FileStands(aside) || FileStands(aside + "-wal"); ++number)
        aside = dated + "." + std::to_string(number);
    // The log first: one that stayed would be taken for the new file's.
    for (const char* companion : {"-wal", "-shm"}) {
        const auto from = path + companion;
        if (FileStands(from) && std::rename(from.c_str(), (aside + companion).c_str()) != 0) return {};
    }
    if (std::rename(path.c_str(), aside.c_str()) != 0) return {};
    SyncFileAndFolder(aside);
    return aside;
}

} // namespace halyard
