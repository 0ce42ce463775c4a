#pragma once

// What guards remember over a restart: texts under keys, in guards.db beside the ledger, which may be
// switched off. Each change is written at once, what couldn't be is tried again. BanGuards owns the one.

#include "platform/Database.h"
#include "platform/Files.h"
#include "platform/Timer.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace halyard {

class Platform;

class GuardsFile {
  public:
    static constexpr int Pause = 10'000; ///< ms until what couldn't be written is tried again
    using Rows = std::map<std::string, std::string>;

    /// `platform` outlives it.
    explicit GuardsFile(Platform& platform);
    ~GuardsFile();
    GuardsFile(const GuardsFile&) = delete;
    GuardsFile& operator=(const GuardsFile&) = delete;

    /// What goes wrong, in words, once until it is well again; then an empty text.
    std::function<void(const std::string& words)> onTrouble;

    /// A file of an earlier run is there, or this one has been opened.
    bool Stands() const;
    /// `read` gets what stands there, at once or later, and is dropped with this. Once; what is put before
    /// goes over it.
    void Open(std::function<void(const Rows&)> read);
    void Put(const std::string& key, const std::string& text);
    void Drop(const std::string& key);

  private:
    using Changes =
        std::map<std::string, std::pair<bool, std::string>>; ///< by key: whether it stays, as what
    std::string Path() const;
    void Opened(OpenOutcome outcome, const std::string& words, std::function<void(const Rows&)> read);
    void Write();
    void Written(const Changes& changes, const DatabaseResult& result);
    void Tell(const std::string& words);

    Platform& platform;
    Changes waiting;
    bool writing = false;
    bool asked = false;
    std::string trouble;
    std::unique_ptr<Timer> again;
    std::unique_ptr<HeldFile> held;
    std::shared_ptr<int> life = std::make_shared<int>();
    std::unique_ptr<Database> file; // goes first
};

} // namespace halyard
