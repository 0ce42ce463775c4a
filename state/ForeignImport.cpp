// The settings of Gannet Elite: only what has a counterpart here is taken.

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/ListWorkers.h"
#include "state/OptionReading.h"
#include "state/Options.h"
#include "state/SettingsReader.h"
#include "state/TextFile.h"

namespace halyard {

namespace {

/// Keys whose lines are read just as those of our own key.
struct KeyPair {
    std::string_view foreign;
    std::string_view own;
};

constexpr KeyPair sameRules[] = {
    {"chatname", "chat"},
    {"exchange", "ex"},
    {"imm", "imm"},
    {"autoimm", "autoimm"},
    {"abn", "ab"},
    {"abw", "aw"},
    {"ubw", "wordban"},
    {"ghostban", "autogban"},
    {"chkPart0", "partial0"},
    {"chkPart1", "partial1"},
    {"chkPart2", "partial3"}, // they have four of them, and no counterpart of our partial2
    {"chkPart3", "partial4"},
    {"cso", "chatsendon"},
    {"user", "user"},
    {"pause", "banpause"},
    {"font1", "backgroundcolor"},
    {"font2", "fontcolor"},
    {"font3", "fonttype"},
    {"bold", "bold"},
    {"italics", "italics"},
    {"underline", "underline"},
    {"strike", "strike"},
    {"cm0", "trigger"},
    {"lockop", "lockops"},
    {"lockimm", "lockimms"},
    {"lockunban", "lockbans"},
};

OptionsByKey IndexForeignKeys() {
    const auto own = IndexOptions();
    OptionsByKey foreign;
    for (const auto& pair : sameRules) foreign.emplace(pair.foreign, own.at(pair.own));
    return foreign;
}

/// The second field is the name; permissions behind it are dropped.
void ReadForeignOp(SettingsReading& reading, const std::string& value) {
    auto name = value.substr(0, value.find(':'));
    if (IsListName(name)) reading.lists.AddOp(name, 0, reading.options.UniPerms);
}

void ReadForeignLevel(Options& options, const std::string& value) {
    auto level = ToInt16(value);
    if (!level || *level < 0 || *level > 2) return;
    options.Controls.optAB.Select(*level);
    options.SetAutobanLevel(*level);
}

void ReadForeignLines(SettingsReading& reading, std::string_view text) {
    const auto byKey = IndexForeignKeys();
    LineReader lines(text);
    while (auto next = lines.Next()) {
        const auto line = Mid(*next, 2, next->size() < 2 ? 0 : next->size() - 2);
        auto colon = line.find(':');
        if (colon == std::string::npos) continue;
        const auto key = line.substr(0, colon);
        const auto value = line.substr(colon + 1);
        if (auto found = byKey.find(key); found != byKey.end())
            ReadOption(reading, *found->second, line, value);
        else if (key == "op")
            ReadForeignOp(reading, value);
        else if (key == "absetting")
            ReadForeignLevel(reading.options, value);
    }
}

} // namespace

void ImportForeignSettings(const SettingsTarget& target, const std::string& folderOrPath,
                           const std::string& fileName) {
    auto& options = target.options;
    const auto path = PathOf(target.platform.FileSystem(), folderOrPath, fileName);
    const CauseScope load(options.Control().Tell(), {.kind = CauseKind::Load, .entry = path});
    const auto text = BeginReading(target, path);
    if (!text) return;
    std::array<std::string, ChatSendCount> unused; // foreign files have no chatsends
    SettingsReading reading{options, target.lists, unused};
    ReadForeignLines(reading, *text);
    options.SettingsLoading = false;
    TellRead(target, path);
}

} // namespace halyard
