#pragma once

// What a program without a screen puts in the place of boxes and desktop: notes go to the error stream,
// questions are answered with No, and there is neither tray nor page.

#include "platform/Desktop.h"
#include "platform/Dialogs.h"

namespace halyard {

class NoBoxes : public Dialogs {
  public:
    void Note(const std::string& title, const std::string& text) override;
    void Error(const std::string& title, const std::string& text) override { Note(title, text); }
    bool YesNo(const std::string&, const std::string&) override { return false; }
    std::optional<std::size_t> Choose(const std::string&, const std::string&,
                                      const std::vector<std::string>&) override {
        return {};
    }
    std::optional<std::string> Open(const std::string&, const std::string&, const std::string&) override {
        return {};
    }
    std::optional<std::string> Save(const std::string&, const std::string&, const std::string&) override {
        return {};
    }
    std::optional<std::string> Font(const std::string&, const std::string&) override { return {}; }
};

class NoDesktop : public Desktop {
  public:
    bool OpenPage(const std::string&) override { return false; }
    bool HasTray() override { return false; }
    void AddTrayIcon(const std::string&) override {}
    void SetTrayTip(const std::string&) override {}
    void RemoveTrayIcon() override {}
    void Notify(const std::string&, const std::string&) override {}
    void Copy(const std::string&) override {}
    void Quit() override;
};

} // namespace halyard
