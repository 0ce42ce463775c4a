#pragma once

// The seven panels of the main window. Each returns its page, laid out.

class QWidget;

namespace halyard {

class frmMain;

QWidget* DrawConnectionPanel(frmMain& main);
QWidget* DrawChatsPanel(frmMain& main);
QWidget* DrawPeoplePanel(frmMain& main);
QWidget* DrawAutobanPanel(frmMain& main);
QWidget* DrawEjectListsPanel(frmMain& main);
QWidget* DrawStatsPanel(frmMain& main);
QWidget* DrawOtherPanel(frmMain& main);

} // namespace halyard
