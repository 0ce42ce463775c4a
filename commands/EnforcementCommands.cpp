// kick, ban, gban, unban, tban: whom they act on.

#include "base/Text.h"
#include "commands/Branches.h"
#include "commands/CommandTable.h"
#include "commands/Targets.h"
#include "oscar/TillerSock.h"
#include "state/Options.h"

namespace halyard::branches {

namespace {

/// Bans one person who is here, or answers that they are immune.
void Enforce(const CommandContext& context, const CommandCall& call, const std::string& name) {
    bool kick = call.index == CcomKick;
    if (!CheckCollection(name, context.options.Immunes))
        context.control.BanUser(name, kick ? BanKind::Kick : BanKind::Ban, call.intChatIndex);
    else if (kick)
        Reply(context, call, name, 36, "", "immunekick", "msg1");
    else
        Reply(context, call, name, 40, "", "immuneban", "msg1");
}

/// The names that one unban command has settled on: each once, in the order found.
class UnbanTargets {
  public:
    UnbanTargets(const CommandContext& context, const CommandCall& call)
        : context(context), call(call), list(EjectListOf(context.control, call.room->ChatName)) {}

    void Exact(const std::string& target) {
        if (!IsGathered(target)) GatherUnlessLocked(target);
    }
    /// By a part of a name, among those on the room's eject list; nothing when the room has none.
    void Matching(const std::string& part, bool all) {
        if (!list) return;
        bool found = false;
        for (const auto& entry : MeantBy(context, call, list->GetEjects(), part).names) {
            if (!all && IsGathered(entry)) continue;
            found = true;
            GatherUnlessLocked(entry);
            if (!all) return;
        }
        if (!found) Exact(part);
    }
    const Collection<std::string>& Names() const { return gathered; }

  private:
    static std::shared_ptr<EjectList> EjectListOf(const TillerSock& control, const std::string& strChatName) {
        for (const auto& each : control.EjectLists) // case counts here, unlike elsewhere: on purpose
            if (Replace(each->ChatName, " ", "") == Replace(strChatName, " ", "")) return each;
        return nullptr;
    }
    bool IsGathered(const std::string& name) const { return CheckCollection(name, gathered); }
    void GatherUnlessLocked(const std::string& name) {
        auto match = context.options.LockBans.FirstMatch(name);
        if (match.empty()) {
            gathered.Add(name, name);
            return;
        }
        auto& telling = context.control.Tell();
        const CauseScope lock(telling, {.kind = CauseKind::Rule,
                                        .rule = RuleKind::Lock,
                                        .room = call.intChatIndex,
                                        .who = name,
                                        .entry = match});
        if (telling.news)
            telling.news->BanDropped(call.intChatIndex, 0, BanKind::Unban, name, {}, DropReason::Locked);
        Reply(context, call, name, 115, match, "islbanned", "msg1");
    }

    const CommandContext& context;
    const CommandCall& call;
    std::shared_ptr<EjectList> list;
    Collection<std::string> gathered;
};

} // namespace

void KickOrBan(const CommandContext& context, const CommandCall& call) {
    bool partial = context.options.PartialOn[2];
    ForEachTarget(context, call, [&](const std::string& target) {
        if (partial)
            for (const auto& name : PeopleMeantBy(context, call, target).names) Enforce(context, call, name);
        else if (CheckCollection(target, call.room->PeopleHere))
            Enforce(context, call, target);
        return true;
    });
}

void Gban(const CommandContext& context, const CommandCall& call) {
    ForEachTarget(context, call, [&](const std::string& target) {
        if (CheckCollection(target, context.options.Immunes))
            Reply(context, call, target, 47, "", "immunegban", "msg1");
        else
            context.control.BanUser(target, BanKind::Ghost, call.intChatIndex);
        return true;
    });
}

void Unban(const CommandContext& context, const CommandCall& call) {
    bool partial = context.options.PartialOn[3];
    bool chain = context.options.ChainOn[4];
    UnbanTargets targets(context, call);
    ForEachTarget(context, call, [&](const std::string& target) {
        if (partial || chain)
            targets.Matching(target, chain);
        else
            targets.Exact(target);
        return true;
    });
    for (const auto& name : targets.Names())
        context.control.UnbanUser(name, BanKind::Unban, call.intChatIndex);
}

void Tban(const CommandContext& context, const CommandCall& call) {
    auto parts = Split(call.rest, ",");
    if (parts.size() < 2 || !LengthFits(RuleOf(call.index), parts[0]))
        return ReplyInvalid(context, call, "", 102);
    auto minutes = Val(parts[1]);
    auto whole = RoundToInt16(minutes);
    if (!(minutes >= 1 && minutes <= 999) || !whole) return ReplyInvalid(context, call, call.strUser, 103);

    const auto& room = *call.room;
    bool partial = context.options.PartialOn[2];
    auto name = partial ? PeopleMeantBy(context, call, parts[0]).First() : room.PeopleHere.Item(parts[0]);
    if (name.empty()) return;
    if (!CheckCollection(name, context.options.Immunes))
        context.control.TbanUser(name, room.ChatName, room.Exchange, room.Instance, *whole, room.ChatIndex);
    else // the partial way answers with the ban command's line, on purpose
        Reply(context, call, name, partial ? 40 : 104, "", "immunetban", "msg1");
}

} // namespace halyard::branches
