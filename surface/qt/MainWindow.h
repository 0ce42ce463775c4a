#pragma once

// The main window: the panels, the menu at the side, the lists of limited rooms below, and the keys that
// reach them.

#include "surface/qt/FormWindow.h"

namespace halyard {

class frmMain;
class SideMenu;

class MainWindow : public FormWindow {
  public:
    explicit MainWindow(frmMain& main);

  protected:
    void FormChanged() override;

  private:
    QWidget* Pages();
    QWidget* RatedRooms();
    void BindMenus();
    void BindKeys();
    void Grow(int width, int height);

    frmMain& main;
    SideMenu* side;
    QWidget* rated;
};

} // namespace halyard
