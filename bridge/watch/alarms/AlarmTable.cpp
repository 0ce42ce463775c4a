#include "bridge/watch/alarms/AlarmTable.h"

#include "base/Text.h"
#include "bridge/TomlText.h"

#include <algorithm>
#include <tuple>

namespace halyard {

namespace {

constexpr TextBounds argumentBounds{.shortest = 0, .longest = 1000};
constexpr TextBounds messageNameBounds{};

std::vector<std::string> ReadTexts(TomlFields& fields, std::string_view key, std::size_t most,
                                   const TextBounds& bounds) {
    std::vector<std::string> texts;
    if (const auto* items = fields.List(key, most))
        for (const auto& item : *items)
            if (auto text = fields.TextOf(item, key, bounds)) texts.push_back(std::move(*text));
    return texts;
}

void ReadTerm(const TomlValue& table, AlarmKind kind, AlarmTerm& term, TomlMistakes& mistakes) {
    TomlFields fields(table, "alarms." + std::string(TextOf(kind).name), mistakes);
    const auto number = [&](int& value, std::string_view key, int least, int most) {
        value = static_cast<int>(fields.Number(key, least, most).value_or(value));
    };
    term.on = fields.Switch("on").value_or(term.on);
    number(term.rest, "rest", 0, AlarmTerms::LongestMinutes);
    if (BoundsOf(kind).limit) number(term.limit, "limit", 0, AlarmTerms::LargestLimit);
    if (BoundsOf(kind).minutes) number(term.minutes, "minutes", 1, AlarmTerms::LongestMinutes);
    fields.TellUnknown();
}

std::string TermText(AlarmKind kind, const AlarmTerm& term) {
    auto text = "\n[alarms." + std::string(TextOf(kind).name) + "]\n" + TomlLine("on", TomlSwitch(term.on));
    if (BoundsOf(kind).limit) text += TomlLine("limit", std::to_string(term.limit));
    if (BoundsOf(kind).minutes) text += TomlLine("minutes", std::to_string(term.minutes));
    return text + TomlLine("rest", std::to_string(term.rest));
}

bool MayBeTerm(AlarmKind kind, const AlarmTerm& term) {
    const auto within = [](int value, int least, int most) { return value >= least && value <= most; };
    return within(term.rest, 0, AlarmTerms::LongestMinutes) &&
           within(term.limit, 0, AlarmTerms::LargestLimit) &&
           (!BoundsOf(kind).minutes || within(term.minutes, 1, AlarmTerms::LongestMinutes));
}

} // namespace

AlarmTerms ReadAlarms(const TomlValue& table, TomlMistakes& mistakes) {
    AlarmTerms terms;
    TomlFields fields(table, "alarms", mistakes);
    terms.tray = fields.Switch("tray").value_or(terms.tray);
    terms.list = fields.Switch("list").value_or(terms.list);
    terms.command = ReadTexts(fields, "command", AlarmTerms::MostArguments, argumentBounds);
    if (!terms.command.empty() && Trim(terms.command.front()).empty()) {
        fields.Tell("command", "must begin with a program");
        terms.command.clear();
    }
    for (const auto& name : ReadTexts(fields, "messages", AlarmTerms::MostNames, messageNameBounds))
        if (const auto key = NormalizeName(name); key.empty())
            fields.Tell("messages", "must hold names");
        else
            terms.messages.push_back(key);
    terms.daily = fields.Switch("daily").value_or(terms.daily);
    for (std::size_t index = 1; index < AlarmKindCount; ++index) {
        const auto kind = static_cast<AlarmKind>(index);
        if (const auto* entry = fields.Table(TextOf(kind).name))
            ReadTerm(*entry, kind, terms.Of(kind), mistakes);
    }
    fields.TellUnknown();
    return terms;
}

std::string AlarmsText(const AlarmTerms& terms) {
    auto text = "\n[alarms]\n" + TomlLine("tray", TomlSwitch(terms.tray)) +
                TomlLine("list", TomlSwitch(terms.list)) + TomlLine("command", TomlTexts(terms.command)) +
                TomlLine("messages", TomlTexts(terms.messages)) + TomlLine("daily", TomlSwitch(terms.daily));
    for (std::size_t index = 1; index < AlarmKindCount; ++index) {
        const auto kind = static_cast<AlarmKind>(index);
        if (terms.Of(kind) != DefaultTerm(kind)) text += TermText(kind, terms.Of(kind));
    }
    return text;
}

bool MayBeAlarms(const AlarmTerms& terms) {
    for (std::size_t index = 1; index < AlarmKindCount; ++index)
        if (const auto kind = static_cast<AlarmKind>(index); !MayBeTerm(kind, terms.Of(kind))) return false;
    const auto isName = [](const auto& name) {
        return messageNameBounds.Take(name) && !NormalizeName(name).empty();
    };
    const auto isArgument = [](const auto& text) { return argumentBounds.Take(text); };
    const auto& [command, messages] = std::tie(terms.command, terms.messages);
    return command.size() <= AlarmTerms::MostArguments && messages.size() <= AlarmTerms::MostNames &&
           (command.empty() || !Trim(command.front()).empty()) && std::ranges::all_of(command, isArgument) &&
           std::ranges::all_of(messages, isName);
}

} // namespace halyard
