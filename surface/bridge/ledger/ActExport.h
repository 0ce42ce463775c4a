#pragma once

// Writes the acts that a search finds into a file, page by page, as CSV or as JSON, one object a line. The
// window Ledger owns the one.

#include "bridge/ledger/reading/SearchText.h"
#include "surface/bridge/ledger/LedgerQuestion.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace halyard {

class Files;
class OutputFile;

class ActExport {
  public:
    /// Both outlive it.
    ActExport(Files& files, const LedgerRead& read);
    ~ActExport();

    /// How far it is, what came of it, or why not.
    std::function<void(const std::string& words)> onTell;
    /// JSON for a path that ends with ".jsonl" or ".json", else CSV. What stands at the path is replaced when
    /// all is written. An export that is under way is given up.
    void Start(const Search& search, const std::string& path);

  private:
    void Next();
    void Write(const std::string& text, std::int64_t acts, std::int64_t last);
    void End();
    void GiveUp(const std::string& words);

    Files& files;
    LedgerQuestion question;
    Search search;
    std::string path;
    std::unique_ptr<OutputFile> file; ///< null while nothing is exported
    bool asJson = false;
    std::int64_t before = 0;
    std::int64_t written = 0;
};

} // namespace halyard
