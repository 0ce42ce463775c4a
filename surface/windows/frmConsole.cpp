#include "surface/windows/frmConsole.h"

#include "base/Text.h"
#include "commands/CommandEngine.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "surface/look/ControlArrays.h"
#include "surface/look/Theme.h"
#include "surface/windows/Consoles.h"
#include "surface/windows/LogLimit.h"

namespace halyard {

namespace {

/// Coming and going alone doesn't clear the log; this is for a room in which nobody ever talks.
constexpr std::size_t QuietLimit = 16 * LogLimit;

} // namespace

frmConsole::frmConsole(const SurfaceContext& context, Consoles& owner) : context(context), owner(owner) {
    mnuCommands.Items = {&mnuBan, &mnuIgnore, &mnuUnignore, &mnuImmune, &mnuUnimm};
    BindPeople();
    txtSend.KeyPress = [this](int key) { SendKey(key); };
    cmdClearText.Click = [this] { txtChatMsg.SetText(""); };
    cmdClose.Click = [this] { CloseClicked(); };
}

void frmConsole::BindPeople() {
    cmdBan.Click = mnuBan.Click = [this] { Ban(); };
    cmdIgnore.Click = mnuIgnore.Click = [this] { Ignore(); };
    cmdUnignore.Click = mnuUnignore.Click = [this] { Unignore(); };
    mnuImmune.Click = [this] { ChangeImmune(true); };
    mnuUnimm.Click = [this] { ChangeImmune(false); };
    lstPeopleHere.MouseDown = [this](int button) {
        if (button == RightButton) mnuCommands.Popup();
    };
}

void frmConsole::CreateIface() {
    form.SetCaption("Chat Console: " + ChatName);
    lblChatName.SetCaption("Chat Room: " + ChatName);
    lstPeopleHere.Clear(); // a room that was joined again fills an open window anew
    if (auto room = context.control.Room(ChatIndex))
        for (const auto& name : room->PeopleHere) lstPeopleHere.AddItem(name);
    ShowPeopleCount();
    EachControl(Theme());
    lblChatName.SetColors(Theme::WindowBack, Theme::WindowFore);
    lblPeopleHere.SetColors(Theme::WindowBack, Theme::WindowFore);
}

void frmConsole::ShowPeopleCount() {
    lblPeopleHere.SetCaption("People Here: " + std::to_string(lstPeopleHere.ListCount()));
}

void frmConsole::AddConsoleUser(const std::string& strUser) {
    lstPeopleHere.AddItem(strUser);
    ShowPeopleCount();
    Log("Online Host: " + strUser + " has entered the room.", QuietLimit);
}

void frmConsole::RemoveConsoleUser(const std::string& strUser) {
    lstPeopleHere.RemoveItem(FindLine(lstPeopleHere, strUser));
    ShowPeopleCount();
    Log("Online Host: " + strUser + " has left the room.", QuietLimit);
}

void frmConsole::IncomingMessage(const std::string& strUser, const std::string& strMessage) {
    if (!IgnoredUsers.Item(NormalizeName(strUser)).empty()) return;
    Log(strUser + ": " + strMessage, LogLimit);
}

void frmConsole::Log(const std::string& line, std::size_t limit) {
    if (txtChatMsg.Text().size() >= limit) txtChatMsg.SetText(""); // all of it, not the oldest lines
    txtChatMsg.Append(line + "\r\n");
}

void frmConsole::Ban() {
    if (lstPeopleHere.ListIndex() < 0 || !OfItsRoom()) return;
    context.control.BanUser(Replace(lstPeopleHere.Text(), " ", ""), BanKind::Ban, ChatIndex);
}

void frmConsole::Ignore() {
    if (lstPeopleHere.ListIndex() < 0) return;
    const auto name = NormalizeName(lstPeopleHere.Text());
    IgnoredUsers.Add(name, name);
}

void frmConsole::Unignore() {
    if (lstPeopleHere.ListIndex() < 0) return;
    IgnoredUsers.Remove(NormalizeName(lstPeopleHere.Text()));
}

void frmConsole::ChangeImmune(bool immune) {
    if (lstPeopleHere.ListIndex() < 0) return;
    const auto name = lstPeopleHere.Text();
    const auto position = context.control.GetChatIndex(ChatIndex);
    if (immune)
        context.engine.Lists().AddImm(name, position);
    else
        context.engine.Lists().RemoveImm(name, position);
}

void frmConsole::SendKey(int key) {
    if (key != EnterKey || Trim(txtSend.Text()).empty()) return;
    context.control.SendChat(ChatIndex, txtSend.Text(), "manual");
    txtSend.SetText("");
}

void frmConsole::CloseClicked() {
    const bool sure = context.platform.Boxes().YesNo("Close Chat?", "Do you really want to close this chat?");
    if (sure && OfItsRoom()) context.control.CloseChat(ChatIndex);
}

bool frmConsole::OfItsRoom() const { return owner.Of(ChatIndex).get() == this; }

void frmConsole::Form_Unload() { owner.DestroyChatConsole(ChatName); }

} // namespace halyard
