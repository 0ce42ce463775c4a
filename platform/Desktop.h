#pragma once

#include <string>

namespace halyard {

/// The desktop around the windows: the tray, the clipboard and the handler that opens pages.
class Desktop {
  public:
    virtual ~Desktop() = default;

    /// Opens a page or a file with the desktop's own program. False when there is none.
    virtual bool OpenPage(const std::string& address) = 0;
    /// True where a tray icon can be seen.
    virtual bool HasTray() = 0;
    virtual void AddTrayIcon(const std::string& tip) = 0;
    virtual void SetTrayTip(const std::string& tip) = 0;
    virtual void RemoveTrayIcon() = 0;
    /// Tells it beside the tray for some seconds, where there is one; with an icon of its own while there is
    /// none.
    virtual void Notify(const std::string& title, const std::string& text) = 0;
    /// Puts the text (Windows-1252) where other programs paste from.
    virtual void Copy(const std::string& text) = 0;
    /// Ends the program once the running handler has returned.
    virtual void Quit() = 0;
};

} // namespace halyard
