#include "state/SettingsReader.h"

#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "rooms/ChatSends.h"
#include "state/OptionReading.h"
#include "state/Options.h"
#include "state/SettingsWriter.h"
#include "state/TextFile.h"

#include <array>

namespace halyard {

namespace {

using ChatSendSlots = std::array<std::string, ChatSendCount>;

ChatSendSlots TakeChatSends(Collection<std::string>& chatSends) {
    ChatSendSlots slots;
    std::size_t index = 0;
    for (const auto& text : chatSends)
        if (index < slots.size()) slots[index++] = text;
    chatSends.Clear();
    return slots;
}

bool HasVersion(LineReader& lines) {
    lines.Next();
    lines.Next();
    return lines.Next() == SettingsVersion;
}

void ReadLines(const SettingsTarget& target, SettingsReading& reading, LineReader& lines) {
    const auto byKey = IndexOptions();
    std::string_view lastKey; // of many lines in a row
    const Option* option = nullptr;
    std::string value;
    while (auto next = lines.Next()) {
        auto colon = next->find(':');
        if (colon == std::string_view::npos) continue;
        auto key = next->substr(0, colon);
        value = next->substr(colon + 1);
        if (key != lastKey || !option) {
            const auto found = byKey.find(key);
            option = found == byKey.end() ? nullptr : found->second;
            lastKey = key;
        }
        if (option)
            ReadOption(reading, *option, *next, value);
        else if (key == "menu" && value == "1" && target.openMenu) // read, and never written
            target.openMenu();
    }
}

} // namespace

void ReadSettings(const SettingsTarget& target, const std::string& folderOrPath,
                  const std::string& fileName) {
    auto& options = target.options;
    const auto path = PathOf(target.platform.FileSystem(), folderOrPath, fileName);
    const CauseScope load(options.Control().Tell(), {.kind = CauseKind::Load, .entry = path});
    const auto text = BeginReading(target, path);
    if (!text) return;
    auto slots = TakeChatSends(options.Control().ChatSends);
    LineReader lines(*text);
    if (!HasVersion(lines)) {
        // The settings stay at their defaults, ChatSends stays empty and SettingsLoading true, on purpose.
        target.platform.Boxes().Error("Error", "Error: Settings file not compatible with program version.");
        return;
    }
    SettingsReading reading{options, target.lists, slots};
    ReadLines(target, reading, lines);
    for (const auto& slot : slots) options.Control().ChatSends.Add(slot);
    options.SettingsLoading = false;
    TellRead(target, path);
}

} // namespace halyard
