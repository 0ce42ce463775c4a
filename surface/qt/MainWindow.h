#pragma once

// The main window: the panels, the menu at the side, the lists of limited rooms below, and the keys that
// reach them.

#include "surface/qt/FormWindow.h"

class QBoxLayout;

namespace halyard {

class Bridge;
class PageArea;
class SideMenu;
class frmMain;

class MainWindow : public FormWindow {
  public:
    /// Without a bridge nothing stands below the lists of limited rooms.
    explicit MainWindow(frmMain& main, Bridge* bridge = nullptr);

  protected:
    void FormChanged() override;

  private:
    QWidget* RatedRooms();
    void AddBridge(Bridge& bridge, QBoxLayout& column);
    void BindMenus();
    void BindKeys();
    void Grow(int width, int height);

    frmMain& main;
    SideMenu* side;
    PageArea* pages;
    QWidget* rated;
};

} // namespace halyard
