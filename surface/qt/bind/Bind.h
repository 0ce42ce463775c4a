#pragma once

// One widget a control, bound in both directions: what the program sets is shown, what a person does runs the
// control's handlers. No rule of the bot's stands here. The widgets have no parent yet: a layout gives them
// one. A text box, list or combo box has no caption of its own, so it is named after the caption beside it.

#include "platform/Strips.h"
#include "platform/Table.h"
#include "surface/qt/bind/ByHand.h"
#include "surface/qt/bind/Follow.h"

#include <QPoint>

#include <string>

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListView;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace halyard {

/// A caption that stays as it is, in a single line.
QLabel* BindLabel(Label& label);
/// A text that the program changes and that may be longer than its place: one line is elided, several wrap.
QLabel* BindValue(Label& label, int lines = 1);

enum class Press { Link, Bar };
/// A label that a person presses, by mouse or by keyboard.
QAbstractButton* BindPressed(Label& label, Press look);

QPushButton* BindButton(Button& button);
QCheckBox* BindCheck(CheckBox& box);
/// The buttons side by side, each named like the group with its index.
QWidget* BindOptions(OptionGroup& group, const std::string& name);

/// Leaves the box in which somebody types, as going elsewhere would: its text counts before anything else
/// acts.
void LeaveBox();

QLineEdit* BindLine(TextBox& box, const std::string& name);
/// The same, with what is typed hidden.
QLineEdit* BindPassword(TextBox& box, const std::string& name);
/// Read only, many lines; what is appended is appended here too, and scrolled to.
QPlainTextEdit* BindLog(TextBox& box, const std::string& name);
/// Read only, many lines, seen from the first one on whenever it is another text.
QPlainTextEdit* BindReading(TextBox& box, const std::string& name);
QComboBox* BindCombo(ComboBox& box, const std::string& name);
/// Opens to choose; nothing is typed in it.
QComboBox* BindChoice(ChoiceBox& box, const std::string& name);
QListView* BindList(ListBox& list, const std::string& name);
QTreeView* BindTable(TableBox& table, const std::string& name);
/// Its name is its caption: what holds at the point.
QWidget* BindStrips(Strips& strips);
QProgressBar* BindGauge(Gauge& gauge, const std::string& name);

/// A titled group around what the caller lays out in it.
QGroupBox* BindGroup(Frame& frame);
/// An untitled place, such as a page.
QWidget* BindPlace(Frame& frame, const std::string& name);

enum class MenuPlace { Pointer, Focus };
/// With `Focus` the menu opens at the focused widget when the pointer is elsewhere, for those who use keys.
QMenu* BindMenu(Menu& menu, QWidget* parent, MenuPlace place = MenuPlace::Focus);

} // namespace halyard
