// status, info, uinfo and help.

#include "base/Text.h"
#include "commands/Branches.h"
#include "commands/CommandEngine.h"
#include "commands/CommandHost.h"
#include "commands/CommandTable.h"
#include "commands/Targets.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"

#include <array>
#include <string_view>

namespace halyard {

namespace {

constexpr int BanClass = 1; ///< the rate class that governs banning

std::shared_ptr<EjectList> EjectListOf(const TillerSock& control, const std::string& strChatName) {
    for (const auto& list : control.EjectLists)
        if (SameName(list->ChatName, strChatName)) return list;
    return nullptr;
}

template <typename List>
std::string CountText(const List& list) {
    return std::to_string(list.Count());
}

/// What is known about a name, by look-ups of the very name: masks do not count here.
std::string KnownOf(const CommandContext& context, const Chats& room, const std::string& name) {
    const auto& options = context.options;
    std::string text;
    auto note = [&](const auto& list, const char* word) {
        if (CheckCollection(name, list)) text += word;
    };
    note(room.PeopleHere, "Here");
    if (auto list = EjectListOf(context.control, room.ChatName)) note(list->GetEjects(), ", Banned");
    note(options.Ops, ", Oped");
    note(options.Immunes, ", Imm");
    note(options.Autobans, ", ABed");
    note(options.Autowords, ", AWed");
    note(options.LockOps, ", Lock Oped");
    note(options.LockImms, ", Lock Immed");
    note(options.LockBans, ", Lock Banned");
    if (text.starts_with(",")) text.erase(0, 2);
    return text.empty() ? "[None]" : text;
}

std::string UserClassType(std::string_view strUserClass) {
    struct Named {
        std::string_view userClass, type;
    };
    static constexpr std::array<Named, 17> classes{{
        {"4", "AOL"},
        {"36", "AOL"},
        {"20", "Oscar Internet + AOL"},
        {"52", "Oscar Internet + AOL"},
        {"16", "Oscar Internet"},
        {"48", "Oscar Internet"},
        {"17", "Oscar Unconfirmed Internet"},
        {"49", "Oscar Unconfirmed Internet"},
        {"81", "Oscar ICQ Internet"},
        {"113", "Oscar ICQ Internet"},
        {"144", "Mobile Internet"},
        {"176", "Mobile Internet"},
        {"656", "Mobile Internet"},
        {"1040", "Oscar Internet Bot"},
        {"1028", "AOL Bot"},
        {"8196", "AOL Bot"},
        {"9220", "AOL Bot"},
    }};
    for (const auto& each : classes)
        if (each.userClass == strUserClass) return std::string(each.type);
    return "Unknown";
}

bool IsStruckOutWhileRated(int index) {
    return index == CcomKick || index == CcomBan || index == CcomUnban || index == CcomGban ||
           index == CcomTban;
}

std::string BuildHelpList(const Options& options, const std::string& strPerms, bool rated) {
    std::string list;
    for (int index = 0; index < CcomCount; ++index) {
        if (!PermShown(strPerms, index)) continue;
        auto ccom = options.Ccoms.GetCcom(index);
        if (!list.empty()) list += ", ";
        list += rated && IsStruckOutWhileRated(index) ? "<s>" + ccom + "</s>" : ccom;
    }
    return list;
}

} // namespace

void branches::Status(const CommandContext& context, const CommandCall& call) {
    const auto& options = context.options;
    const auto& control = context.control;
    auto ejects = EjectListOf(control, call.room->ChatName);
    auto text = " --- Ops: " + CountText(options.Ops) + ", Imms: " + CountText(options.Immunes) +
                ", ABs: " + CountText(options.Autobans) + ", AWs: " + CountText(options.Autowords) +
                ", Lock Op: " + CountText(options.LockOps) + ", Lock Imm: " + CountText(options.LockImms) +
                ", Lock Ban: " + CountText(options.LockBans) +
                ", AB Level: " + std::to_string(options.AutobanLevel) +
                ", AW On: " + BoolText(options.WordBanOn) + ", Chat Count: " + CountText(control.Chat) +
                ", Bans: " + (ejects ? CountText(ejects->GetEjects()) : "[Not Found]") +
                ", Rated: " + BoolText(call.room->IsRated(BanClass));
    Reply(context, call, text, 48, "", "status", "msg2");
}

void branches::Info(const CommandContext& context, const CommandCall& call) {
    const auto& rule = RuleOf(call.index);
    if (!LengthFits(rule, call.rest)) return ReplyInvalid(context, call, call.strUser, rule.size);
    auto name = call.rest;
    if (context.options.PartialOn[4])
        if (auto found = MeantBy(context, call, call.room->PeopleHere, name).First(); !found.empty())
            name = found;
    Reply(context, call, name, 50, KnownOf(context, *call.room, name), "info", "msg2");
}

void branches::AskUserInfo(const CommandContext& context, const CommandCall& call) {
    const auto& rule = RuleOf(call.index);
    auto& control = context.control;
    if (!LengthFits(rule, call.rest)) return ReplyInvalid(context, call, call.strUser, rule.size);
    if (control.GettingUserInfo) return;
    control.GettingUserInfo = true;
    control.strUserInfo = call.rest;
    control.strUserInfoIndex = call.intChatColIndex;
    context.host.SetUserInfoTimer(true);
    control.GetUserInfo(call.rest);
}

void CommandEngine::IncomingUserInfo(const std::string& strUser, std::int16_t intWarningLevel,
                                     std::int32_t IdleTimeSeconds, const std::string& strUserClass) {
    auto& control = context.control;
    control.GettingUserInfo = false;
    auto text = "Warning Level: " + std::to_string(intWarningLevel) +
                "%, Online Time (mins): " + std::to_string(IdleTimeSeconds) +
                ", User Class #: " + strUserClass + ", User Class Type: " + UserClassType(strUserClass);
    context.host.SetUserInfoTimer(false);
    control.PrepareSends(strUser, "%p", control.ChatSends.Item(97), text, "uinfo", "msg3",
                         control.strUserInfoIndex);
    control.strUserInfo.clear();
    control.strUserInfoIndex = 1;
}

void branches::Help(const CommandContext& context, const CommandCall& call) {
    auto list = BuildHelpList(context.options, call.strPerms, call.room->IsRated(BanClass));
    if (list.empty())
        Reply(context, call, call.strUser, 121, "", "help", "msg3");
    else // the list is the template itself
        context.control.PrepareSends("", "%p", "Commands: " + list, "", "help", "msg3", call.intChatColIndex);
}

} // namespace halyard
