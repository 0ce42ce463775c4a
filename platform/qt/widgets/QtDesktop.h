#pragma once

// The desktop around the windows. Needs a QApplication.

#include "platform/Desktop.h"

#include <QTimer>

#include <functional>
#include <memory>

class QSystemTrayIcon;

namespace halyard {

class QtDesktop : public Desktop {
  public:
    QtDesktop();
    ~QtDesktop() override;

    /// The mouse on the tray icon, as the message number that the main window reads from its X: 514 left
    /// button up, 515 left double-click, 517 right button up.
    std::function<void(int mouseMessage)> onTrayEvent;

    bool OpenPage(const std::string& address) override;
    bool HasTray() override;
    void AddTrayIcon(const std::string& tip) override;
    void SetTrayTip(const std::string& tip) override;
    void RemoveTrayIcon() override;
    void Notify(const std::string& title, const std::string& text) override;
    void Copy(const std::string& text) override;
    void Quit() override;

  private:
    void MakeIcon();

    std::unique_ptr<QSystemTrayIcon> icon;
    QTimer noteEnd;      ///< runs while a note is told
    bool wanted = false; ///< the icon, whether a note is told or not
};

} // namespace halyard
