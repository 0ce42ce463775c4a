#pragma once

// The windows beside the main one. Each returns its window, laid out and not yet shown.

#include <memory>

namespace halyard {

class FormWindow;
class frmCcoms;
class frmChatSends;
class frmConsole;
class frmCredits;
class frmIMComs;
class frmLocks;
class frmNotice;
class frmUniPerms;

std::unique_ptr<FormWindow> DrawCcoms(frmCcoms& model);
std::unique_ptr<FormWindow> DrawChatSends(frmChatSends& model);
std::unique_ptr<FormWindow> DrawConsole(frmConsole& model);
std::unique_ptr<FormWindow> DrawCredits(frmCredits& model);
std::unique_ptr<FormWindow> DrawIMComs(frmIMComs& model);
std::unique_ptr<FormWindow> DrawLocks(frmLocks& model);
std::unique_ptr<FormWindow> DrawNotice(frmNotice& model);
std::unique_ptr<FormWindow> DrawUniPerms(frmUniPerms& model);

} // namespace halyard
