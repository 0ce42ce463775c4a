// bl, bp, cb, sc, icq and rejoin.

#include "base/Text.h"
#include "commands/Branches.h"
#include "commands/CommandTable.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"

#include <array>
#include <optional>

namespace halyard::branches {

namespace {

/// What the words of an on-off command mean; nothing for any other text.
std::optional<bool> Switch(const std::string& text) {
    if (text == "off" || text == "-" || text == "0") return false;
    if (text == "on" || text == "+" || text == "1") return true;
    return std::nullopt;
}

std::string SwitchWord(bool on) { return on ? "on" : "off"; }

/// The number that the text begins with, when it lies within the bounds.
std::optional<double> NumberWithin(const std::string& text, double least, double most) {
    auto value = Val(text);
    if (text.empty() || !(value >= least && value <= most)) return std::nullopt;
    return value;
}

void RefuseValue(const CommandContext& context, const CommandCall& call) {
    ReplyInvalid(context, call, "", RuleOf(call.index).size);
}

} // namespace

void SetAutobanLevel(const CommandContext& context, const CommandCall& call) {
    static const std::array<std::string, 3> words{"none", "selected", "all"};
    if (call.rest.empty()) return RefuseValue(context, call);
    for (std::int16_t level = 0; level < 3; ++level) {
        const auto& word = words[static_cast<std::size_t>(level)];
        if (call.rest != word && call.rest != std::to_string(level)) continue;
        Reply(context, call, word, 53, "", "bl", "msg2");
        context.options.Controls.optAB.Select(level);
        context.options.SetAutobanLevel(level);
    }
}

void Rejoin(const CommandContext& context, const CommandCall& call) {
    auto strChatName = call.room->ChatName;
    auto intExchange = call.room->Exchange;
    context.control.LeaveChat(call.intChatIndex);
    context.control.JoinChat(strChatName, intExchange, 0);
}

void SetBanPause(const CommandContext& context, const CommandCall& call) {
    auto seconds = NumberWithin(call.rest, .001, 999);
    if (!seconds) return RefuseValue(context, call);
    context.options.Controls.txtBP.SetText(call.rest);
    context.control.sngBanPause = static_cast<float>(*seconds);
    call.room->SetBanPause(context.control.sngBanPause);
    Reply(context, call, call.rest, 57, "", "bp", "msg2");
}

void SetCharBan(const CommandContext& context, const CommandCall& call) {
    auto on = Switch(call.rest);
    if (!on) return RefuseValue(context, call);
    auto& options = context.options;
    options.CharBanOn = *on;
    options.Controls.chkCharBan.SetValue(*on ? 1 : 0);
    options.Controls.txtCharBan.SetEnabled(*on);
    Reply(context, call, SwitchWord(*on), 88, "", "cb", "msg2");
}

void SetCharBanNum(const CommandContext& context, const CommandCall& call) {
    auto length = NumberWithin(call.rest, 1, 100);
    if (!length) return RefuseValue(context, call);
    if (auto whole = RoundToInt16(*length)) context.options.CharBanNum = *whole;
    context.options.Controls.txtCharBan.SetText(call.rest);
    Reply(context, call, call.rest, 91, "", "sc", "msg2");
}

void SetICQBan(const CommandContext& context, const CommandCall& call) {
    auto on = Switch(call.rest);
    if (!on) return RefuseValue(context, call);
    auto& options = context.options;
    if (*on)
        options.CharBanOn =
            true; // the char ban's flag and not its box, on purpose; the box below sets BanAllICQs
    else
        options.BanAllICQs = false;
    options.Controls.chkBanICQs.SetValue(*on ? 1 : 0);
    Reply(context, call, SwitchWord(*on), 94, "", "icq", "msg2");
}

} // namespace halyard::branches
