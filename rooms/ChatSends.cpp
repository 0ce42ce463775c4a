#include "rooms/ChatSends.h"

#include "base/Latin1.h"

#include <array>
#include <string_view>

namespace halyard {

namespace {

// In the order of their numbers, 1 to 124. Wording and spelling are what users know; "passsed" and the
// missing blank in number 100 are on purpose. No caller names 110, 118 and 119: they are there to be edited
// only.
constexpr std::array<std::string_view, ChatSendCount> defaultTexts = {{
    // 1
    "« Op Added: %p »",
    "« Op Removed: %p »",
    "« %p does not have permission to use the op command »",
    "« %p does not have permission to use the unop command »",
    "« Already an op: %p »",
    "« Not an op: %p »",
    "« Op commands must be from 2 to 100 characters »",
    "« Unop commands must be from 2 to 100 characters »",
    "« Imm Added: %p »",
    "« Imm Removed: %p »",
    // 11
    "« %p does not have permission to use the imm command »",
    "« %p does not have permission to use the unimm command »",
    "« Already Imm: %p »",
    "« Not imm: %p »",
    "« Imm commands must be from 2 to 100 characters »",
    "« Unimm commands must be from 2 to 100 characters »",
    "« AB Added: %p »",
    "« AB Removed: %p »",
    "« %p does not have permission to use the ab command »",
    "« %p does not have permission to use the unab command »",
    // 21
    "« Already on ab: %p »",
    "« Not on ab: %p »",
    "« AB commands must be from 2 to 100 characters and cannot contain more than one asterisk or only "
    "asterisks »",
    "« Unab commands must be from 2 to 100 characters »",
    "« AW Added: %p »",
    "« AW Removed: %p »",
    "« %p does not have permission to use the aw command »",
    "« %p does not have permission to use the unaw command »",
    "« Already on aw: %p »",
    "« Not on aw: %p »",
    // 31
    "« AW commands must be from 2 to 100 characters »",
    "« Unaw commands must be from 2 to 100 characters »",
    "« Kicked: %p, Bans: %d »",
    "« %p does not have permission to use the kick command »",
    "« Kick commands must be from 2 to 100 characters »",
    "« Immune to kick: %p »",
    "« Banned: %p, Bans: %d »",
    "« %p does not have permission to use the ban command »",
    "« Ban commands must be from 2 to 100 characters »",
    "« Immune to ban: %p »",
    // 41
    "« Unbanned: %p »",
    "« %p does not have permission to use the unban command »",
    "« Unban commands must be from 2 to 100 characters »",
    "« Gbanned: %p, Bans: %d »",
    "« %p does not have permission to use the gban command »",
    "« Gban commands must be from 2 to 100 characters »",
    "« Immune to gban: %p »",
    "« Status: %p »",
    "« %p does not have permission to use the status command »",
    "« Info: %p --- %d »",
    // 51
    "« %p does not have permission to use the info command »",
    "« Info commands must be from 2 to 100 characters »",
    "« Autoban Level: %p »",
    "« %p does not have permission to use the autoban level command »",
    "« Autoban Level commands must be either 'none', 'selected', or 'all', or 0, 1, or 2 »",
    "« %p does not have permission to use the rejoin command »",
    "« Ban Pause: %p seconds »",
    "« %p does not have permission to use the ban pause command »",
    "« Ban Pause values must be from .001 to 999 seconds »",
    "« Lock Op Added: %p »",
    // 61
    "« Lock Op Removed: %p »",
    "« %p does not have permission to use the lock op command »",
    "« %p does not have permission to use the unlock op command »",
    "« Already a locked op: %p »",
    "« Not a locked op: %p »",
    "« Lock op commands must be from 2 to 100 characters »",
    "« Unlock op commands must be from 2 to 100 characters »",
    "« Not an op, cannot op lock: %p »",
    "« Not an op, cannot op unlock: %p »",
    "« Lock Imm Added: %p »",
    // 71
    "« Lock Imm Removed: %p »",
    "« %p does not have permission to use the lock imm command »",
    "« %p does not have permission to use the unlock imm command »",
    "« Already a locked imm: %p »",
    "« Not a locked imm: %p »",
    "« Lock imm commands must be from 2 to 100 characters »",
    "« Unlock imm commands must be from 2 to 100 characters »",
    "« Not imm, cannot imm lock: %p »",
    "« Not imm, cannot imm unlock: %p »",
    "« Lock Ban Added: %p »",
    // 81
    "« Lock Ban Removed: %p »",
    "« %p does not have permission to use the lock ban command »",
    "« %p does not have permission to use the unlock ban command »",
    "« Already a locked ban: %p »",
    "« Not a locked ban: %p »",
    "« Lock ban commands must be from 2 to 100 characters and cannot contain more than one asterisk or only "
    "asterisks »",
    "« Unlock ban commands must be from 2 to 100 characters »",
    "« Char Ban: %p »",
    "« %p does not have permission to use the char ban command »",
    "« Char ban commands must be either 'off', 'on', '-', '+', '0' or '1' »",
    // 91
    "« Set Char Ban: %p characters »",
    "« %p does not have permission to use the char ban command »",
    "« Set char ban values must be from 1 to 100 characters »",
    "« ICQ Ban: %p »",
    "« %p does not have permission to use the icq ban command »",
    "« ICQ ban commands must be either 'off', 'on', '-', '+', '0' or '1' »",
    "« User Info: %p --- %d »",
    "« %p does not have permission to use the user info command »",
    "« User info commands must be from 2 to 100 characters »",
    "« Time banned: %p for %s minutes, Bans: %d»",
    // 101
    "« %p does not have permission to use the time ban command »",
    "« Time ban commands must be from 1 to 100 characters and need to include the time. Example: tban user, "
    "time »",
    "« Invalid time - The time must be from 1 to 999 minutes »",
    "« Immune to tban: %p »",
    "« Auto Banned: %p, matches: %s, Bans: %d »",
    "« Word Banned: %p, matches: %s, Bans: %d »",
    "« Auto Ghostbanned: %p, Bans: %d »",
    "« Char Banned: %p, Bans: %d »",
    "« ICQ Banned: %p, Bans: %d »",
    "« Char Banned: %p, Bans: %d »",
    // 111
    "« Rated! --- %d »",
    "« %p minutes has passed, features re-enabled: %d »",
    "« Locked op, cannot unop: %p »",
    "« Locked imm, cannot unimm: %p »",
    "« Locked ban, cannot unban: %p, matches: %s »",
    "« Error: Ownership not acquired »",
    "« Error: Cannot ban room owner »",
    "« User not in room: %p »",
    "« Unknown Error: %p »",
    "« Max Chatsend Length Exceeded --- %d »",
    // 121
    "« %p has no perms »",
    "« %s minutes passsed, %p has been unbanned »",
    "« Features manually re-enabled: %d »",
    "« %p is already on time ban »",
}};

/// The same in Windows-1252, brought there once.
const std::array<std::string, ChatSendCount>& DefaultLines() {
    static const auto lines = [] {
        std::array<std::string, ChatSendCount> converted;
        for (std::size_t i = 0; i < converted.size(); ++i) converted[i] = FromUtf8(defaultTexts[i]);
        return converted;
    }();
    return lines;
}

} // namespace

void DefaultChatSendTexts(Collection<std::string>& chatSends) {
    chatSends.Clear();
    for (const auto& line : DefaultLines()) chatSends.Add(line);
}

} // namespace halyard
