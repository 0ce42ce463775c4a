#include "surface/bridge/CheckPage.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Options.h"
#include "surface/bridge/ChosenNetwork.h"

namespace halyard {

namespace {

const char* VerdictText(CheckVerdict verdict) {
    switch (verdict) {
    case CheckVerdict::Works: return "works";
    case CheckVerdict::DoesNot: return "doesn't";
    case CheckVerdict::Odd: return "odd";
    }
    return "";
}

} // namespace

CheckPage::CheckPage(const SurfaceContext& context, ChosenNetwork& chosen, NetworkCheck& check)
    : context(context), chosen(chosen), check(check) {
    cmdStartCheck.Click = [this] { Start(); };
    cmdStopCheck.Click = [this] {
        this->check.Stop();
        Ended("Stopped.");
    };
    cmdStopCheck.SetEnabled(false);
    cmdSaveHexLog.Click = [this] { SaveHexLog(); };
    cmdSaveHexLog.SetEnabled(false);
    lstCheck.Click = [this] { lblFound.SetCaption(lstCheck.Text()); };
    check.onRow = [this](const CheckRow& row) { AddRow(row); };
    check.onDone = [this] { Ended("Done."); };
}

std::string CheckPage::Missing() const {
    const auto& boxes = context.options.Controls;
    if (context.control.LoggedOn()) return {};
    if (chosen.Busy()) return "The bot is signing on: wait until it is on line.";
    if (Trim(boxes.txtSN.Text()).size() < 2 || boxes.txtPW.Text().empty())
        return "Enter the screenname and its password first.";
    if (Trim(boxes.cmbServer.Text()).empty()) return "Enter the auth server first.";
    if (Trim(txtCheckRoom.Text()).empty()) return "Enter the name of a room that may be joined for it.";
    return {};
}

void CheckPage::Start() {
    if (const auto missing = Missing(); !missing.empty()) return lblCheckState.SetCaption(missing);
    const auto& boxes = context.options.Controls;
    const bool hashed = context.control.Settings.LoginMD5;
    if (!chosen.MayConnect(ConnectionPanel::By::Hand)) return lblCheckState.SetCaption("Not begun.");
    network = chosen.Name();
    host = NormalizeName(boxes.cmbServer.Text());
    lstCheck.Clear();
    lblFound.SetCaption("");
    cmdStartCheck.SetEnabled(false);
    cmdStopCheck.SetEnabled(true);
    cmdSaveHexLog.SetEnabled(true);
    lblCheckState.SetCaption(context.control.LoggedOn() ? "Checking over the bot's own session..."
                                                        : "Checking...");
    check.Start({*chosen.Defined(), host, RoundToInt32(Val(boxes.txtPort.Text())).value_or(0),
                 boxes.txtSN.Text(), boxes.txtPW.Text(), hashed, Trim(txtCheckRoom.Text()),
                 ToInt16(txtCheckExchange.Text()).value_or(4)});
}

void CheckPage::Ended(const std::string& words) {
    cmdStartCheck.SetEnabled(true);
    cmdStopCheck.SetEnabled(false);
    lblCheckState.SetCaption(words);
}

void CheckPage::GiveWay() {
    if (!check.Running()) return;
    check.Stop();
    Ended("Stopped: the bot itself signs on.");
}

void CheckPage::AddRow(const CheckRow& row) {
    lstCheck.AddItem(row.what + ": " + VerdictText(row.verdict) + ". " + row.detail);
    if (row.what != NetworkCheck::PasswordsRow) return;
    if (row.verdict == CheckVerdict::Odd) chosen.PasswordsChecked(network, host, false);
    if (row.verdict == CheckVerdict::Works) chosen.PasswordsChecked(network, host, true);
}

void CheckPage::SaveHexLog() {
    auto& boxes = context.platform.Boxes();
    auto& files = context.platform.FileSystem();
    const auto path = boxes.Save("Save hex log", "Text (*.txt)|*.txt|", files.ProgramFolder());
    if (path && !ReplaceFile(files, *path, ToUtf8(check.HexLog())))
        boxes.Error("Error", "The hex log could not be written.");
}

} // namespace halyard
