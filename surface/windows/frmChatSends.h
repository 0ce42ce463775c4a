#pragma once

// The window that edits the 124 templates of what the bot says, on 13 pages. Edits count only once they are
// set.

#include "platform/Controls.h"
#include "surface/look/ControlArrays.h"
#include "surface/windows/Edited.h"

#include <deque>
#include <string>

namespace halyard {

class frmChatSends : public Edited<frmChatSends> {
  public:
    explicit frmChatSends(const SurfaceContext& context);

    Form form{"frmChatSends", "Custom Chatsends"};
    std::deque<TextBox> txtChatSend = NumberedBoxes("txtChatSend", 124, 200);
    std::deque<Frame> FrameTabs =
        Numbered<Frame>("FrameTabs", 0, {"", "", "", "", "", "", "", "", "", "", "", "", ""});
    std::deque<Button> cmdPage =
        Numbered<Button>("cmdPage", 0, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13"});
    Button cmdNext{"cmdNext", "Next Page"};
    Button cmdPrevious{"cmdPrevious", "Previous Page"};
    Button cmdSetChatsends{"cmdSetChatsends", "Set Chatsends"};
    Button cmdDefaultChatsends{"cmdDefaultChatsends", "Default Chatsends"};
    Button cmdHelp{"cmdHelp", "?"};

    /// Of which page a box is.
    static int PageOf(int box) { return box / BoxesOnPage; }

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(form), visit(cmdNext), visit(cmdPrevious), visit(cmdSetChatsends);
        visit(cmdDefaultChatsends), visit(cmdHelp);
        for (auto& box : txtChatSend) visit(box);
        for (auto& frame : FrameTabs) visit(frame);
        for (auto& button : cmdPage) visit(button);
    }

  private:
    friend class Opened<frmChatSends>;
    friend class Edited<frmChatSends>;
    void Fill();
    std::string Content() const;
    static constexpr int BoxesOnPage = 10; // the last page has four

    void BindButtons();
    void ShowTexts();
    void ShowPage(int page);
    int ShownPage() const;
    void SetClicked();
    void HelpClicked();
};

} // namespace halyard
