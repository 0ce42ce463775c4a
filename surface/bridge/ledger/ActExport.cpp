#include "surface/bridge/ledger/ActExport.h"

#include "base/Text.h"
#include "bridge/ledger/reading/Export.h"
#include "platform/Files.h"
#include "surface/bridge/ledger/ActText.h"

#include <nlohmann/json.hpp>

namespace halyard {

namespace {

constexpr std::size_t PageSize = 500;
constexpr const char* Unfinished = ".part";

} // namespace

ActExport::ActExport(Files& files, const LedgerRead& read) : files(files), question(read) {}

ActExport::~ActExport() {
    if (file) GiveUp({});
}

void ActExport::Start(const Search& wanted, const std::string& to) {
    if (file) GiveUp({});
    search = wanted;
    path = to;
    const auto lower = Lower(path);
    asJson = lower.ends_with(".jsonl") || lower.ends_with(".json");
    before = written = 0;
    files.Remove(path + Unfinished);
    file = files.CreateNew(path + Unfinished, {});
    if (!file) return onTell("The export could not be written.");
    if (!asJson && !file->Write(CsvHead())) return GiveUp("The export could not be written.");
    Next();
}

void ActExport::Next() {
    struct Page {
        std::string text;
        std::int64_t acts = 0;
        std::int64_t last = 0;
    };
    const bool asked = question.Ask(
        [wanted = search, from = before, json = asJson](Connection& connection) {
            Page page;
            for (const auto& act : FindActs(connection, wanted, from, PageSize)) {
                page.text += json ? JsonLine(JsonOf(act)) : CsvRow(act);
                page.last = act.number;
                ++page.acts;
            }
            return page;
        },
        [this](const DatabaseResult& result, const Page& page) {
            if (!result.Ok()) return GiveUp(Readable(result.words));
            Write(page.text, page.acts, page.last);
        });
    if (!asked) GiveUp("No ledger is open.");
}

void ActExport::Write(const std::string& text, std::int64_t acts, std::int64_t last) {
    if (!file->Write(text)) return GiveUp("The export could not be written.");
    before = last;
    written += acts;
    if (acts < static_cast<std::int64_t>(PageSize)) return End();
    onTell(Counted(written, "act") + " exported so far.");
    Next();
}

void ActExport::End() {
    const bool whole = file->Sync() && file->Close();
    file.reset();
    if (!whole || !files.Rename(path + Unfinished, path)) return GiveUp("The export could not be written.");
    onTell(Counted(written, "act") + " exported.");
}

void ActExport::GiveUp(const std::string& words) {
    question.Drop();
    file.reset();
    files.Remove(path + Unfinished);
    if (!words.empty()) onTell(words);
}

} // namespace halyard
