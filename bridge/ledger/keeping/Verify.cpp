#include "bridge/ledger/keeping/Verify.h"

#include "bridge/ledger/keeping/ListFold.h"

namespace halyard {

namespace {

/// As many of a kind as are told.
constexpr int MostFindings = 100;

struct Law {
    const char* words; ///< before the row's number
    const char* wrong; ///< numbers of rows that break it
};

// Rows of a run with a gap may point at what the gap took.
constexpr Law Laws[] = {
    {"No cause stands behind act #",
     "SELECT a.id FROM acts a LEFT JOIN causes c ON c.id = a.cause WHERE c.id IS NULL"},
    {"The op of its cause isn't the op of act #",
     "SELECT a.id FROM acts a JOIN causes c ON c.id = a.cause WHERE c.kind IN (1, 2) AND a.op IS NOT c.who"},
    {"The rule of its cause isn't the rule of act #",
     "SELECT a.id FROM acts a JOIN causes c ON c.id = a.cause "
     "WHERE c.rule IS NOT NULL AND a.rule IS NOT c.rule"},
    {"Another cause than its act's has change ",
     "SELECT c.id FROM changes c JOIN acts a ON a.id = c.act WHERE c.cause <> a.cause"},
    {"No act stands behind change ",
     "SELECT c.id FROM changes c LEFT JOIN acts a ON a.id = c.act WHERE c.act IS NOT NULL AND a.id IS NULL "
     "AND c.run NOT IN (SELECT run FROM gaps)"},
    {"Another person than its act's has change ",
     "SELECT c.id FROM changes c JOIN acts a ON a.id = c.act JOIN persons p ON p.id = a.person "
     "WHERE c.list = 8 AND c.op < 3 AND c.entry <> coalesce(p.key, char(57344) || 'p' || p.id)"},
    {"Not one request stands behind the answer of act #",
     "SELECT a.id FROM acts a LEFT JOIN requests r ON r.act = a.id WHERE a.outcome BETWEEN 1 AND 3 "
     "AND a.run NOT IN (SELECT run FROM gaps) "
     "GROUP BY a.id HAVING count(r.id) <> 1 OR max(r.verdict) IS NOT a.outcome"},
    {"No act stands behind request ",
     "SELECT r.id FROM requests r LEFT JOIN acts a ON a.id = r.act WHERE r.act IS NOT NULL AND a.id IS NULL "
     "AND r.run NOT IN (SELECT run FROM gaps)"},
};

} // namespace

std::vector<std::string> Verify(Connection& file) {
    std::vector<std::string> findings;
    auto& check = file.Prepare("PRAGMA integrity_check");
    while (check.Step())
        if (const auto words = check.Text(0); words != "ok") findings.push_back("The file: " + words);
    check.Reset();
    ListFold fold;
    int folded = 0;
    fold.onFinding = [&](const std::string& words) {
        if (++folded <= MostFindings) findings.push_back(words);
    };
    fold.Run(file);
    for (const auto& law : Laws) {
        auto& rows = file.Prepare(law.wrong);
        for (int count = 0; count < MostFindings && rows.Step(); ++count)
            findings.push_back(law.words + std::to_string(rows.Integer(0)) + ".");
        rows.Reset();
    }
    return findings;
}

} // namespace halyard
