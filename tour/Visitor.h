#pragma once

// Another client of the same network: it signs on under a name, tries to enter a room, and tells what it
// meets there. The tour uses one to look on, and one for each person who should or should not be let in.

#include "oscar/TillerSock.h"

#include <functional>
#include <string>

namespace halyard {

class Visitor : private TillerEvents, private MainWindowLink {
  public:
    /// Signs on to 127.0.0.1 at `port` at once. `room` is on exchange 4.
    Visitor(Platform& platform, std::int32_t port, std::string name, std::string room);

    const std::string name;
    std::function<void(const std::string& who, const std::string& what)>
        onSeen;                                                       ///< in the room, HTML stripped
    std::function<void(bool letIn, const std::string& why)> onAnswer; ///< once, at the room's door

  private:
    void LoggedIn(Text strUser, Text strEmail, Text strServerIP) override;
    void LoginError(Text strDescription, std::int16_t intErrorCode) override;
    void Error(Text strDescription, std::int16_t intErrorCode, std::int16_t intSubErrorCode,
               Text strFamilyDenied) override;
    void JoinedChat(Text strChatName, std::int16_t intExchange, std::int16_t intInstance,
                    std::int16_t intChatIndex, std::int16_t intMaxPeople, std::int16_t intMaxMessageLength,
                    Text strChatIP, std::int16_t intDetailLevel) override;
    void UserJoinedChat(std::int16_t intChatIndex, Text strScreenname) override;
    void UserLeftChat(std::int16_t intChatIndex, Text strScreenname) override;
    void ChatMessage(std::int16_t intChatIndex, Text strScreenname, Text strMessage) override;
    bool GetAutoUnrate() const override { return true; }
    std::int16_t GetUnratePause() const override { return 5; }
    void Rated(int /*intType*/, Text /*strChatName*/) override {}
    void Unrated(int /*intType*/, Text /*strChatName*/, std::int16_t /*intChatIndex*/) override {}
    void Answer(bool letIn, const std::string& why);

    std::string room;
    OscarSettings settings;
    TillerSock control;
};

} // namespace halyard
