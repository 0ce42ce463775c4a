#pragma once

// The main window: the panels, the menu at the side, the lists of limited rooms below, and the keys that
// reach them.

#include "surface/qt/FormWindow.h"

namespace halyard {

class PageArea;
class SideMenu;
class frmMain;

class MainWindow : public FormWindow {
  public:
    explicit MainWindow(frmMain& main);

  protected:
    void FormChanged() override;

  private:
    QWidget* RatedRooms();
    void BindMenus();
    void BindKeys();
    void Grow(int width, int height);

    frmMain& main;
    SideMenu* side;
    PageArea* pages;
    QWidget* rated;
};

} // namespace halyard
