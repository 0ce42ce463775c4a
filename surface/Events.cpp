// What the control tells, passed on to the part that it concerns.

#include "surface/frmMain.h"

namespace halyard {

void frmMain::NewEjectList(Text strChatName, std::int16_t) { ejects.NewEjectList(strChatName); }

void frmMain::AddedEject(Text strUser, std::int16_t, std::int16_t intChatColIndex) {
    ejects.AddedEject(strUser, intChatColIndex);
}

void frmMain::RemovedEject(Text strUser, std::int16_t, std::int16_t intChatColIndex) {
    ejects.RemovedEject(strUser, intChatColIndex);
}

void frmMain::UpdatedStats(Text strStats) { counters.UpdateStat(strStats, true); }

void frmMain::LoggedIn(Text strUser, Text, Text) { reconnection.LoggedIn(strUser); }

void frmMain::LoginStatus(Text strCurrentAction) { reconnection.LoginStatus(strCurrentAction); }

void frmMain::LoginError(Text strDescription, std::int16_t) { reconnection.LoginError(strDescription); }

void frmMain::LoggedOff() {
    reconnection.LoggedOff();
    consoles.DropLostRooms();
}

void frmMain::Error(Text strDescription, std::int16_t intErrorCode, std::int16_t, Text strFamilyDenied) {
    reconnection.Error(strDescription, intErrorCode, strFamilyDenied);
}

void frmMain::ConnectionLost(std::int16_t intSockIndex, Text strDescription) {
    reconnection.ConnectionLost(intSockIndex, strDescription);
}

void frmMain::JoinedChat(Text strChatName, std::int16_t intExchange, std::int16_t intInstance,
                         std::int16_t intChatIndex, std::int16_t, std::int16_t, Text, std::int16_t) {
    reconnection.JoinedChat(strChatName, intExchange, intInstance, intChatIndex);
}

void frmMain::LeftChat(Text strChatName, std::int16_t intExchange, std::int16_t intInstance,
                       std::int16_t intChatIndex, Text strType) {
    reconnection.LeftChat(strChatName, intExchange, intInstance, intChatIndex, strType);
}

void frmMain::UserJoinedChat(std::int16_t intChatIndex, Text strScreenname) {
    engine.UserJoinedChat(intChatIndex, strScreenname);
}

void frmMain::UserLeftChat(std::int16_t intChatIndex, Text strScreenname) {
    engine.UserLeftChat(intChatIndex, strScreenname);
}

void frmMain::ChatMessage(std::int16_t intChatIndex, Text strScreenname, Text strMessage) {
    engine.ChatMessage(intChatIndex, strScreenname, strMessage);
}

void frmMain::InstantMessage(Text strScreenname, Text strMessage, std::int16_t) {
    engine.InstantMessage(strScreenname, strMessage);
}

void frmMain::IncomingUserInfo(Text strScreenname, std::int16_t intWarningLevel, std::int32_t IdleTimeSeconds,
                               std::int32_t, Text strUserClass, Text, Text) {
    engine.IncomingUserInfo(strScreenname, intWarningLevel, IdleTimeSeconds, strUserClass);
}

void frmMain::ConsoleMessage(std::int16_t intChatIndex, Text strUser, Text text) {
    if (auto console = consoles.Of(intChatIndex)) console->IncomingMessage(strUser, text);
}

void frmMain::AddConsoleUser(std::int16_t intChatIndex, Text strUser) {
    if (auto console = consoles.Of(intChatIndex)) console->AddConsoleUser(strUser);
}

void frmMain::RemoveConsoleUser(std::int16_t intChatIndex, Text strUser) {
    if (auto console = consoles.Of(intChatIndex)) console->RemoveConsoleUser(strUser);
}

} // namespace halyard
