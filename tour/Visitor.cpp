#include "tour/Visitor.h"

#include "base/Text.h"

#include <utility>

namespace halyard {

Visitor::Visitor(Platform& platform, std::int32_t port, std::string name, std::string room)
    : name(std::move(name)), room(std::move(room)), control(platform, settings, *this, *this) {
    control.Login(this->name, "practice", port, settings.LoginMD5, false, "127.0.0.1");
}

void Visitor::LoggedIn(Text /*strUser*/, Text /*strEmail*/, Text /*strServerIP*/) {
    control.JoinChat(room, 4, 0);
}

void Visitor::LoginError(Text strDescription, std::int16_t /*intErrorCode*/) {
    Answer(false, strDescription);
}

void Visitor::Error(Text strDescription, std::int16_t /*intErrorCode*/, std::int16_t /*intSubErrorCode*/,
                    Text /*strFamilyDenied*/) {
    Answer(false, strDescription);
}

void Visitor::JoinedChat(Text strChatName, std::int16_t /*intExchange*/, std::int16_t /*intInstance*/,
                         std::int16_t /*intChatIndex*/, std::int16_t /*intMaxPeople*/,
                         std::int16_t /*intMaxMessageLength*/, Text /*strChatIP*/,
                         std::int16_t /*intDetailLevel*/) {
    Answer(true, "is in " + strChatName);
}

void Visitor::UserJoinedChat(std::int16_t intChatIndex, Text strScreenname) {
    // Who was there before is not news.
    if (auto here = control.Room(intChatIndex); onSeen && here && !here->JoinTimerEnabled())
        onSeen(strScreenname, "enters");
}

void Visitor::UserLeftChat(std::int16_t /*intChatIndex*/, Text strScreenname) {
    if (onSeen) onSeen(strScreenname, "is gone");
}

void Visitor::ChatMessage(std::int16_t /*intChatIndex*/, Text strScreenname, Text strMessage) {
    if (onSeen) onSeen(strScreenname, "says: " + StripHTML(strMessage));
}

void Visitor::Answer(bool letIn, const std::string& why) {
    if (auto tell = std::exchange(onAnswer, nullptr)) tell(letIn, why);
}

} // namespace halyard
