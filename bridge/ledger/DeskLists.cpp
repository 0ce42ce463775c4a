#include "bridge/ledger/DeskLists.h"

#include "oscar/TillerSock.h"
#include "state/OptionTable.h"
#include "state/Options.h"
#include "state/TextFile.h"

#include <type_traits>
#include <utility>

namespace halyard {

namespace {

/// Lists tell their changes themselves; these two rows have many values, told one by one.
bool IsTold(const SpecialOption& option) {
    const std::string_view key = option.key;
    return key == "op" || key == "ccom" || key == "chatsend";
}

/// What stands behind the colon of the only line.
std::string ValueOf(Options& options, const SpecialOption& option) {
    TextLines lines;
    option.write(options, lines);
    auto line = std::string_view(lines.Text());
    line = line.substr(0, line.find('\r'));
    return std::string(line.substr(std::min(line.size(), line.find(':') + 1)));
}

IndexedList* OptionList(Options& options, ListName list) {
    const auto place = static_cast<std::size_t>(list);
    auto lists = options.Lists();
    return place >= 1 && place <= lists.size() ? lists[place - 1] : nullptr;
}

} // namespace

Entries ListEntries(Options& options, ListName list, const NamedRoom& room) {
    Entries entries;
    if (const auto* own = OptionList(options, list))
        for (const auto& entry : *own) entries.Add(entry);
    if (list == ListName::Ejects && room)
        for (const auto& ejects : options.Control().EjectLists) {
            if (!ejects->IsOf(room->name, room->exchange)) continue;
            for (const auto& name : ejects->GetEjects()) entries.Add(name);
            break;
        }
    return entries;
}

OptionWatch::OptionWatch(Options& options) : options(options) {
    EachValue([this](const char* key, int number, std::string_view value) {
        values.push_back(
            {number < 0 ? key : std::string(key) + ":" + std::to_string(number), std::string(value)});
    });
    std::vector<Difference> all;
    LookAtPermissions(all);
}

/// Calls visit(key, number, value) for each, with -1 where the key has no number. Of one key there are always
/// as many.
template <typename Visit>
void OptionWatch::EachValue(Visit&& visit) {
    for (const auto& option : OptionTable()) {
        if (const auto* flag = std::get_if<FlagOption>(&option))
            visit(flag->key, -1, flag->variable(options) ? "1" : "0");
        else if (const auto* text = std::get_if<TextOption>(&option))
            visit(text->key, -1, text->get(options));
        else if (const auto* special = std::get_if<SpecialOption>(&option); special && !IsTold(*special))
            visit(special->key, -1, ValueOf(options, *special));
    }
    int number = 0;
    for (const auto& name : options.Ccoms.CcomNames) visit("ccom", number++, name);
    for (number = 0; number < static_cast<int>(ChatSendCount); ++number)
        visit("chatsend", number, options.Control().ChatSends.Item(number + 1));
}

std::vector<OptionWatch::Difference> OptionWatch::Look() {
    std::vector<Difference> differences;
    std::size_t place = 0;
    EachValue([&](const char*, int, std::string_view value) {
        auto& known = values[place++];
        if (known.value == value) return;
        differences.push_back({known.key, std::move(known.value), std::string(value)});
        known.value = value;
    });
    LookAtPermissions(differences);
    return differences;
}

void OptionWatch::LookAtPermissions(std::vector<Difference>& differences) {
    if (!std::exchange(opsChanged, false) && permissionChanges == options.Perms.Changes()) return;
    permissionChanges = options.Perms.Changes();
    std::map<std::string, std::string> now;
    for (const auto& name : options.Ops)
        if (const auto& perms = options.Perms.Item(name); !perms.empty()) now.emplace(name, perms);
    const auto valueIn = [](const auto& map, const std::string& name) {
        const auto found = map.find(name);
        return found == map.end() ? MaybeText() : MaybeText(found->second);
    };
    for (const auto& [name, perms] : now)
        if (auto before = valueIn(permissions, name); before != perms)
            differences.push_back({"perms:" + name, std::move(before), perms});
    for (const auto& [name, perms] : permissions)
        if (!now.contains(name)) differences.push_back({"perms:" + name, perms, {}});
    permissions = std::move(now);
}

Entries OptionWatch::Whole() const {
    Entries entries;
    for (const auto& [key, value] : values) entries.Add(key + "\t" + value);
    for (const auto& [name, perms] : permissions) entries.Add("perms:" + name + "\t" + perms);
    return entries;
}

} // namespace halyard
