#include "bridge/ledger/reading/Export.h"

#include "base/Text.h"
#include "bridge/ledger/reading/Moments.h"
#include "bridge/ledger/reading/Visible.h"

#include <cstdio>
#include <ctime>
#include <nlohmann/json.hpp>

namespace halyard {

namespace {

std::string CsvCell(const std::string& text) {
    auto cell = Visible(text);
    const bool formula =
        !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
    if (formula) cell.insert(0, 1, '\'');
    if (cell.find_first_of(",\"") == std::string::npos) return cell;
    return "\"" + Replace(cell, "\"", "\"\"") + "\"";
}

std::string NumberOrNone(std::int64_t number) { return number == 0 ? std::string() : std::to_string(number); }

} // namespace

std::string CsvRow(const std::vector<std::string>& cells) {
    std::string row;
    for (const auto& cell : cells) {
        if (&cell != &cells.front()) row += ',';
        row += CsvCell(cell);
    }
    return row + "\r\n";
}

std::string CsvHead() {
    return CsvRow(std::vector<std::string>{"act", "utc", "time", "kind", "person", "room", "exchange",
                                           "cause", "rule", "line", "reason", "list", "entry", "outcome",
                                           "undoes", "undone by"});
}

std::string CsvRow(const ActRow& act) {
    const bool onList = act.list != ListName::None;
    return CsvRow(std::vector<std::string>{
        std::to_string(act.number), UtcText(act.at), ShownMoment(act.at), std::string(ActWord(act.kind)),
        act.personName, act.roomName, act.room == 0 ? std::string() : std::to_string(act.exchange), act.cause,
        RuleName(act.ruleKind, act.ruleEntry), act.line, act.reason, onList ? ListWord(act.list) : "",
        EntryName(act.entry), act.outcomeWords, NumberOrNone(act.undoes), NumberOrNone(act.undone)});
}

nlohmann::json JsonOf(const ActRow& act) {
    nlohmann::json value = {{"act", act.number},  {"at", UtcText(act.at)},
                            {"run", act.run},     {"kind", std::string(ActWord(act.kind))},
                            {"cause", act.cause}, {"outcome", act.outcomeWords}};
    const auto add = [&](const char* key, const std::string& text) {
        if (!text.empty()) value[key] = text;
    };
    add("person", act.personName);
    add("room", act.roomName);
    if (act.room != 0) value["exchange"] = act.exchange;
    add("rule", RuleName(act.ruleKind, act.ruleEntry));
    add("line", act.line);
    add("reason", act.reason);
    if (act.list != ListName::None) value["list"] = ListWord(act.list);
    add("entry", EntryName(act.entry));
    if (act.undoes != 0) value["undoes"] = act.undoes;
    if (act.undone != 0) value["undone"] = act.undone;
    return value;
}

std::string JsonLine(const nlohmann::json& value) {
    return value.dump(-1, ' ', true, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string UtcText(std::int64_t utcMilliseconds) {
    const auto rest = (utcMilliseconds % 1000 + 1000) % 1000;
    const auto seconds = static_cast<std::time_t>((utcMilliseconds - rest) / 1000);
    std::tm parts{};
    char text[64];
    char whole[96];
    if (gmtime_r(&seconds, &parts) == nullptr ||
        std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts) == 0)
        return std::to_string(utcMilliseconds);
    std::snprintf(whole, sizeof whole, "%s.%03dZ", text, static_cast<int>(rest));
    return whole;
}

} // namespace halyard
