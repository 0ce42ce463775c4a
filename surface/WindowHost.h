#pragma once

// What draws the windows. The bot runs as well without one: then nothing is drawn.

namespace halyard {

class Form;
class frmConsole;

class WindowHost {
  public:
    virtual ~WindowHost() = default;

    /// A window has been filled and is to be seen. Main window and the single windows live as long as the
    /// program; which one it is, its name tells.
    virtual void Show(Form& /*window*/) {}
    /// The same for a console, of which there are several. It lives until Unload.
    virtual void ShowConsole(frmConsole& /*console*/) {}
    /// The window is closed; of a console nothing may be used any more.
    virtual void Unload(Form& /*window*/) {}
    /// The window is there already and is to come to the front.
    virtual void Focus(Form& /*window*/) {}
};

} // namespace halyard
