#include "commands/ListCommands.h"

#include "base/Text.h"
#include "commands/CommandContext.h"
#include "commands/CommandHost.h"
#include "oscar/TillerSock.h"
#include "state/Counters.h"
#include "state/Options.h"

namespace halyard {

namespace {

/// Removes the line equal to `item`. `expected` is where it stands as long as the box mirrors its list; a
/// long list is not walked for it.
void RemoveListItem(ListBox& box, const std::string& item, std::ptrdiff_t expected) {
    auto index = static_cast<int>(expected);
    if (box.List(index) != item)
        for (index = 0; index < box.ListCount() && box.List(index) != item;) ++index;
    box.RemoveItem(index);
}

} // namespace

/// One act of one worker: its name, its room, and the steps that workers share. The count is taken before the
/// list changes, so that the number shown is the one from before: on purpose.
class ListCommands::Act {
  public:
    Act(ListCommands& workers, const Answers& answers, const std::string& given, std::int16_t intChatColIndex)
        : workers(workers), answers(answers), name(NormalizeName(given)), intChatColIndex(intChatColIndex) {}

    const std::string& Name() const { return name; }
    void Count() const { workers.counters.UpdateStat(answers.stat, true); }
    void Say(const Answer& answer) const {
        if (workers.control.Chat.Count() == 0) return; // nobody hears it, as while a file is read
        workers.control.PrepareSends(name, "%p", workers.control.ChatSends.Item(answer.number), "",
                                     answer.key, "msg1", intChatColIndex);
    }
    /// Says `answer` when the question is answered with yes.
    bool Refuse(bool refused, const Answer& answer) const {
        if (refused) Say(answer);
        return refused;
    }
    bool IsOn(const IndexedList& list) const { return CheckCollection(name, list); }

    /// False when the name was there. What is said of success is the caller's.
    bool Add(IndexedList& list, ListBox& box) const {
        if (Refuse(IsOn(list), answers.refused)) return false;
        Count();
        list.Add(name);
        box.AddItem(name);
        return true;
    }
    void AddAndSay(IndexedList& list, ListBox& box) const {
        if (Add(list, box)) Say(answers.done);
    }
    /// For a list without locks.
    void Remove(IndexedList& list, ListBox& box) const {
        if (Refuse(!IsOn(list), answers.refused)) return;
        Count();
        TakeOff(list, box);
    }
    void TakeOff(IndexedList& list, ListBox& box) const {
        auto position = list.Position(name);
        list.Remove(position);
        RemoveListItem(box, name, position - 1);
        Say(answers.done);
    }

    /// A lock that is refused as already there, or as not there, counts too.
    void Lock(const IndexedList& plain, IndexedList& locks, LockKind kind) const {
        if (Refuse(!IsOn(plain), answers.guarded)) return;
        Count();
        if (!Refuse(IsOn(locks), answers.refused)) SetLock(locks, kind);
    }
    void Unlock(const IndexedList& plain, IndexedList& locks, LockKind kind) const {
        if (Refuse(!IsOn(plain), answers.guarded)) return;
        Count();
        if (!Refuse(!IsOn(locks), answers.refused)) ClearLock(locks, kind);
    }
    void SetLock(IndexedList& locks, LockKind kind) const {
        locks.Add(name);
        Say(answers.done);
        workers.host.LockAdded(kind, name);
    }
    void ClearLock(IndexedList& locks, LockKind kind) const {
        locks.Remove(name);
        Say(answers.done);
        workers.host.LockRemoved(kind, name);
    }

  private:
    ListCommands& workers;
    const Answers& answers;
    std::string name;
    std::int16_t intChatColIndex;
};

void ListCommands::AddOp(const std::string& name, std::int16_t intChatColIndex, const std::string& strPerms) {
    static const Answers answers{"op", {"alreadyop", 5}, {"oped", 1}, {}};
    Act act(*this, answers, name, intChatColIndex);
    if (!act.Add(options.Ops, options.Controls.lstOps)) return;
    // Fails when the op was here before: the old digits stay.
    options.Perms.Add(strPerms.empty() ? options.UniPerms : strPerms, act.Name());
    act.Say(answers.done);
    if (options.AutoImm) AddImm(act.Name(), 0); // to all rooms, on purpose
}

void ListCommands::RemoveOp(const std::string& name, std::int16_t intChatColIndex) {
    static const Answers answers{"op", {"notop", 6}, {"unoped", 2}, {"lockedopunop", 113}};
    Act act(*this, answers, name, intChatColIndex);
    if (act.Refuse(!act.IsOn(options.Ops), answers.refused)) return;
    if (act.Refuse(act.IsOn(options.LockOps), answers.guarded)) return;
    act.Count();
    act.TakeOff(options.Ops, options.Controls.lstOps);
}

void ListCommands::AddImm(const std::string& strImm, std::int16_t intChatColIndex) {
    static const Answers answers{"imm", {"alreadyimm", 13}, {"immed", 9}, {}};
    Act(*this, answers, strImm, intChatColIndex).AddAndSay(options.Immunes, options.Controls.lstImms);
}

void ListCommands::RemoveImm(const std::string& strImm, std::int16_t intChatColIndex) {
    static const Answers answers{"imm", {"notimm", 14}, {"unimmed", 10}, {"lockedimmunimm", 114}};
    Act act(*this, answers, strImm, intChatColIndex);
    if (act.Refuse(!act.IsOn(options.Immunes), answers.refused)) return;
    act.Count(); // before the lock is looked at, unlike RemoveOp
    if (act.Refuse(act.IsOn(options.LockImms), answers.guarded)) return;
    act.TakeOff(options.Immunes, options.Controls.lstImms);
}

void ListCommands::AddAB(const std::string& name, std::int16_t intChatColIndex) {
    static const Answers answers{"ab", {"alreadyab", 21}, {"abed", 17}, {}};
    Act(*this, answers, name, intChatColIndex).AddAndSay(options.Autobans, options.Controls.lstABs);
}

// Lock bans do not guard autobans.
void ListCommands::RemoveAB(const std::string& name, std::int16_t intChatColIndex) {
    static const Answers answers{"ab", {"notab", 22}, {"unabed", 18}, {}};
    Act(*this, answers, name, intChatColIndex).Remove(options.Autobans, options.Controls.lstABs);
}

void ListCommands::AddAW(const std::string& name, std::int16_t intChatColIndex) {
    static const Answers answers{"aw", {"alreadyaw", 29}, {"awed", 25}, {}};
    Act(*this, answers, name, intChatColIndex).AddAndSay(options.Autowords, options.Controls.lstAWs);
}

void ListCommands::RemoveAW(const std::string& name, std::int16_t intChatColIndex) {
    static const Answers answers{"aw", {"notaw", 30}, {"unawed", 26}, {}};
    Act(*this, answers, name, intChatColIndex).Remove(options.Autowords, options.Controls.lstAWs);
}

void ListCommands::AddLockOp(const std::string& strOp, std::int16_t intChatColIndex) {
    static const Answers answers{"lockop", {"alreadylockop", 64}, {"lockoped", 60}, {"locknotop", 68}};
    Act(*this, answers, strOp, intChatColIndex).Lock(options.Ops, options.LockOps, LockKind::Op);
}

void ListCommands::RemoveLockOp(const std::string& strOp, std::int16_t intChatColIndex) {
    static const Answers answers{"lockop", {"notlockop", 65}, {"unlockoped", 61}, {"unlocknotop", 69}};
    Act(*this, answers, strOp, intChatColIndex).Unlock(options.Ops, options.LockOps, LockKind::Op);
}

void ListCommands::AddLockImm(const std::string& strImm, std::int16_t intChatColIndex) {
    static const Answers answers{"lockimm", {"alreadylockimm", 74}, {"lockimmed", 70}, {"locknotimm", 78}};
    Act(*this, answers, strImm, intChatColIndex).Lock(options.Immunes, options.LockImms, LockKind::Imm);
}

void ListCommands::RemoveLockImm(const std::string& strImm, std::int16_t intChatColIndex) {
    static const Answers answers{"lockimm", {"notlockimm", 75}, {"unlockimmed", 71}, {"unlocknotimm", 79}};
    Act(*this, answers, strImm, intChatColIndex).Unlock(options.Immunes, options.LockImms, LockKind::Imm);
}

// "lockban" is no counter's name, so lock bans change no number; and "locknotban" is the key of "Already a
// locked ban". Neither act looks at the autobans.
void ListCommands::AddLockBan(const std::string& strBan, std::int16_t intChatColIndex) {
    static const Answers answers{"lockban", {"locknotban", 84}, {"lockbanned", 80}, {}};
    Act act(*this, answers, strBan, intChatColIndex);
    if (act.Refuse(act.IsOn(options.LockBans), answers.refused)) return;
    act.Count();
    act.SetLock(options.LockBans, LockKind::Ban);
}

void ListCommands::RemoveLockBan(const std::string& strBan, std::int16_t intChatColIndex) {
    static const Answers answers{"lockban", {"notlockban", 85}, {"unlockbanned", 81}, {}};
    Act act(*this, answers, strBan, intChatColIndex);
    if (act.Refuse(!act.IsOn(options.LockBans), answers.refused)) return;
    act.Count();
    act.ClearLock(options.LockBans, LockKind::Ban);
}

} // namespace halyard
