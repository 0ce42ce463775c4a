#include "bridge/ledger/RowIds.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/Lookalikes.h"
#include "bridge/ledger/Texts.h"

namespace halyard {

namespace {

/// As many as are remembered; a room's people and the ops are far fewer.
constexpr std::size_t MostKnown = 4096;

template <typename Map>
void Bound(Map& map) {
    if (map.size() >= MostKnown) map.clear();
}

} // namespace

Statement& BindId(Statement& statement, int position, std::int64_t id) {
    return id == 0 ? statement.BindNull(position) : statement.Bind(position, id);
}

std::int64_t RowIds::Person(Connection& file, const std::string& name) {
    const auto key = NormalizeName(name);
    if (key.empty()) return 0;
    auto known = persons.find(key);
    if (known == persons.end()) {
        Bound(persons);
        known = persons.emplace(key, FindPerson(file, key, name)).first;
    }
    auto& [id, spelled] = known->second;
    if (name != key && name != spelled) {
        spelled = name;
        auto& update = file.Prepare("UPDATE persons SET spelled = ? WHERE id = ?");
        update.Bind(1, KeptText(name)).Bind(2, id).Step();
    }
    return id;
}

RowIds::Known RowIds::FindPerson(Connection& file, const std::string& key, const std::string& spelled) {
    auto& find = file.Prepare("SELECT id, spelled FROM persons WHERE key = ?");
    if (find.Bind(1, KeptText(key)).Step()) {
        Known found{find.Integer(0), FromUtf8(find.Text(1))};
        find.Reset();
        return found;
    }
    auto& add = file.Prepare("INSERT INTO persons(key, spelled, indexed, skeleton) VALUES(?1, ?2, ?2, ?3)");
    add.Bind(1, KeptText(key)).Bind(2, KeptText(spelled)).Bind(3, KeptText(Skeleton(key))).Step();
    return {file.LastRow(), spelled};
}

std::int64_t RowIds::Room(Connection& file, const NamedRoom& room) {
    if (!room) return 0;
    const auto key = NormalizeName(room->name);
    const auto known = "r" + std::to_string(room->exchange) + ":" + key;
    if (const auto found = others.find(known); found != others.end()) return found->second;
    Bound(others);
    auto& add =
        file.Prepare("INSERT INTO rooms(key, exchange, spelled) VALUES(?, ?, ?) "
                     "ON CONFLICT(key, exchange) DO UPDATE SET spelled = excluded.spelled RETURNING id");
    add.Bind(1, KeptText(key)).Bind(2, room->exchange).Bind(3, KeptText(room->name));
    const auto id = add.Step() ? add.Integer(0) : 0;
    add.Reset();
    return others[known] = id;
}

std::int64_t RowIds::Rule(Connection& file, RuleKind kind, const std::string& entry) {
    if (kind == RuleKind::None) return 0;
    const auto known = "u" + std::to_string(static_cast<int>(kind)) + ":" + entry;
    if (const auto found = others.find(known); found != others.end()) return found->second;
    Bound(others);
    auto& add = file.Prepare("INSERT INTO rules(kind, entry) VALUES(?, ?) "
                             "ON CONFLICT(kind, entry) DO UPDATE SET entry = excluded.entry RETURNING id");
    add.Bind(1, static_cast<int>(kind)).Bind(2, KeptEntry(entry));
    const auto id = add.Step() ? add.Integer(0) : 0;
    add.Reset();
    return others[known] = id;
}

std::int64_t RowIds::Account(Connection& file, const std::string& network, const std::string& name) {
    if (name.empty()) return 0;
    auto& home = file.Prepare("INSERT INTO networks(name) VALUES(?) "
                              "ON CONFLICT(name) DO UPDATE SET name = excluded.name RETURNING id");
    const auto networkId = home.Bind(1, KeptText(network)).Step() ? home.Integer(0) : 0;
    home.Reset();
    auto& add = file.Prepare("INSERT INTO accounts(network, name) VALUES(?, ?) "
                             "ON CONFLICT(network, name) DO UPDATE SET name = excluded.name RETURNING id");
    const auto id = add.Bind(1, networkId).Bind(2, KeptText(name)).Step() ? add.Integer(0) : 0;
    add.Reset();
    return id;
}

void RowIds::Forget() {
    persons.clear();
    others.clear();
}

} // namespace halyard
