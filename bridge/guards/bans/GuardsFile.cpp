#include "bridge/guards/bans/GuardsFile.h"

#include "base/Latin1.h"
#include "platform/Platform.h"

#include <utility>

namespace halyard {

namespace {

constexpr const char* GuardsSchema = "CREATE TABLE kept(key TEXT PRIMARY KEY, text TEXT NOT NULL) STRICT;";

DatabaseSpec GuardsSpec(const std::string& path, std::int64_t calendarSeconds) {
    DatabaseSpec spec;
    spec.path = path;
    spec.applicationId = 0x486C6767; // "Hlgg"
    spec.migrations = {GuardsSchema};
    spec.tables = {"kept"};
    spec.calendarSeconds = calendarSeconds;
    return spec;
}

} // namespace

GuardsFile::GuardsFile(Platform& platform) : platform(platform), again(platform.NewTimer()) {
    again->SetInterval(Pause);
    again->onTick = [this] {
        again->SetEnabled(false);
        Write();
    };
}

GuardsFile::~GuardsFile() {
    writing = false;
    Write();
}

std::string GuardsFile::Path() const {
    auto& files = platform.FileSystem();
    const auto folder = files.BridgeFolder();
    return folder.empty() ? "" : folder + files.Separator() + "guards.db";
}

bool GuardsFile::Stands() const {
    const auto path = Path();
    return file || (!path.empty() && platform.FileSystem().Exists(path));
}

void GuardsFile::Open(std::function<void(const Rows&)> read) {
    if (std::exchange(asked, true)) return;
    auto& files = platform.FileSystem();
    const auto folder = files.BridgeFolder();
    if (folder.empty()) return Tell("there is no folder for it");
    files.MakeFolder(folder);
    files.MakePrivate(folder);
    held = files.Hold(folder + files.Separator() + "guards.lock", "Halyard's guards\n");
    if (!held) return Tell("another window has " + folder + ", or it can't be written");
    file = platform.NewDatabase();
    if (!file) return Tell("there is no database");
    file->Open(GuardsSpec(Path(), platform.CalendarSeconds()),
               [this, read = std::move(read), alive = std::weak_ptr(life)](OpenOutcome outcome,
                                                                           const std::string& words) {
                   if (!alive.expired()) Opened(outcome, words, read);
               });
}

void GuardsFile::Opened(OpenOutcome outcome, const std::string& words,
                        std::function<void(const Rows&)> read) {
    if (!IsOpen(outcome)) {
        Tell(words);
        return file.reset();
    }
    const auto rows = std::make_shared<Rows>();
    file->Read(
        [rows](Connection& connection) {
            auto& row = connection.Prepare("SELECT key, text FROM kept");
            while (row.Step()) (*rows)[FromUtf8(row.Text(0))] = FromUtf8(row.Text(1));
        },
        [this, rows, read = std::move(read), alive = std::weak_ptr(life)](const DatabaseResult& result) {
            if (alive.expired()) return;
            if (!result.Ok()) Tell(result.words);
            read(*rows);
        });
    Write();
}

void GuardsFile::Put(const std::string& key, const std::string& text) {
    waiting[key] = {true, text};
    Write();
}

void GuardsFile::Drop(const std::string& key) {
    waiting[key] = {false, ""};
    Write();
}

/// One batch at a time: what comes meanwhile is the next.
void GuardsFile::Write() {
    if (!file || writing || waiting.empty()) return;
    writing = true;
    const auto changes = std::exchange(waiting, {});
    file->Write(
        [changes](Connection& connection) {
            auto& put = connection.Prepare("INSERT INTO kept(key, text) VALUES(?1, ?2) "
                                           "ON CONFLICT(key) DO UPDATE SET text = ?2");
            auto& drop = connection.Prepare("DELETE FROM kept WHERE key = ?1");
            for (const auto& [key, change] : changes) {
                auto& statement = change.first ? put : drop;
                statement.Reset();
                statement.Bind(1, ToUtf8(key));
                if (change.first) statement.Bind(2, ToUtf8(change.second));
                statement.Step();
            }
            put.Reset();
            drop.Reset();
        },
        [this, changes, alive = std::weak_ptr(life)](const DatabaseResult& result) {
            if (!alive.expired()) Written(changes, result);
        });
}

void GuardsFile::Written(const Changes& changes, const DatabaseResult& result) {
    writing = false;
    if (result.Ok()) {
        Tell("");
        return Write();
    }
    Tell(result.words);
    for (const auto& [key, change] : changes) waiting.try_emplace(key, change); // newer ones stay
    again->SetEnabled(true);
}

void GuardsFile::Tell(const std::string& words) {
    if (std::exchange(trouble, words) != words && onTrouble) onTrouble(words);
}

} // namespace halyard
