#pragma once

// The news of the protocol control, one method an event, in their settled order. The main window listens. A
// handler runs to its end before the control goes on.

#include "base/Collection.h"

#include <cstdint>
#include <string>

namespace halyard {

using Text = const std::string&;

/// Stands where the index of a socket would, when there is none.
inline constexpr std::int16_t NoSock = -1;

class TillerEvents {
  public:
    virtual ~TillerEvents() = default;

    virtual void NewEjectList(Text /*strChatName*/, std::int16_t /*intChatIndex*/) {}
    virtual void AddedEject(Text /*strUser*/, std::int16_t /*intChatIndex*/,
                            std::int16_t /*intChatColIndex*/) {}
    virtual void RemovedEject(Text /*strUser*/, std::int16_t /*intChatIndex*/,
                              std::int16_t /*intChatColIndex*/) {}
    virtual void UpdatedStats(Text /*strStats*/) {}
    virtual void LoggedIn(Text /*strUser*/, Text /*strEmail*/, Text /*strServerIP*/) {}
    virtual void LoginStatus(Text /*strCurrentAction*/) {}
    virtual void LoginError(Text /*strDescription*/, std::int16_t /*intErrorCode*/) {}
    virtual void PrivacySettings(std::int16_t /*intPrivacyLevel*/, bool /*blnAllowIdle*/,
                                 bool /*blnAllowTyping*/, bool /*blnAllowMobile*/) {}
    virtual void LoggedOff() {}
    virtual void Error(Text /*strDescription*/, std::int16_t /*intErrorCode*/,
                       std::int16_t /*intSubErrorCode*/, Text /*strFamilyDenied*/) {}
    /// `intSockIndex` is NoSock for a connection that could not be begun.
    virtual void ConnectionLost(std::int16_t /*intSockIndex*/, Text /*strDescription*/) {}
    virtual void JoinedChat(Text /*strChatName*/, std::int16_t /*intExchange*/, std::int16_t /*intInstance*/,
                            std::int16_t /*intChatIndex*/, std::int16_t /*intMaxPeople*/,
                            std::int16_t /*intMaxMessageLength*/, Text /*strChatIP*/,
                            std::int16_t /*intDetailLevel*/) {}
    /// `strType` is "manual" when the bot left on request and "error" when the room was lost.
    virtual void LeftChat(Text /*strChatName*/, std::int16_t /*intExchange*/, std::int16_t /*intInstance*/,
                          std::int16_t /*intChatIndex*/, Text /*strType*/) {}
    virtual void UserJoinedChat(std::int16_t /*intChatIndex*/, Text /*strScreenname*/) {}
    virtual void UserLeftChat(std::int16_t /*intChatIndex*/, Text /*strScreenname*/) {}
    /// The text has its HTML.
    virtual void ChatMessage(std::int16_t /*intChatIndex*/, Text /*strScreenname*/, Text /*strMessage*/) {}
    virtual void InstantMessage(Text /*strScreenname*/, Text /*strMessage*/, std::int16_t /*intChannel*/) {}
    virtual void IncomingUserInfo(Text /*strScreenname*/, std::int16_t /*intWarningLevel*/,
                                  std::int32_t /*IdleTimeSeconds*/, std::int32_t /*OnlineTimeSeconds*/,
                                  Text /*strUserClass*/, Text /*strEncodingType*/, Text /*strProfile*/) {}

    // Declared for the admin, e-mail and icon services; nothing raises them yet.
    virtual void EmailLookupResults(const Collection<std::string>& /*Screennames*/) {}
    virtual void IncomingBuddyIcon(Text /*strBuddy*/, Text /*strIconData*/) {}
    virtual void ScreennameFormatted(bool /*Success*/, Text /*strNewFormat*/, std::int16_t /*intErrorCode*/,
                                     Text /*strError*/, std::int16_t /*intPermissionFlag*/) {}
    virtual void EmailUpdated(bool /*Success*/, std::int16_t /*intErrorCode*/, Text /*strError*/,
                              std::int16_t /*intPermissionFlag*/) {}
    virtual void RegistrationStatusUpdated(bool /*Success*/, std::int16_t /*intErrorCode*/, Text /*strError*/,
                                           std::int16_t /*intPermissionFlag*/) {}
    virtual void PasswordUpdated(bool /*Success*/, std::int16_t /*intErrorCode*/, Text /*strError*/,
                                 std::int16_t /*intPermissionFlag*/) {}
    virtual void FormattedScreennameResults(Text /*strScreennameFormat*/,
                                            std::int16_t /*intPermissionFlag*/) {}
    virtual void EmailResults(Text /*strEmail*/, std::int16_t /*intPermissionFlag*/) {}
    virtual void RegistrationResults(std::int16_t /*intRegType*/, std::int16_t /*intPermissionFlag*/) {}
};

/// What the control asks of the main window past the events.
class MainWindowLink {
  public:
    virtual ~MainWindowLink() = default;
    /// What a new room starts with: the auto unrate switch, and its pause in minutes.
    virtual bool GetAutoUnrate() const = 0;
    virtual std::int16_t GetUnratePause() const = 0;
    /// `intType` is 0 for rate class 1 and 1 for class 5.
    virtual void Rated(int intType, Text strChatName) = 0;
    virtual void Unrated(int intType, Text strChatName, std::int16_t intChatIndex) = 0;
};

} // namespace halyard
