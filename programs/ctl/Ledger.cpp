#include "programs/ctl/Ledger.h"

#include "base/Latin1.h"
#include "bridge/ledger/keeping/Verify.h"
#include "bridge/ledger/reading/Export.h"
#include "bridge/ledger/reading/Moments.h"
#include "bridge/ledger/reading/Views.h"
#include "bridge/ledger/reading/Visible.h"
#include "platform/sqlite/Beside.h"
#include "platform/sqlite/Opening.h"
#include "programs/ctl/Columns.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

namespace halyard {

namespace {

constexpr std::size_t PageRows = 500;

ExitStatus Complain(ExitStatus status, const std::string& words) {
    std::cerr << "halyardctl: " << Visible(words) << "\n";
    return status;
}

std::string Counted(std::int64_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

/// One run of a command on the open file.
class LedgerRun {
  public:
    LedgerRun(const LedgerCall& call, SqliteConnection& file) : call(call), file(file) {}

    ExitStatus Run() {
        const auto status = Command();
        if (file.Failed()) return Complain(ExitStatus::InOut, FromFile(file.Result().words));
        std::cout.flush();
        return std::cout ? status : Complain(ExitStatus::InOut, "The answer could not be written.");
    }

  private:
    std::string FromFile(const std::string& words) const { return ToUtf8(call.file) + ": " + words; }

    ExitStatus Command() {
        switch (call.command) {
        case LedgerCall::Command::List: return List(call.words);
        case LedgerCall::Command::Person: return Person();
        case LedgerCall::Command::Op: return Op();
        case LedgerCall::Command::Rule: return Rule();
        case LedgerCall::Command::Export: return Export();
        case LedgerCall::Command::Verify: return Verified();
        case LedgerCall::Command::Prune: return Prune();
        case LedgerCall::Command::BackUp: return BackedUp();
        }
        return ExitStatus::Misuse;
    }

    void Tell(const nlohmann::json& value) { std::cout << JsonLine(value); }

    /// Words and options as one search; nothing, told, when they are wrong.
    std::optional<Search> Asked(const std::vector<std::string>& words) {
        auto text = SearchOfArguments(words);
        const auto add = [&](const char* field, const std::string& value) {
            if (!value.empty()) text += " " + FieldText(field, value);
        };
        add("room", call.room);
        add("since", call.since);
        add("until", call.until);
        auto read = ReadSearch(text, call.now);
        if (auto* search = std::get_if<Search>(&read)) return std::move(*search);
        const auto& mistake = std::get<SearchMistake>(read);
        Complain(ExitStatus::Misuse,
                 mistake.words + " (" + text.substr(std::min(mistake.place, text.size())) + ")");
        return std::nullopt;
    }

    /// Hands each act to `take`, the newest first. False when there is none.
    template <typename Take>
    bool EachAct(const Search& search, Take take) {
        std::int64_t taken = 0, before = 0;
        for (;;) {
            auto rows = PageRows;
            if (call.limit > 0) rows = std::min(rows, static_cast<std::size_t>(call.limit - taken));
            // No transaction stays open over the whole of it: the bot's log could not start anew meanwhile.
            const auto page = rows == 0 ? std::vector<ActRow>() : FindActs(file, search, before, rows);
            for (const auto& act : page) take(act);
            taken += static_cast<std::int64_t>(page.size());
            if (page.size() < rows || page.empty()) return taken > 0;
            before = page.back().number;
        }
    }

    ExitStatus List(const std::vector<std::string>& words) {
        const auto search = Asked(words);
        if (!search) return ExitStatus::Misuse;
        Columns columns(24);
        const bool any = EachAct(*search, [&](const ActRow& act) {
            if (call.json) return Tell(JsonOf(act));
            const bool onList = act.list != ListName::None;
            columns.Add({"#" + std::to_string(act.number), ShownMoment(act.at),
                         std::string(ActWord(act.kind)),
                         act.personName.empty() ? EntryName(act.entry) : act.personName,
                         onList ? ListWord(act.list) : act.roomName,
                         act.undone != 0 ? "taken back by #" + std::to_string(act.undone) : act.outcomeWords,
                         act.cause});
        });
        std::cout << columns.Text();
        return any ? ExitStatus::Done : ExitStatus::No;
    }

    ExitStatus Person() {
        const auto person = ReadPerson(file, FindPerson(file, call.words.front()));
        if (!person) return Unknown("person");
        if (call.json) return TellPerson(*person);
        std::cout << Visible(person->name) << ": " << Counted(person->acts, "act", "acts") << ", "
                  << person->takenBack << " taken back\n";
        Columns places, notes(64), others;
        for (const auto& place : person->standing)
            places.Add({ListWord(place.list), place.roomName,
                        (place.wasSeen ? "since " : "before ") + ShownMoment(place.since),
                        place.act == 0 ? std::string() : "#" + std::to_string(place.act)});
        for (const auto& note : person->notes)
            notes.Add({ShownMoment(note.at), note.kind == NoteKind::Appeal ? "appeal" : "note", note.author,
                       note.text});
        for (const auto& other : person->lookalikes)
            others.Add({other.name, Counted(other.acts, "act", "acts"),
                        other.same ? "looks the same" : "one letter off"});
        Section("stands on", places);
        Section("notes", notes);
        Section("looks like", others);
        std::cout << "acts\n";
        List({FieldText("person", person->name)});
        return ExitStatus::Done;
    }

    ExitStatus TellPerson(const PersonPage& person) {
        nlohmann::json value = {
            {"person", person.name}, {"acts", person.acts}, {"takenBack", person.takenBack}};
        for (const auto& place : person.standing)
            value["standsOn"].push_back({{"list", ListWord(place.list)},
                                         {"room", place.roomName},
                                         {"since", UtcText(place.since)},
                                         {"seen", place.wasSeen},
                                         {"act", place.act}});
        for (const auto& note : person.notes)
            value["notes"].push_back({{"at", UtcText(note.at)},
                                      {"appeal", note.kind == NoteKind::Appeal},
                                      {"author", note.author},
                                      {"text", note.text}});
        for (const auto& other : person.lookalikes)
            value["looksLike"].push_back(
                {{"person", other.name}, {"acts", other.acts}, {"same", other.same}});
        Tell(value);
        return ExitStatus::Done;
    }

    ExitStatus Op() {
        const auto search = Asked({});
        if (!search) return ExitStatus::Misuse;
        if (call.words.empty()) return Counts(ReadOps(file), "op");
        const auto op = ReadOp(file, FindPerson(file, call.words.front()), search->since.value_or(0));
        if (!op || op->all.acts == 0) return Unknown("op");
        Columns days;
        days.Add({"day", "acts", "taken back", "without reason"});
        nlohmann::json value = {{"op", op->name}, {"days", nlohmann::json::array()}};
        const auto add = [&](const std::string& day, const ActCounts& counts) {
            days.Add({day, std::to_string(counts.acts), std::to_string(counts.takenBack),
                      std::to_string(counts.noReason)});
            return nlohmann::json{{"day", day},
                                  {"acts", counts.acts},
                                  {"takenBack", counts.takenBack},
                                  {"noReason", counts.noReason}};
        };
        for (const auto& day : op->days) value["days"].push_back(add(day.day, day));
        value["all"] = add("all", op->all);
        if (call.json)
            Tell(value);
        else
            std::cout << Visible(op->name) << "\n" << days.Text(2);
        return ExitStatus::Done;
    }

    ExitStatus Rule() {
        if (call.neverHit) return Never();
        const auto text = call.words.empty() ? std::string() : call.words.front();
        const auto rules = ReadRules(file, text);
        if (rules.size() != 1 || text.empty()) return Counts(rules, "rule");
        const auto rule = ReadRule(file, rules.front().row);
        if (!rule) return Unknown("rule");
        const auto name = RuleName(rule->kind, rule->entry);
        if (call.json) {
            nlohmann::json value = {{"rule", name},
                                    {"acts", rule->acts},
                                    {"takenBack", rule->takenBack},
                                    {"stands", rule->stands},
                                    {"lastHit", UtcText(rule->lastHit)}};
            for (const auto& hit : rule->persons)
                value["persons"].push_back({{"person", hit.name}, {"acts", hit.acts}, {"last", hit.lastAct}});
            Tell(value);
            return ExitStatus::Done;
        }
        std::cout << Visible(name) << ": " << Counted(rule->acts, "act", "acts") << ", " << rule->takenBack
                  << " taken back, the last " << ShownMoment(rule->lastHit)
                  << (rule->stands ? "; its entry stands\n" : "\n");
        Columns hits;
        for (const auto& hit : rule->persons)
            hits.Add({hit.name, Counted(hit.acts, "act", "acts"), "last #" + std::to_string(hit.lastAct)});
        Section("hit", hits);
        return ExitStatus::Done;
    }

    ExitStatus Never() {
        const auto never = ReadNeverHit(file);
        for (const auto& entry : never) {
            if (call.json)
                Tell({{"kind", RuleWord(entry.kind)}, {"entry", entry.entry}});
            else
                std::cout << Visible(RuleName(entry.kind, entry.entry)) << "\n";
        }
        return never.empty() ? ExitStatus::No : ExitStatus::Done;
    }

    ExitStatus Counts(const std::vector<ActsOf>& all, const char* what) {
        Columns columns(64);
        for (const auto& one : all) {
            if (call.json)
                Tell({{what, one.name}, {"acts", one.acts}, {"last", one.lastAct}});
            else
                columns.Add({one.name, Counted(one.acts, "act", "acts"),
                             one.lastAct == 0 ? std::string() : "last #" + std::to_string(one.lastAct)});
        }
        std::cout << columns.Text();
        return all.empty() ? ExitStatus::No : ExitStatus::Done;
    }

    ExitStatus Export() {
        const auto search = Asked(call.words);
        if (!search) return ExitStatus::Misuse;
        const bool lines = call.json || call.jsonLines;
        if (!lines) std::cout << CsvHead();
        const bool any = EachAct(
            *search, [&](const ActRow& act) { std::cout << (lines ? JsonLine(JsonOf(act)) : CsvRow(act)); });
        return any ? ExitStatus::Done : ExitStatus::No;
    }

    ExitStatus Verified() {
        const auto findings = Verify(file);
        if (call.json)
            Tell({{"clean", findings.empty()}, {"findings", findings}});
        else if (findings.empty())
            std::cout << "Nothing is wrong.\n";
        for (const auto& finding : findings)
            if (!call.json) std::cout << Visible(finding) << "\n";
        return findings.empty() ? ExitStatus::Done : ExitStatus::No;
    }

    ExitStatus Prune() {
        Pruning pruning(call.days, call.now);
        bool more = true;
        while (more && !file.Failed()) {
            file.Execute("BEGIN IMMEDIATE");
            more = pruning.Step(file);
            file.ResetAll();
            file.Execute("COMMIT");
        }
        if (file.Failed()) return ExitStatus::InOut;
        ClearLog(file);
        if (call.json)
            Tell({{"rows", pruning.Rows()}});
        else
            std::cout << Counted(pruning.Rows(), "row", "rows") << " pruned.\n";
        return ExitStatus::Done;
    }

    ExitStatus BackedUp() {
        BackUp(file, FromUtf8(call.words.front()));
        if (file.Failed()) return ExitStatus::InOut;
        if (call.json)
            Tell({{"file", call.words.front()}});
        else
            std::cout << "Backed up to " << Visible(call.words.front()) << ".\n";
        return ExitStatus::Done;
    }

    ExitStatus Unknown(const char* what) {
        const auto name = call.words.empty() ? std::string() : " \"" + call.words.front() + "\"";
        return Complain(ExitStatus::No, std::string("There is no ") + what + name + " in the ledger.");
    }

    static void Section(const char* head, const Columns& rows) {
        if (!rows.Empty()) std::cout << head << "\n" << rows.Text(2);
    }

    const LedgerCall& call;
    SqliteConnection& file;
};

} // namespace

ExitStatus RunLedger(const LedgerCall& call) {
    const auto place = ToUtf8(call.file);
    if (call.file.empty() || !FileStands(place))
        return Complain(ExitStatus::NobodyThere,
                        "There is no ledger " + (place.empty() ? "here" : place) + ".");
    const bool writes = call.command == LedgerCall::Command::Prune;
    std::unique_ptr<FileLock> folder;
    if (writes) {
        bool busy = false;
        folder = FileLock::Take(place.substr(0, place.rfind('/') + 1) + "halyard", busy);
        if (busy) return Complain(ExitStatus::InOut, "A bot runs on this ledger: it prunes by itself.");
        if (!folder) return Complain(ExitStatus::InOut, "Beside " + place + " nothing can be written.");
    }
    const auto opened = OpenConnection(LedgerSpec(call.file, call.now / 1000),
                                       writes ? OpenMode::ReadWrite : OpenMode::ReadOnly);
    if (!opened.connection) return Complain(ExitStatus::InOut, opened.result.words);
    return LedgerRun(call, *opened.connection).Run();
}

} // namespace halyard
