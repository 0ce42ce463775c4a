#pragma once

// enforcement.json and the key of its hashes, in the bridge's data folder. At most 10,000 entries; hashes go
// first, the oldest first, and after 30 days. A file that makes no sense is put aside and told of.
// Enforcement owns the one.

#include "bridge/networks/enforcement/EnforcementNames.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace halyard {

class Files;
class Platform;

class EnforcementRecord {
  public:
    static constexpr std::size_t Most = 10000;
    static constexpr std::int64_t KeptSeconds = std::int64_t{30} * 24 * 3600;

    /// An empty `folder` keeps nothing.
    EnforcementRecord(Platform& platform, std::string folder, std::function<void(const std::string&)> tell);

    /// Reads the file, the first time that it is called.
    void Load();

    // Names in any form, `at` as in EnforcementNames.
    bool IsSuspended(const std::string& name, const std::string& at) const;
    /// Written at once. False when it couldn't be kept, and then it isn't.
    bool AddSuspension(const std::string& name, const std::string& at);
    void RemoveSuspension(const std::string& name, const std::string& at);

    /// The hash of an address under this machine's key, which is made when first needed. Empty when none can
    /// be kept.
    std::string HashOf(const std::string& address);
    /// Who came from there within 30 days, each once, the latest last.
    std::vector<std::string> NamesFrom(const std::string& hash, const std::string& at) const;
    /// Kept by the next Flush.
    void AddSeen(const std::string& name, const std::string& at, const std::string& hash);
    /// Writes what isn't written yet; told, once, when that fails.
    bool Flush();

  private:
    std::string PathOf(const char* file) const;
    void PutAside(const std::string& path, const std::string& why);
    bool MakeKey(const std::string& path);
    void Shorten();
    bool Write();

    Platform& platform;
    Files& files;
    std::string folder;
    std::function<void(const std::string&)> tell;
    EnforcementNames names;
    std::string key;
    bool loaded = false;
    bool unwritten = false;
    bool failed = false;  ///< the last time it was written
    bool blocked = false; ///< a file that can't be read stands in the way
};

} // namespace halyard
