#include "bridge/ledger/ActWords.h"

#include "base/Text.h"
#include "bridge/ledger/IndexWords.h"

namespace halyard {

std::string ActWords(Connection& file, std::int64_t act) {
    auto& row = file.Prepare(
        "SELECT a.kind, a.person, a.room, a.op, a.rule, p.key, p.indexed, c.line, c.reason, a.entry, "
        "r.entry, r.kind "
        "FROM acts a LEFT JOIN persons p ON p.id = a.person LEFT JOIN causes c ON c.id = a.cause "
        "LEFT JOIN rules r ON r.id = a.rule WHERE a.id = ?");
    if (!row.Bind(1, act).Step()) return {};
    auto words = FieldWord(WordField::Kind, row.Integer(0));
    const auto field = [&](WordField which, int column) {
        if (!row.IsNull(column)) words += " " + FieldWord(which, row.Integer(column));
    };
    field(WordField::Person, 1);
    field(WordField::Room, 2);
    field(WordField::Op, 3);
    field(WordField::Rule, 4);
    field(WordField::RuleKind, 11);
    const auto text = [&](int column) {
        if (!row.IsNull(column)) words += " " + StripHTML(row.Text(column));
    };
    text(5);
    if (row.Text(6) != row.Text(5)) text(6);
    text(7);
    const auto reason = row.Text(8);
    // It mostly stands in the line too.
    if (row.IsNull(7) || row.Text(7).find(reason) == std::string::npos) text(8);
    for (const auto& word : WordsOf(reason)) words += " " + FieldWord(WordField::Reason, word);
    text(9);
    text(10);
    row.Reset();
    return words;
}

void PutInWords(Connection& file, std::int64_t act) {
    const auto words = ActWords(file, act);
    if (words.empty()) return;
    file.Prepare("INSERT INTO words(rowid, text) VALUES(?, ?)").Bind(1, act).Bind(2, words).Step();
}

void TakeOutWords(Connection& file, std::int64_t act) {
    const auto words = ActWords(file, act);
    if (words.empty()) return;
    auto& out = file.Prepare("INSERT INTO words(words, rowid, text) VALUES('delete', ?, ?)");
    out.Bind(1, act).Bind(2, words).Step();
}

} // namespace halyard
