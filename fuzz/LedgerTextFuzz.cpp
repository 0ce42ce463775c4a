// Texts of any bytes for the ledger: as the line of an act, which its words must find again; as a search
// typed into the window; as arguments from a shell; as what a table or a terminal is shown; as an op's
// instant message.

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/ActWords.h"
#include "bridge/ledger/IndexWords.h"
#include "bridge/ledger/Texts.h"
#include "bridge/ledger/answers/AnswerTexts.h"
#include "bridge/ledger/answers/Asks.h"
#include "bridge/ledger/reading/Export.h"
#include "bridge/ledger/reading/Views.h"
#include "bridge/ledger/reading/Visible.h"
#include "fuzz/FedPlatform.h"
#include "platform/sqlite/Opening.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace {

using namespace halyard;

constexpr std::int64_t Now = 1'764'000'000'000;

/// In memory, with one act whose line changes.
SqliteConnection& File() {
    static const auto opened = [] {
        auto made = OpenConnection(LedgerSpec({}, 0), OpenMode::ReadWrite);
        fuzz::Require(made.connection &&
                      made.connection->Execute(
                          "INSERT INTO runs(began, version) VALUES(0, '');"
                          "INSERT INTO causes(kind) VALUES(1);"
                          "INSERT INTO acts(run, at, cause, kind, outcome) VALUES(1, 0, 1, 1, 0)"));
        PutInWords(*made.connection, 1);
        return made;
    }();
    return *opened.connection;
}

/// How many acts the text finds; nothing when it is no search.
std::optional<std::size_t> Found(std::string_view text) {
    const auto read = ReadSearch(text, Now);
    if (const auto* mistake = std::get_if<SearchMistake>(&read)) {
        fuzz::Require(mistake->place <= text.size() && Visible(mistake->words) == mistake->words);
        return std::nullopt;
    }
    const auto acts = FindActs(File(), std::get<Search>(read), 0, 10);
    // A text that the index does not take for a question would fail here.
    fuzz::Require(!File().Failed());
    return acts.size();
}

void KeepLine(std::string_view line) {
    auto& file = File();
    const auto kept = KeptText(line);
    TakeOutWords(file, 1);
    file.Prepare("UPDATE causes SET line = ? WHERE id = 1").Bind(1, kept).Step();
    PutInWords(file, 1);
    fuzz::Require(!file.Failed());
    const auto words = WordsOf(StripHTML(kept));
    for (std::size_t at = 0; at < words.size(); at += 1 + words.size() / 20)
        fuzz::Require(Found("\"" + words[at] + "\"") == 1 &&
                      (FromUtf8(words[at]).size() < 2 || Found(words[at] + "*") == 1));
    const auto act = ReadAct(file, 1);
    fuzz::Require(act && act->line == kept);
    fuzz::Require(nlohmann::json::parse(JsonLine(JsonOf(*act))).value("line", "") == kept);
}

void Show(const std::string& text) {
    const auto shown = Visible(text);
    fuzz::Require(Visible(shown) == shown);
    fuzz::Require(
        std::all_of(shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) >= ' '; }));
    const auto row = CsvRow(std::vector<std::string>{text, text});
    fuzz::Require(row.find('\n') == row.size() - 1);
    fuzz::Require(!JsonLine(text).empty());
}

/// A message is no question, or one within its bounds that the ledger can answer.
std::optional<Ask> AskBridge(const std::string& message) {
    auto ask = ReadAsk(message);
    if (!ask) return ask;
    const bool isNote = ask->what == Ask::What::Note;
    fuzz::Require(isNote ? !ask->text.empty() && ask->text.size() <= 1000 : ask->text.empty());
    fuzz::Require(!(isNote || ask->what == Ask::What::Why) || !NormalizeName(ask->name).empty());
    fuzz::Require(ask->name.size() <= 100 && ask->act >= 0 && (ask->act == 0 || ask->name.empty()));
    fuzz::Require(ask->count >= 1 && ask->count <= Ask::MostActs);
    const auto name = ToUtf8(ask->name);
    fuzz::Require(!WhyText(File(), name).empty() && !LastText(File(), name, ask->count).empty());
    LastToUndo(File(), name, name);
    ReadAct(File(), ask->act);
    return ask;
}

void AskInWords(const std::string& text) {
    AskBridge(text);
    for (const char* word : {"why ", "last ", "undo "}) AskBridge(word + text);
    // Whatever an op writes behind a name is noted, from its beginning.
    const auto written = Trim(StripHTML(text));
    const auto note = AskBridge("Note \"room boss\" " + text);
    fuzz::Require(note ? note->name == "room boss" && note->text == Left(written, 1000) : written.empty());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    KeepLine(text);
    Show(text);
    Found(text);
    Found(SearchOfArguments(Split(text, "\n")));
    Found(FieldText("room", text) + " " + FieldText("rule", text) + " " + FieldText("person", text));
    FindPerson(File(), text);
    ReadRules(File(), text);
    AskInWords(text);
    fuzz::Require(!File().Failed());
    return 0;
}
