#pragma once

// The right edge of the main window: the bar with the upright words, or the menu that slides in.

#include "platform/Controls.h"

#include <QWidget>

class QAbstractButton;

namespace halyard {

class MenuSlide;

class SideMenu : public QWidget {
  public:
    /// `further` stands below the entries; null for nothing.
    explicit SideMenu(MenuSlide& slide, Label* further = nullptr);
    /// How far the menu is out, from 0 to 1; it doesn't slide in a maximised window, where an open one is all
    /// out. Returns by how many pixels the edge has become wider.
    int SlideTo(double part);
    /// Presses the bar, or when the menu is open moves to it.
    void Reach();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QAbstractButton* bar;
    QWidget* menu;
    QWidget* first = nullptr; // of the menu's entries
    double slid = 0;
};

} // namespace halyard
