#include "surface/bridge/ledger/ActText.h"

#include "base/Latin1.h"
#include "bridge/ledger/reading/Moments.h"
#include "bridge/ledger/reading/Visible.h"

namespace halyard {

namespace {

constexpr const char* LineEnd = "\r\n";
constexpr std::int64_t Thousand = 1000;

std::string Number(std::int64_t act) { return "#" + std::to_string(act); }

std::string Line(const std::string& what, const std::string& text) {
    return text.empty() ? std::string() : what + ": " + text + LineEnd;
}

/// "list-add autobans" for what lists and options go through, else the kind alone.
std::string KindWords(const ActRow& act) {
    std::string words(ActWord(act.kind));
    const bool ofList =
        act.kind == ActKind::ListAdd || act.kind == ActKind::ListRemove || act.kind == ActKind::ListClear;
    return ofList ? words + " " + ListWord(act.list) : words;
}

/// Whom or what it was done to.
std::string Whom(const ActRow& act) { return Readable(act.person != 0 ? act.personName : act.entry); }

std::string Place(const ActRow& act) {
    if (act.room == 0) return {};
    return Readable(act.roomName) +
           (act.exchange == 4 ? "" : " (exchange " + std::to_string(act.exchange) + ")");
}

std::string OutcomeOf(const ActRow& act) {
    return Readable(act.outcomeWords) + (act.undone == 0 ? "" : ", taken back by " + Number(act.undone));
}

std::string OneStanding(const Standing& standing) {
    std::string words = ListWord(standing.list);
    if (standing.list == ListName::Ejects) words += " of " + Readable(standing.roomName);
    words += standing.wasSeen ? " since " : " since before ";
    words += ShownMoment(standing.since);
    return words + (standing.act == 0 ? "" : " by " + Number(standing.act));
}

std::string CountWords(const ActCounts& counts) {
    return Counted(counts.acts, "act") + ", " + Counted(counts.takenBack, "") + " taken back, " +
           Counted(counts.noReason, "") + " without a reason";
}

} // namespace

std::string Readable(const std::string& utf8) { return FromUtf8(Visible(utf8)); }

std::string Counted(std::int64_t count, const char* one) {
    std::string digits;
    for (; count >= Thousand; count /= Thousand) {
        const auto three = std::to_string(count % Thousand + Thousand).substr(1);
        digits = digits.empty() ? three : three + "," + digits;
    }
    auto all = std::to_string(count) + (digits.empty() ? "" : "," + digits);
    if (*one == 0) return all;
    return all + " " + one + (all == "1" ? "" : "s");
}

std::vector<TableBox::Column> ActColumns() {
    return {{"Act", 13},  {"Time", 29}, {"What", 18},   {"Whom", 20},
            {"Room", 14}, {"Cause", 0}, {"Reason", 18}, {"Outcome", 18}};
}

std::vector<std::string> ActCells(const ActRow& act) {
    return {Number(act.number), ShownMoment(act.at), KindWords(act),       Whom(act),
            Place(act),         Readable(act.cause), Readable(act.reason), OutcomeOf(act)};
}

std::string ActDetail(const ActRow& act) {
    auto head = Number(act.number) + ", " + ShownMoment(act.at) + ": " + KindWords(act);
    if (const auto whom = Whom(act); !whom.empty()) head += ", " + whom;
    if (const auto place = Place(act); !place.empty()) head += ", in " + place;
    return head + LineEnd + Line("Cause", Readable(act.cause)) +
           (act.causeKind == CauseKind::Rule ? Line("Line", Readable(act.line)) : "") +
           Line("Reason", Readable(act.reason)) + Line("Outcome", OutcomeOf(act)) +
           (act.person != 0 ? Line("Entry", Readable(act.entry)) : "") +
           (act.undoes == 0 ? "" : Line("Takes back", Number(act.undoes)));
}

std::string EvidenceWords(const std::vector<EvidenceLine>& lines) {
    std::string words;
    for (const auto& line : lines)
        words +=
            "  " + ShownMoment(line.at) + ", " + Readable(line.room) + ": " + Readable(line.line) + LineEnd;
    return words.empty() ? words : std::string("Said before:") + LineEnd + words;
}

std::string PersonWords(const PersonPage& page, const std::vector<std::string>& rooms) {
    std::string words = Readable(page.name);
    for (std::size_t index = 0; index < rooms.size(); ++index)
        words += (index == 0 ? ", now in " : ", ") + rooms[index];
    words +=
        LineEnd + Counted(page.acts, "act") + ", " + Counted(page.takenBack, "") + " taken back." + LineEnd;
    words += page.standing.empty() ? std::string("On no list.") + LineEnd : "";
    for (const auto& standing : page.standing) words += "On " + OneStanding(standing) + LineEnd;
    for (const auto& note : page.notes)
        words += std::string(note.kind == NoteKind::Appeal ? "Appeal, " : "Note, ") + ShownMoment(note.at) +
                 (note.author.empty() ? "" : ", " + Readable(note.author)) + ": " + Readable(note.text) +
                 LineEnd;
    for (const auto& other : page.lookalikes)
        words += "Looks alike: " + Readable(other.name) + (other.same ? "" : ", one letter apart") + ", " +
                 Counted(other.acts, "act") + LineEnd;
    return words;
}

std::string OpWords(const OpPage& page, int days) {
    auto words = Readable(page.name) + LineEnd + "In the last " + std::to_string(days) +
                 " days: " + CountWords(page.all) + "." + LineEnd;
    for (const auto& day : page.days) words += day.day + ": " + CountWords(day) + LineEnd;
    return words;
}

std::string RuleWords(const RulePage& page) {
    auto words = Readable(RuleName(page.kind, page.entry)) + LineEnd + Counted(page.acts, "act") + ", " +
                 Counted(page.takenBack, "") + " taken back." + LineEnd;
    if (page.acts > 0) words += "It last hit " + ShownMoment(page.lastHit) + "." + LineEnd;
    if (ListOf(page.kind) != ListName::None)
        words += std::string(page.stands ? "Its entry stands on " : "Its entry is no longer on ") +
                 ListWord(ListOf(page.kind)) + "." + LineEnd;
    for (const auto& person : page.persons)
        words += "Hit " + Readable(person.name) + ", " + Counted(person.acts, "time") + ", last by " +
                 Number(person.lastAct) + LineEnd;
    return words;
}

} // namespace halyard
