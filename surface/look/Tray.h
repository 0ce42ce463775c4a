#pragma once

// The icon by which the program is reached while its window is hidden. The main window owns the one.

#include <string>

namespace halyard {

class Platform;

class Tray {
  public:
    explicit Tray(Platform& platform) : platform(platform) {}
    /// Adds the icon, with nobody signed on.
    void Add();
    /// The tip names who is signed on.
    void ShowUser(const std::string& user);
    void Remove();

  private:
    Platform& platform;
};

} // namespace halyard
