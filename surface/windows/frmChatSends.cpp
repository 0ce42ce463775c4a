#include "surface/windows/frmChatSends.h"

#include "oscar/TillerSock.h"
#include "platform/Platform.h"

namespace halyard {

namespace {

constexpr int Pages = 13;

// The misspelled word in the last is settled.
constexpr const char* HelpTexts[] = {
    "This is for setting custom chatsends used for the chat room. Changes to the chatsends don't take place "
    "until you hit the \"Set Chatsends\" button. You may also restore the chatsends to their defaults.",
    "The chatsends where there are '%p', '%d', '%s', and '%t' indicate that they will be replaced with "
    "actual "
    "data when being sent to the chat. You will not see those four %'s in the chatsend, so long as you don't "
    "add one of them to a chatsend where they do not belong.",
    "Custom chatsend lengths are capped at 200 characters. This is to ensure you will not exceed the maximun "
    "visible character length when chatsending. You need to take into account that some chatsends will use "
    "multiple amounts of data for special % characters where it could increase the length of the chatsend by "
    "quite a bit. The smaller your chatsends are, the better the program runs."};

} // namespace

frmChatSends::frmChatSends(const SurfaceContext& context) : Edited(context) {
    form.SetVisible(false);
    ShowPage(0);
    BindButtons();
}

void frmChatSends::BindButtons() {
    for (int page = 0; auto& button : cmdPage) {
        button.Click = [this, page] { ShowPage(page); };
        ++page;
    }
    cmdNext.Click = [this] { ShowPage((ShownPage() + 1) % Pages); };
    cmdPrevious.Click = [this] { ShowPage((ShownPage() + Pages - 1) % Pages); };
    cmdSetChatsends.Click = [this] { SetClicked(); };
    cmdDefaultChatsends.Click = [this] {
        context.control.DefaultChatSends();
        ShowTexts();
    };
    cmdHelp.Click = [this] { HelpClicked(); };
}

void frmChatSends::Fill() {
    ShowTexts();
    ShowPage(0);
}

void frmChatSends::ShowTexts() {
    for (int number = 1; auto& box : txtChatSend) box.SetText(context.control.ChatSends.Item(number++));
    Settle();
}

std::string frmChatSends::Content() const {
    std::string content;
    for (const auto& box : txtChatSend) content += box.Text() + '\n';
    return content;
}

void frmChatSends::ShowPage(int page) {
    for (int index = 0; index < Pages; ++index) {
        FrameTabs[static_cast<std::size_t>(index)].SetVisible(index == page);
        cmdPage[static_cast<std::size_t>(index)].SetBold(index == page);
    }
}

int frmChatSends::ShownPage() const {
    int page = 0;
    while (page < Pages - 1 && !FrameTabs[static_cast<std::size_t>(page)].Visible()) ++page;
    return page;
}

void frmChatSends::SetClicked() {
    auto& sends = context.control.ChatSends;
    sends.Clear();
    for (const auto& box : txtChatSend) sends.Add(box.Text());
    Settle();
}

void frmChatSends::HelpClicked() {
    for (const auto* text : HelpTexts) context.platform.Boxes().Note("Help", text);
}

} // namespace halyard
