#pragma once

// The branches of ProcessCommand. Each runs after the permission digit was found set, with the ccom cut off;
// the table of commands names which branch serves which ccom.

#include "commands/CommandContext.h"

#include <string>

namespace halyard::branches {

/// op, unop, imm, unimm, ab, unab, aw, unaw and the six lock commands: the act of the row for each target.
void ListCommand(const CommandContext& context, const CommandCall& call);

// EnforcementCommands.cpp. What succeeds is announced when the service confirms it, not here.
/// Everybody here whom a target names and who is not immune. Under the partial option that is every match.
void KickOrBan(const CommandContext& context, const CommandCall& call);
void Gban(const CommandContext& context, const CommandCall& call);
void Unban(const CommandContext& context, const CommandCall& call);
/// "name,minutes", minutes from 1 to 999; parts beyond the second are ignored.
void Tban(const CommandContext& context, const CommandCall& call);

// QueryCommands.cpp.
void Status(const CommandContext& context, const CommandCall& call);
void Info(const CommandContext& context, const CommandCall& call);
/// One query at a time: a second one while the first is unanswered is passed over in silence.
void AskUserInfo(const CommandContext& context, const CommandCall& call);
void Help(const CommandContext& context, const CommandCall& call);

// SettingCommands.cpp.
void SetAutobanLevel(const CommandContext& context, const CommandCall& call);
/// The room leaves and comes back; other words behind the ccom are ignored.
void Rejoin(const CommandContext& context, const CommandCall& call);
/// Seconds from .001 to 999, for new rooms and this one: others keep their pause.
void SetBanPause(const CommandContext& context, const CommandCall& call);
void SetCharBan(const CommandContext& context, const CommandCall& call);
void SetCharBanNum(const CommandContext& context, const CommandCall& call);
void SetICQBan(const CommandContext& context, const CommandCall& call);

} // namespace halyard::branches
