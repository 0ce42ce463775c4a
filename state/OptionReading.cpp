#include "state/OptionReading.h"

#include "base/Text.h"
#include "platform/Platform.h"
#include "state/ListWorkers.h"
#include "state/Options.h"
#include "state/SettingsReader.h"
#include "state/TextFile.h"

namespace halyard {

namespace {

void SetByNumber(Options& options, const FlagOption& flag, const std::string& value) {
    if (auto number = ToInt16(value)) SetFlag(options, flag, *number > 0);
}

void SetByTruth(Options& options, const FlagOption& flag, const std::string& value) {
    if (auto number = ToNumber(value)) SetFlag(options, flag, *number != 0);
}

void SetCheck(CheckBox* box, const std::string& value) {
    if (auto number = ToInt16(value)) box->SetValue(*number);
}

struct OptionReader {
    SettingsReading& reading;
    std::string_view line;
    const std::string& value;

    void operator()(const FlagOption& flag) const;
    void operator()(const TextOption& text) const;
    void operator()(const ListOption& list) const {
        if (IsListName(value)) (reading.lists.*list.add)(value, 0);
    }
    void operator()(const SpecialOption& special) const { special.read(reading, line, value); }
};

void OptionReader::operator()(const FlagOption& flag) const {
    auto& options = reading.options;
    if (flag.needs && !(options.*flag.needs)) return;
    auto* box = flag.box ? flag.box(options.Controls) : nullptr;
    if (flag.needs) box->SetEnabled(true);
    switch (flag.reading) {
    case FlagReading::Check: SetCheck(box, value); break;
    case FlagReading::SetThenCheck:
        SetByNumber(options, flag, value);
        SetCheck(box, value);
        break;
    case FlagReading::CheckThenSet:
        SetCheck(box, value);
        SetByNumber(options, flag, value);
        break;
    case FlagReading::TruthThenCheck:
        SetByTruth(options, flag, value);
        SetCheck(box, value);
        break;
    case FlagReading::Set: SetByNumber(options, flag, value); break;
    case FlagReading::SetTruth: SetByTruth(options, flag, value); break;
    }
}

void OptionReader::operator()(const TextOption& text) const {
    auto& options = reading.options;
    if (text.needs && !(options.*text.needs)) return;
    if (value.size() < text.shortest || value.size() > text.longest) return;
    text.set(options, value);
    if (text.enabledBox) text.enabledBox(options.Controls)->SetEnabled(true);
}

} // namespace

std::optional<std::string> BeginReading(const SettingsTarget& target, const std::string& path) {
    auto& files = target.platform.FileSystem();
    if (!files.Exists(path)) {
        target.platform.Boxes().Error("Error", "Halyard settings file not found!");
        return std::nullopt;
    }
    target.options.SettingsLoading = true;
    target.options.NewSettings();
    return files.Read(path, TextFileLimit).value_or(std::string());
}

void TellRead(const SettingsTarget& target, const std::string& path) {
    if (target.options.onSettingsFile) target.options.onSettingsFile(Options::FileUse::Read, path);
}

OptionsByKey IndexOptions() {
    OptionsByKey byKey;
    for (const auto& option : OptionTable())
        byKey.emplace(std::visit([](const auto& row) { return row.key; }, option), &option);
    return byKey;
}

void ReadOption(SettingsReading& reading, const Option& option, std::string_view line,
                const std::string& value) {
    std::visit(OptionReader{reading, line, value}, option);
}

bool IsListName(std::string_view name) {
    return name.size() >= 2 && name.size() <= 100 && name.find_first_not_of(' ') != name.npos;
}

} // namespace halyard
