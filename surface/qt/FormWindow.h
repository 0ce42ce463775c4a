#pragma once

// A window on the screen, bound to its form: caption, ground, state, visible or not. How wide and high it is
// comes from what stands in it.

#include "platform/Controls.h"

#include <QWidget>

#include <functional>

namespace halyard {

class FormWindow : public QWidget {
  public:
    /// `closed` runs when a person closes the window.
    FormWindow(Form& form, std::function<void()> closed);

    /// Asked before a person's closing; false keeps it open. Unset, it may close.
    std::function<bool()> mayClose;

    /// Shows it, in front of all. The first time it gets the size its content asks for, if the screen has it.
    void Present();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    /// The form has been given other numbers.
    virtual void FormChanged() {}
    /// `wanted`, or as much of it as the screen has.
    QSize OnScreen(QSize wanted) const;

    Form& form;

  private:
    void KeepState();
    void ReportState();

    std::function<void()> closed;
    bool placed = false;
};

} // namespace halyard
