#pragma once

// The machine's files through its own calls, so that every step's result is seen and nothing is buffered in
// between.

#include "platform/Files.h"

namespace halyard {

class PosixFiles : public Files {
  public:
    std::unique_ptr<HeldFile> Hold(const std::string& path, const std::string& who) override;
    bool Exists(const std::string& path) override;
    std::optional<std::string> Read(const std::string& path, std::size_t limit) override;
    std::unique_ptr<OutputFile> Create(const std::string& path) override;
    std::unique_ptr<OutputFile> CreateNew(const std::string& path, const std::string& like) override;
    Way WayTo(const std::string& path) override;
    std::string Behind(const std::string& path) override;
    std::string Canonical(const std::string& path) override;
    bool IsPrivate(const std::string& path) override;
    bool MakePrivate(const std::string& path) override;
    bool Rename(const std::string& from, const std::string& to) override;
    bool Remove(const std::string& path) override;
    bool SyncFolder(const std::string& folder) override;
    bool MakeFolder(const std::string& folder) override;
    std::string ProgramFolder() override;
    std::string OwnFolder() override;
    std::string DataFolder() override;
    std::string StateFolder() override;
    std::string ConfigFolder() override;
    std::string BridgeFolder() override;
    char Separator() const override { return '/'; }
};

} // namespace halyard
