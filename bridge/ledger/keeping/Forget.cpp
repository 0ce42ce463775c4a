// A person is forgotten; and what takes the whole file.

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/ActWords.h"
#include "bridge/ledger/Texts.h"
#include "bridge/ledger/keeping/Contents.h"
#include "bridge/ledger/keeping/Keeping.h"
#include "bridge/ledger/keeping/ListFold.h"

#include <algorithm>
#include <vector>

namespace halyard {

namespace {

constexpr auto EjectLists = static_cast<std::int64_t>(ListName::Ejects);

/// The one forgetting of one person.
class Forgetting {
  public:
    Forgetting(Connection& file, const std::string& key)
        : file(file), key(key), permsKey("perms:" + key), heads{key, permsKey + "\t"} {}

    ForgetOutcome Run();

  private:
    bool FindPerson();
    void FindActs();
    void RewriteRows();
    void RewriteContents();
    std::string Rewritten(std::int64_t list, const std::string& entries) const;
    void Do(const char* sql) { file.Prepare(sql).Bind(1, person).Step(); }
    /// With ?1 the name, ?2 the stone and ?3 the list.
    void Replace(const char* sql, const std::string& from, const std::string& to, std::int64_t list) {
        file.Prepare(sql).Bind(1, from).Bind(2, to).Bind(3, list).Step();
    }

    Connection& file;
    std::string key, permsKey; ///< UTF-8
    std::vector<std::string> heads;
    std::int64_t person = 0;
    std::string stone;
    std::vector<std::int64_t> acts;
    std::vector<std::int64_t> lists; ///< that don't hold the name now
    bool hasPerms = false;
};

bool Forgetting::FindPerson() {
    auto& find = file.Prepare("SELECT id FROM persons WHERE key = ?");
    person = find.Bind(1, key).Step() ? find.Integer(0) : 0;
    find.Reset();
    stone = StoneOf(person);
    return person != 0;
}

/// Those whose words change.
void Forgetting::FindActs() {
    auto& find = file.Prepare(
        "SELECT id FROM acts WHERE person = ?1 UNION SELECT id FROM acts WHERE entry IN (?2, ?3) "
        "UNION SELECT a.id FROM acts a JOIN rules r ON r.id = a.rule WHERE r.entry = ?2 "
        "UNION SELECT a.id FROM causes c JOIN acts a ON a.cause = c.id WHERE c.who = ?1");
    find.Bind(1, person).Bind(2, key).Bind(3, permsKey);
    while (find.Step()) acts.push_back(find.Integer(0));
    find.Reset();
}

ForgetOutcome Forgetting::Run() {
    if (!FindPerson()) return ForgetOutcome::Unknown;
    ListFold fold;
    fold.Run(file);
    std::vector<std::int64_t> holding;
    for (const auto& [place, list] : fold.Lists()) {
        if (place.first == EjectLists && list.Holds(key)) return ForgetOutcome::OnEjectList;
        if (place.first != 0 && list.Holds(key)) holding.push_back(place.first);
        for (const auto& entry : list.Entries()) hasPerms = hasPerms || entry.starts_with(heads[1]);
    }
    for (std::int64_t list = 0; list <= EjectLists; ++list)
        if (std::find(holding.begin(), holding.end(), list) == holding.end()) lists.push_back(list);
    FindActs();
    for (const auto act : acts) TakeOutWords(file, act);
    RewriteRows();
    RewriteContents();
    Do("UPDATE persons SET key = NULL, spelled = NULL, indexed = NULL, skeleton = NULL, forgotten = 1 "
       "WHERE id = ?");
    for (const auto act : acts) PutInWords(file, act);
    return ForgetOutcome::Forgotten;
}

void Forgetting::RewriteRows() {
    Do("UPDATE causes SET line = NULL, reason = NULL WHERE who = ?1 OR id IN "
       "(SELECT cause FROM acts WHERE person = ?1)");
    Do("DELETE FROM evidence WHERE act IN (SELECT id FROM acts WHERE person = ?)");
    Do("DELETE FROM notes WHERE person = ?");
    for (const auto list : lists) {
        const bool options = list == 0;
        if (options && hasPerms) continue;
        const auto& from = options ? permsKey : key;
        const auto to = options ? "perms:" + stone : stone;
        Replace("UPDATE changes SET entry = ?2 WHERE entry = ?1 AND list = ?3", from, to, list);
        Replace("UPDATE acts SET entry = ?2 WHERE entry = ?1 AND coalesce(list, 0) = ?3", from, to, list);
    }
    constexpr auto Autobans = static_cast<std::int64_t>(ListName::Autobans);
    if (std::find(lists.begin(), lists.end(), Autobans) != lists.end())
        Replace("UPDATE rules SET entry = ?2 WHERE entry = ?1 AND kind = ?3", key, stone,
                static_cast<std::int64_t>(RuleKind::Autoban));
}

std::string Forgetting::Rewritten(std::int64_t list, const std::string& entries) const {
    std::string text;
    for (auto& entry : Split(entries, "\n")) {
        if (list != 0 && entry == key) entry = stone;
        if (list == 0 && entry.starts_with(heads[1])) entry.replace(6, key.size(), stone);
        text += entry + "\n";
    }
    if (!text.empty()) text.pop_back();
    return text;
}

/// Each whole content that holds the name becomes another; the old one goes when nobody points at it.
void Forgetting::RewriteContents() {
    struct Pointer {
        std::int64_t whole, list;
        std::string entries;
    };
    std::vector<Pointer> pointers;
    auto& find =
        file.Prepare("SELECT w.id, w.list, c.entries FROM wholes w JOIN contents c ON c.id = w.content "
                     "WHERE instr(c.entries, ?) > 0");
    find.BindBlob(1, key);
    while (find.Step()) {
        const auto list = find.Integer(1);
        if (list == 0 ? hasPerms : std::find(lists.begin(), lists.end(), list) == lists.end()) continue;
        pointers.push_back({find.Integer(0), list, find.Blob(2)});
    }
    find.Reset();
    for (const auto& [whole, list, entries] : pointers) {
        const auto text = Rewritten(list, entries);
        if (text == entries) continue;
        const auto content = ContentId(file, text);
        file.Prepare("UPDATE wholes SET content = ? WHERE id = ?").Bind(1, content).Bind(2, whole).Step();
    }
    file.Prepare("DELETE FROM contents WHERE id NOT IN (SELECT content FROM wholes)").Step();
}

} // namespace

ForgetOutcome Forget(Connection& file, const std::string& name) {
    return Forgetting(file, KeptText(NormalizeName(name))).Run();
}

bool MergeWords(Connection& file, bool begin) {
    constexpr std::int64_t Pages = 300;
    const auto changes = [&file] {
        auto& row = file.Prepare("SELECT total_changes()");
        const auto count = row.Step() ? row.Integer(0) : 0;
        row.Reset();
        return count;
    };
    const auto before = changes();
    auto& merge = file.Prepare("INSERT INTO words(words, rank) VALUES('merge', ?)");
    merge.Bind(1, begin ? -Pages : Pages).Step();
    return !file.Failed() && changes() - before >= 2;
}

void ClearLog(Connection& file) {
    auto& clear = file.Prepare("PRAGMA wal_checkpoint(TRUNCATE)");
    while (clear.Step()) {
    }
    clear.Reset();
}

void BackUp(Connection& file, const std::string& path) {
    file.Prepare("VACUUM INTO ?").Bind(1, ToUtf8(path)).Step();
}

} // namespace halyard
