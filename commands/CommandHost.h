#pragma once

// What the command engine asks of the windows above it.

#include <cstdint>
#include <string>

namespace halyard {

enum class LockKind { Op, Imm, Ban };

class CommandHost {
  public:
    virtual ~CommandHost() = default;

    // The room's console; nothing happens when none is open.
    virtual void ConsoleMessage(std::int16_t intChatIndex, const std::string& strUser,
                                const std::string& text) = 0;
    virtual void AddConsoleUser(std::int16_t intChatIndex, const std::string& strUser) = 0;
    virtual void RemoveConsoleUser(std::int16_t intChatIndex, const std::string& strUser) = 0;
    /// An instant message for the window that logs them, its HTML stripped.
    virtual void IncomingIM(const std::string& strUser, const std::string& text) = 0;
    /// A lock came or went; the window that shows locks follows while it is loaded.
    virtual void LockAdded(LockKind kind, const std::string& name) = 0;
    virtual void LockRemoved(LockKind kind, const std::string& name) = 0;
    /// Starts or stops the one-shot timer that gives up on a user-info request.
    virtual void SetUserInfoTimer(bool enabled) = 0;
};

} // namespace halyard
