#pragma once

// The controls of the main window that hold options, under their settled names. Options keeps each in step
// with the variable that the running code reads, and gives both what they start with.

#include "platform/Controls.h"

#include <array>

namespace halyard {

struct OptionControls {
    // Connection
    TextBox txtSN{"txtSN", "", 100};
    TextBox txtPW{"txtPW", "", 30};
    ComboBox cmbServer{"cmbServer"};
    TextBox txtPort{"txtPort", "", 5};
    CheckBox chkMD5Login{"chkMD5Login", "MD5 Login"};
    CheckBox chkFullCaps{"chkFullCaps", "Login with full capabilities"};
    CheckBox chkSecureIM{"chkSecureIM", "Login with Secure IM"};
    CheckBox chkAutoLogin{"chkAutoLogin", "Attempt re-connect if disconnected"};
    CheckBox chkNotify{"chkNotify", "Alert re-connections"};

    // Chats
    TextBox txtChat{"txtChat", "", 100};
    TextBox txtEx{"txtEx", "", 2};
    TextBox txtInstance{"txtInstance", "0", 3};
    CheckBox chkAutoOwner{"chkAutoOwner", "Auto Owner"};
    CheckBox chkRejoinKick{"chkRejoinKick", "Rejoin if kicked"};
    CheckBox chkRejoinError{"chkRejoinError", "Rejoin on chat error"};

    // Ops and immunes
    ListBox lstOps{"lstOps"};
    ListBox lstImms{"lstImms"};
    CheckBox chkAutoImm{"chkAutoImm", "Auto Immune"};

    // Autobans and autowords
    ListBox lstABs{"lstABs"};
    ListBox lstAWs{"lstAWs"};
    OptionGroup optAB{"optAB", {"None", "Selected", "All"}};
    CheckBox chkAWOn{"chkAWOn", "Auto Word On"};
    CheckBox chkIncludeHTML{"chkIncludeHTML", "Let Auto Word Include HTML"};
    CheckBox chkWordBanAll{"chkWordBanAll", "Word Ban All"};
    CheckBox chkBanGhosters{"chkBanGhosters", "Autoban Ghosters"};
    CheckBox chkBanICQs{"chkBanICQs", "Ban All ICQs"};
    CheckBox chkCharBan{"chkCharBan", "Character Ban"};
    TextBox txtCharBan{"txtCharBan"};

    // Other
    std::array<CheckBox, 5> chkPartial{{{"chkPartial(0)", "Partial Op"},
                                        {"chkPartial(1)", "Partial Immune"},
                                        {"chkPartial(2)", "Partial Ban"},
                                        {"chkPartial(3)", "Partial Unban"},
                                        {"chkPartial(4)", "Partial Info"}}};
    std::array<CheckBox, 5> chkChain{{{"chkChain(0)", "Chain Op"},
                                      {"chkChain(1)", "Chain Unop"},
                                      {"chkChain(2)", "Chain Imm"},
                                      {"chkChain(3)", "Chain Unimm"},
                                      {"chkChain(4)", "Chain Unban"}}};
    CheckBox chkChatSendOn{"chkChatSendOn", "Chatsend On"};
    CheckBox chkAutoUnrate{"chkAutoUnrate", "Auto Unrate On"};
    CheckBox chkABOnUnrate{"chkABOnUnrate", "Auto Ban on Unrate"};
    TextBox txtUnrate{"txtUnrate", "", 3};
    CheckBox chkAutoSave{"chkAutoSave", "Auto Save Settings (Every 30 mins)"};
    TextBox txtAutoSaveFile{"txtAutoSaveFile", "", 40};
    CheckBox chkAutoSaveBans{"chkAutoSaveBans", "Auto-save all eject lists when auto saving settings."};
    TextBox txtEjectListFileName{"txtEjectListFileName"};
    TextBox txtCurrentUser{"txtCurrentUser", "", 100};
    TextBox txtBP{"txtBP", "", 7};
    TextBox txtBGColor{"txtBGColor", "", 50};
    TextBox txtFontColor{"txtFontColor"};
    TextBox txtFontType{"txtFontType", "", 100};
    CheckBox chkBold{"chkBold", "Bold"};
    CheckBox chkItalics{"chkItalics", "Italics"};
    CheckBox chkUnderline{"chkUnderline", "Underline"};
    CheckBox chkStrikethrough{"chkStrikethrough", "Strikethrough"};
};

/// The controls of the option model.
template <typename Visit>
void EachOptionControl(OptionControls& c, Visit&& visit) {
    visit(c.txtSN), visit(c.txtPW), visit(c.cmbServer), visit(c.txtPort), visit(c.chkMD5Login);
    visit(c.chkFullCaps), visit(c.chkSecureIM), visit(c.chkAutoLogin), visit(c.chkNotify);
    visit(c.txtChat), visit(c.txtEx), visit(c.txtInstance), visit(c.chkAutoOwner);
    visit(c.chkRejoinKick), visit(c.chkRejoinError), visit(c.lstOps), visit(c.lstImms);
    visit(c.chkAutoImm), visit(c.lstABs), visit(c.lstAWs), visit(c.optAB), visit(c.chkAWOn);
    visit(c.chkIncludeHTML), visit(c.chkWordBanAll), visit(c.chkBanGhosters), visit(c.chkBanICQs);
    visit(c.chkCharBan), visit(c.txtCharBan), visit(c.chkChatSendOn), visit(c.chkAutoUnrate);
    visit(c.chkABOnUnrate), visit(c.txtUnrate), visit(c.chkAutoSave), visit(c.txtAutoSaveFile);
    visit(c.chkAutoSaveBans), visit(c.txtEjectListFileName), visit(c.txtCurrentUser), visit(c.txtBP);
    visit(c.txtBGColor), visit(c.txtFontColor), visit(c.txtFontType), visit(c.chkBold);
    visit(c.chkItalics), visit(c.chkUnderline), visit(c.chkStrikethrough);
    for (auto& box : c.chkPartial) visit(box);
    for (auto& box : c.chkChain) visit(box);
}

} // namespace halyard
