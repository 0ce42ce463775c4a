// The options whose lines in the settings file follow rules of their own.

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "rooms/ChatSends.h"
#include "state/ListWorkers.h"
#include "state/OptionReading.h"
#include "state/OptionTable.h"
#include "state/Options.h"
#include "state/TextFile.h"

#include <optional>
#include <string>
#include <string_view>

namespace halyard::special {

namespace {

using Line = std::string_view;

void WriteOps(Options& options, TextLines& lines) {
    std::string head;
    for (const auto& name : options.Ops) {
        head.assign("op:").append(options.Perms.Item(name)).append(":");
        lines.Add(head, name);
    }
}

/// What stands between the first and the second colon of a line, and what behind the second; nothing when
/// there is only one.
struct Fields {
    std::string_view second, third;
};
std::optional<Fields> FieldsOf(std::string_view line) {
    const auto first = line.find(':');
    const auto second = first == line.npos ? first : line.find(':', first + 1);
    if (second == line.npos) return std::nullopt;
    return Fields{line.substr(first + 1, second - first - 1), line.substr(second + 1)};
}

void ReadOp(SettingsReading& reading, Line line, Text) {
    const auto fields = FieldsOf(line);
    if (!fields || !IsListName(fields->third)) return;
    const bool whole = fields->second.size() == static_cast<std::size_t>(CcomCount);
    reading.lists.AddOp(std::string(fields->third), 0, whole ? std::string(fields->second) : DefaultPerms);
}

void WriteLevel(Options& options, TextLines& lines) {
    lines.Add("ablevel:", std::to_string(options.AutobanLevel));
}

void ReadLevel(SettingsReading& reading, Line, Text value) {
    auto level = ToInt16(value);
    if (!level) return;
    reading.options.Controls.optAB.Select(*level);
    // Levels without a button are taken too, on purpose: such a level acts as none.
    reading.options.SetAutobanLevel(*level);
}

void WriteCharBan(Options& options, TextLines& lines) {
    lines.Add("charbannum:", std::to_string(options.CharBanNum));
}

void ReadCharBan(SettingsReading& reading, Line, Text value) {
    auto length = ToNumber(value);
    if (!reading.options.CharBanOn || !length || *length <= 0 || *length > 100) return;
    if (auto rounded = RoundToInt16(*length)) reading.options.CharBanNum = *rounded;
    reading.options.Controls.txtCharBan.SetEnabled(true);
    reading.options.Controls.txtCharBan.SetText(value);
}

void WriteUnratePause(Options& options, TextLines& lines) {
    lines.Add("unratepause:", std::to_string(options.UnratePause));
}

void ReadUnratePause(SettingsReading& reading, Line, Text value) {
    auto& options = reading.options;
    auto pause = ToInt16(value);
    // 100 and not the 9999 of the box, on purpose.
    if (pause && *pause > 0 && *pause <= 100) {
        options.UnratePause = *pause;
        options.Controls.txtUnrate.SetText(value);
        options.SetAutoUnratePause(*pause);
    }
    for (const auto& room : options.Control().Chat) room->SetUnratePause(options.UnratePause);
}

void WriteBanPause(Options& options, TextLines& lines) {
    lines.Add("banpause:", NumberText(options.Control().sngBanPause));
}

void ReadBanPause(SettingsReading& reading, Line, Text value) {
    auto pause = ToNumber(value);
    if (!pause || *pause < .001 || *pause > 999) return; // the button takes less than .001, a file doesn't
    auto& control = reading.options.Control();
    reading.options.Controls.txtBP.SetText(value);
    control.sngBanPause = static_cast<float>(*pause);
    for (const auto& room : control.Chat) room->SetBanPause(control.sngBanPause);
}

// The writer stores capital tags and the reader knows small ones, on purpose: a file of this program never
// checks a style box, a file edited by hand can.
void WriteBold(Options& options, TextLines& lines) { lines.Add("bold:", options.Shared().FontBold); }
void WriteItalics(Options& options, TextLines& lines) { lines.Add("italics:", options.Shared().FontItalics); }
void WriteUnderline(Options& options, TextLines& lines) {
    lines.Add("underline:", options.Shared().FontUnderline);
}
void WriteStrike(Options& options, TextLines& lines) { lines.Add("strike:", options.Shared().FontStrike); }

void ReadStyle(CheckBox& box, const char* tag, Text value) {
    if (value == tag) box.SetValue(1);
}
void ReadBold(SettingsReading& reading, Line, Text value) {
    ReadStyle(reading.options.Controls.chkBold, "<b>", value);
}
void ReadItalics(SettingsReading& reading, Line, Text value) {
    ReadStyle(reading.options.Controls.chkItalics, "<i>", value);
}
void ReadUnderline(SettingsReading& reading, Line, Text value) {
    ReadStyle(reading.options.Controls.chkUnderline, "<u>", value);
}
void ReadStrike(SettingsReading& reading, Line, Text value) {
    ReadStyle(reading.options.Controls.chkStrikethrough, "<s>", value);
}

void WriteCcoms(Options& options, TextLines& lines) {
    for (std::size_t index = 0; index < options.Ccoms.CcomNames.size(); ++index)
        lines.Add("ccom:" + std::to_string(index) + ":", options.Ccoms.CcomNames[index]);
}

/// The index in the second field of a line, below `count`, whose third field has `shortest` to `longest`
/// characters.
template <typename Slots>
void ReadSlot(Slots& slots, Line line, std::size_t shortest, std::size_t longest) {
    const auto fields = FieldsOf(line);
    if (!fields || fields->third.size() < shortest || fields->third.size() > longest) return;
    const auto index = ToInt16(fields->second);
    if (index && *index >= 0 && static_cast<std::size_t>(*index) < slots.size())
        slots[static_cast<std::size_t>(*index)] = fields->third;
}

void ReadCcom(SettingsReading& reading, Line line, Text) {
    ReadSlot(reading.options.Ccoms.CcomNames, line, 1, 10);
}

void WriteChatSends(Options& options, TextLines& lines) {
    std::size_t index = 0;
    for (const auto& text : options.Control().ChatSends)
        lines.Add("chatsend:" + std::to_string(index++) + ":", text);
}

void ReadChatSend(SettingsReading& reading, Line line, Text) {
    ReadSlot(reading.chatSends, line, 0, ChatSendMaxLength);
}

} // namespace

const SpecialOption op{"op", WriteOps, ReadOp};
const SpecialOption ablevel{"ablevel", WriteLevel, ReadLevel};
const SpecialOption charbannum{"charbannum", WriteCharBan, ReadCharBan};
const SpecialOption unratepause{"unratepause", WriteUnratePause, ReadUnratePause};
const SpecialOption banpause{"banpause", WriteBanPause, ReadBanPause};
const SpecialOption bold{"bold", WriteBold, ReadBold};
const SpecialOption italics{"italics", WriteItalics, ReadItalics};
const SpecialOption underline{"underline", WriteUnderline, ReadUnderline};
const SpecialOption strike{"strike", WriteStrike, ReadStrike};
const SpecialOption ccom{"ccom", WriteCcoms, ReadCcom};
const SpecialOption chatsend{"chatsend", WriteChatSends, ReadChatSend};

} // namespace halyard::special
