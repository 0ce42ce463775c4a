#include "state/Options.h"

#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/AuthServers.h"
#include "state/OptionTable.h"

namespace halyard {

namespace {

constexpr int AutoSaveTick = 60'000; // ms

} // namespace

Options::Options(Platform& platform, TillerSock& control, OscarSettings& settings)
    : tmrAutoSave(platform.NewTimer()), platform(platform), control(control), settings(settings) {
    tmrAutoSave->SetInterval(AutoSaveTick);
    for (auto* list : Lists()) list->Tell(control.Tell());
    Controls.chkIncludeHTML.SetEnabled(false);
    Controls.txtCharBan.SetEnabled(false);
    SetToolTips();
    TakeDefaults(); // while no box has a handler yet
    BindBoxes();
    BindTexts();
}

Options::~Options() = default;

void Options::StartUp() {
    for (const auto* host : AuthServers) Controls.cmbServer.AddItem(host);
    settings.LoginMD5 = settings.LoginFullCaps = settings.LoginSecureIM = true;
    ReconnectOn = false;
    ReconnectAlerts = true;
    ResetBanPause();
    ResetPart(Reset::User);
    ResetPart(Reset::Files);
    Controls.txtAutoSaveFile.SetEnabled(false);
    Controls.txtEjectListFileName.SetEnabled(false);
    AutoSaveBansOn = false;
    Controls.chkAutoSaveBans.SetEnabled(false);
    ResetUnrate();
    SetFont();
    Ccoms.DefaultCcoms();
    UniPerms = DefaultPerms;
    PartialOn.fill(true);
}

void Options::SetAutoUnrate(bool AutoUnrateOn) {
    AutoUnrate = AutoUnrateOn;
    for (const auto& room : control.Chat) room->SetAutoUnrate(AutoUnrateOn);
}

void Options::SetAutoUnratePause(std::int16_t) {}

void Options::SetChatSend(bool ChatSend) { control.ChatSendOn = ChatSend; }

void Options::SetWordBanOn(bool value) {
    WordBanOn = value;
    Controls.chkIncludeHTML.SetEnabled(value);
    WordBanHTML = value;
}

void Options::SetPerms(const std::string& strOp, const std::string& strPerms) {
    Perms.Remove(strOp);
    Perms.Add(strPerms, strOp);
}

} // namespace halyard
