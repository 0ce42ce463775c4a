#pragma once

// What the bot does with what is said, and by itself: commands in rooms and by instant message,
// auto-moderation of who enters and who speaks. The main window owns the one engine and passes it the
// control's events. `intChatIndex` is a room's socket slot, `intChatColIndex` its position in Chat; the two
// must not be mixed up.

#include "commands/CommandContext.h"
#include "state/ListWorkers.h"

#include <cstdint>
#include <memory>
#include <string>

namespace halyard {

class CommandEngine {
  public:
    CommandEngine(Options& options, TillerSock& control, Counters& counters, CommandHost& host,
                  Dialogs& boxes);
    ~CommandEngine();

    /// The acts on lists, which panels and file readers share with the commands.
    ListWorkers& Lists() { return *lists; }

    /// Who is asked before a rule acts; outlives the engine, or is taken back by null.
    void SetFuse(RuleFuse* fuse) { context.fuse = fuse; }

    // Events of the control.
    /// A line from the wire.
    void ChatMessage(std::int16_t intChatIndex, const std::string& strUser, const std::string& strMessage);
    void UserJoinedChat(std::int16_t intChatIndex, const std::string& strUser);
    void UserLeftChat(std::int16_t intChatIndex, const std::string& strUser);
    void InstantMessage(const std::string& strUser, const std::string& strMessage);
    /// `IdleTimeSeconds` holds minutes, despite its name.
    void IncomingUserInfo(const std::string& strUser, std::int16_t intWarningLevel,
                          std::int32_t IdleTimeSeconds, const std::string& strUserClass);

    /// Walks the ccoms in index order; the first that begins the text wins. Texts are normalised.
    /// Nothing happens when there is no room at the position.
    void ProcessCommand(const std::string& strCommand, const std::string& strUser, std::int16_t intChatIndex,
                        std::int16_t intChatColIndex, const std::string& strPerms);
    /// Scans who is in the room for autobans once banning is possible again.
    void ScanAutobansOnUnrate(std::int16_t intChatColIndex);
    /// The Enter key in the internal command box: "chat:command" is said as if by a sender with every
    /// permission. The caller clears the box.
    void InternalCommand(const std::string& text);

  private:
    void HandleLine(std::int16_t intChatIndex, const std::string& strUser, const std::string& strMessage,
                    bool fromWire);

    std::unique_ptr<ListWorkers> lists;
    CommandContext context;
};

} // namespace halyard
