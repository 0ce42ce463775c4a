#include "bridge/networks/OwnPart.h"

#include "base/Text.h"
#include "bridge/TomlText.h"
#include "bridge/watch/alarms/AlarmTable.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr TextBounds pathBounds{.longest = 4096, .controls = true};
constexpr TextBounds accountBounds{.shortest = 0, .controls = true};
constexpr TextBounds hostBounds{};
constexpr TextBounds addressBounds{.longest = 1000};
constexpr TextBounds headerBounds{.shortest = 0, .longest = 1000};
constexpr TextBounds askBounds{.shortest = 0, .longest = 300};

/// A name of letters, digits and some signs, a colon, a value.
bool IsHeader(std::string_view text) {
    const auto colon = text.find(':');
    const auto name = text.substr(0, colon);
    constexpr std::string_view allowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"
                                         "!#$%&'*+-.^_`|~";
    return text.empty() || (colon != std::string_view::npos && !name.empty() &&
                            name.find_first_not_of(allowed) == std::string_view::npos);
}

template <typename Entry, typename Same>
void PutLast(std::vector<Entry>& entries, const Entry& entry, Same same) {
    std::erase_if(entries, same);
    if (entries.size() >= OwnPart::Most) entries.erase(entries.begin(), entries.end() - (OwnPart::Most - 1));
    entries.push_back(entry);
}

/// Reads each table of the list under `key`, which the text writes as [[key]].
template <typename Read>
void EachTable(TomlFields& fields, std::string_view key, TomlMistakes& mistakes, Read read) {
    const auto* tables = fields.List(key, std::string::npos);
    if (!tables) return;
    for (const auto& table : *tables) {
        if (table.kind != TomlValue::Kind::Table) {
            fields.Tell(table.place, key, "must be a table");
            continue;
        }
        TomlFields entry(table, std::string(key), mistakes);
        read(entry);
        entry.TellUnknown();
    }
}

std::optional<std::string> NeedNetwork(TomlFields& fields, std::string_view key) {
    auto name = fields.NeedText(key, NetworkNameBounds);
    if (!name || IsNetworkName(*name)) return name;
    fields.Tell(key, "is no name");
    return std::nullopt;
}

void ReadManagement(const TomlMember& member, OwnPart& own, TomlMistakes& mistakes) {
    const auto path = "management." + ShownText(member.key);
    const auto name = WholeFromUtf8(member.key);
    if (!name || !IsNetworkName(*name)) return mistakes.Add(member.place, path + " names no network");
    if (member.value.kind != TomlValue::Kind::Table)
        return mistakes.Add(member.place, path + " must be a table");
    TomlFields fields(member.value, path, mistakes);
    ManagementTerms terms;
    if (const auto address = fields.Text("address", addressBounds)) terms.address = *address;
    if (const auto header = fields.Text("header", headerBounds)) {
        if (IsHeader(*header))
            terms.header = *header;
        else
            fields.Tell("header", "must be a name, a colon and a value");
    }
    terms.enforce = fields.Switch("enforce").value_or(false);
    terms.suspend = fields.Switch("suspend").value_or(false);
    terms.watchAddresses = fields.Switch("addresses").value_or(false);
    fields.TellUnknown();
    for (const auto& other : own.management)
        if (SameName(other.network, *name))
            return mistakes.Add(member.place, path + " is there twice: case and blanks don't count");
    own.SetManagement({*name, terms});
}

void ReadLedger(const TomlValue& table, LedgerTerms& terms, TomlMistakes& mistakes) {
    TomlFields fields(table, "ledger", mistakes);
    const auto take = [&](bool& value, std::string_view key) { value = fields.Switch(key).value_or(value); };
    const auto days = [&](int& value, std::string_view key) {
        value = static_cast<int>(fields.Number(key, 0, LedgerTerms::LongestDays).value_or(value));
    };
    take(terms.keep, "keep"), take(terms.evidence, "evidence");
    days(terms.textDays, "text-days"), days(terms.actDays, "act-days");
    take(terms.answers, "answers"), take(terms.appeals, "appeals");
    terms.whomToAsk = fields.Text("whom-to-ask", askBounds).value_or("");
    if (const auto* names = fields.List("no-appeal-of", LedgerTerms::MostRefused))
        for (const auto& item : *names)
            if (const auto name = fields.TextOf(item, "no-appeal-of", accountBounds))
                terms.noAppealOf.push_back(NormalizeName(*name));
    fields.TellUnknown();
}

/// A network's own switch for TLS is no matter of taste.
bool MayBeDecided(Departure departure) {
    return departure != Departure::Tls && departure != Departure::RoastedPasswordType;
}

void ReadGuards(const TomlValue& table, GuardTerms& terms, TomlMistakes& mistakes) {
    TomlFields fields(table, "guards", mistakes);
    for (std::size_t index = 0; index < DepartureCount; ++index) {
        const auto departure = static_cast<Departure>(index);
        if (!MayBeDecided(departure)) continue;
        if (const auto on = fields.Switch(TextOf(departure).name))
            terms.Decide(departure, *on ? Departures::Guard::On : Departures::Guard::Off);
    }
    fields.TellUnknown();
}

void ReadWatch(const TomlValue& table, WatchTerms& terms, TomlMistakes& mistakes) {
    TomlFields fields(table, "watch", mistakes);
    terms.foot = fields.Switch("foot").value_or(terms.foot);
    fields.TellUnknown();
}

std::string ChoiceText(const NetworkChoice& choice) {
    return "\n[[chosen]]\n" + TomlLine("file", TomlQuoted(choice.file)) +
           TomlLine("account", TomlQuoted(choice.account)) + TomlLine("network", TomlQuoted(choice.network));
}

std::string ManagementText(const NetworkManagement& management) {
    const auto& terms = management.terms;
    return "\n[management." + TomlQuoted(management.network) + "]\n" +
           TomlLine("address", TomlQuoted(terms.address)) + TomlLine("header", TomlQuoted(terms.header)) +
           TomlLine("enforce", TomlSwitch(terms.enforce)) + TomlLine("suspend", TomlSwitch(terms.suspend)) +
           TomlLine("addresses", TomlSwitch(terms.watchAddresses));
}

std::string PermitText(const RoastingPermit& permit) {
    return "\n[[roasting]]\n" + TomlLine("network", TomlQuoted(permit.network)) +
           TomlLine("host", TomlQuoted(permit.host));
}

std::string LedgerText(const LedgerTerms& terms) {
    return "\n[ledger]\n" + TomlLine("keep", TomlSwitch(terms.keep)) +
           TomlLine("evidence", TomlSwitch(terms.evidence)) +
           TomlLine("text-days", std::to_string(terms.textDays)) +
           TomlLine("act-days", std::to_string(terms.actDays)) +
           TomlLine("answers", TomlSwitch(terms.answers)) + TomlLine("appeals", TomlSwitch(terms.appeals)) +
           TomlLine("whom-to-ask", TomlQuoted(terms.whomToAsk)) +
           TomlLine("no-appeal-of", TomlTexts(terms.noAppealOf));
}

std::string GuardsText(const GuardTerms& terms) {
    std::string text = "\n[guards]\n";
    for (std::size_t index = 0; index < DepartureCount; ++index) {
        const auto departure = static_cast<Departure>(index);
        const auto guard = terms.Of(departure);
        if (guard != Departures::Guard::Unset && MayBeDecided(departure))
            text += TomlLine(TextOf(departure).name, TomlSwitch(guard == Departures::Guard::On));
    }
    return text;
}

std::string WatchText(const WatchTerms& terms) {
    return "\n[watch]\n" + TomlLine("foot", TomlSwitch(terms.foot));
}

bool IsDays(int days) { return days >= 0 && days <= LedgerTerms::LongestDays; }

} // namespace

bool IsNetworkName(std::string_view text) {
    return NetworkNameBounds.Take(text) && !NormalizeName(text).empty();
}

bool OwnPart::Choose(const NetworkChoice& choice) {
    if (!IsNetworkName(choice.network) || !accountBounds.Take(choice.account)) return false;
    if (!choice.file.empty()) {
        if (!pathBounds.Take(choice.file)) return false;
        PutLast(chosen, choice, [&](const NetworkChoice& other) {
            return other.file == choice.file && other.account == choice.account;
        });
    }
    last = choice.network;
    return true;
}

bool OwnPart::SetManagement(const NetworkManagement& entry) {
    const auto& terms = entry.terms;
    if (!IsNetworkName(entry.network) || !addressBounds.Take(terms.address) ||
        !headerBounds.Take(terms.header) || !IsHeader(terms.header))
        return false;
    PutLast(management, entry,
            [&](const NetworkManagement& other) { return SameName(other.network, entry.network); });
    return true;
}

bool OwnPart::Permit(const RoastingPermit& permit) {
    if (!IsNetworkName(permit.network) || !hostBounds.Take(permit.host)) return false;
    const RoastingPermit small{permit.network, Lower(permit.host)};
    PutLast(roasting, small, [&](const RoastingPermit& other) {
        return SameName(other.network, small.network) && other.host == small.host;
    });
    return true;
}

bool OwnPart::SetLedger(const LedgerTerms& terms) {
    if (!IsDays(terms.textDays) || !IsDays(terms.actDays) || !askBounds.Take(terms.whomToAsk) ||
        terms.noAppealOf.size() > LedgerTerms::MostRefused)
        return false;
    if (!std::ranges::all_of(terms.noAppealOf, [](const auto& name) { return accountBounds.Take(name); }))
        return false;
    ledger = terms;
    return true;
}

bool OwnPart::SetAlarms(const AlarmTerms& terms) {
    if (!MayBeAlarms(terms)) return false;
    alarms = terms;
    return true;
}

OwnPart ReadOwnPart(const TomlValue& file, TomlMistakes& mistakes) {
    OwnPart own;
    TomlFields fields(file, {}, mistakes);
    EachTable(fields, "chosen", mistakes, [&](TomlFields& entry) {
        const auto path = entry.NeedText("file", pathBounds);
        const auto account = entry.NeedText("account", accountBounds);
        const auto network = NeedNetwork(entry, "network");
        if (path && account && network) own.Choose({*path, NormalizeName(*account), *network});
    });
    EachTable(fields, "roasting", mistakes, [&](TomlFields& entry) {
        const auto network = NeedNetwork(entry, "network");
        const auto host = entry.NeedText("host", hostBounds);
        if (network && host) own.Permit({*network, *host});
    });
    own.last.clear();
    if (const auto* bridge = fields.Table("bridge")) {
        TomlFields entry(*bridge, "bridge", mistakes);
        own.last = NeedNetwork(entry, "last").value_or("");
        entry.TellUnknown();
    }
    if (const auto* table = fields.Table("ledger")) ReadLedger(*table, own.ledger, mistakes);
    if (const auto* table = fields.Table("guards")) ReadGuards(*table, own.guards, mistakes);
    if (const auto* table = fields.Table("watch")) ReadWatch(*table, own.watch, mistakes);
    if (const auto* table = fields.Table("alarms")) own.alarms = ReadAlarms(*table, mistakes);
    if (const auto* tables = fields.Table("management"))
        for (const auto& member : tables->members) ReadManagement(member, own, mistakes);
    fields.TellUnknown();
    return own;
}

std::optional<std::string> OwnPartText(const OwnPart& own, std::size_t limit) {
    std::string text;
    if (!own.last.empty()) text += "\n[bridge]\n" + TomlLine("last", TomlQuoted(own.last));
    if (own.ledger != LedgerTerms()) text += LedgerText(own.ledger);
    if (own.guards != GuardTerms()) text += GuardsText(own.guards);
    if (own.watch != WatchTerms()) text += WatchText(own.watch);
    if (own.alarms != AlarmTerms()) text += AlarmsText(own.alarms);
    for (const auto& management : own.management) text += ManagementText(management);
    for (const auto& permit : own.roasting) text += PermitText(permit);
    if (text.size() > limit) return std::nullopt;
    std::vector<std::string> choices;
    auto left = limit - text.size();
    for (auto choice = own.chosen.rbegin(); choice != own.chosen.rend(); ++choice) {
        auto one = ChoiceText(*choice);
        if (one.size() > left) break;
        left -= one.size();
        choices.push_back(std::move(one));
    }
    for (auto one = choices.rbegin(); one != choices.rend(); ++one) text += *one;
    return text;
}

} // namespace halyard
