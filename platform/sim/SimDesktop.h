#pragma once

// A desktop that keeps what it was asked for.

#include "platform/Desktop.h"

#include <string>
#include <vector>

namespace halyard {

class SimDesktop : public Desktop {
  public:
    /// What OpenPage and HasTray answer.
    bool opens = true;
    bool tray = true;

    std::vector<std::string> pages;
    /// Empty while there is no icon.
    std::string trayTip;
    /// "title: text" of each that was told.
    std::vector<std::string> notes;
    std::string copied;
    int quits = 0;

    bool OpenPage(const std::string& address) override { return pages.push_back(address), opens; }
    bool HasTray() override { return tray; }
    void AddTrayIcon(const std::string& tip) override { trayTip = tip; }
    void SetTrayTip(const std::string& tip) override { trayTip = tip; }
    void RemoveTrayIcon() override { trayTip.clear(); }
    void Notify(const std::string& title, const std::string& text) override {
        notes.push_back(title + ": " + text);
    }
    void Copy(const std::string& text) override { copied = text; }
    void Quit() override { ++quits; }
};

} // namespace halyard
