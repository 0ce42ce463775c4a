#pragma once

// A log of many lines. It takes what comes at the end and lays out nothing anew.

#include <QPlainTextEdit>

#include <string>

namespace halyard {

class LogView : public QPlainTextEdit {
  public:
    LogView();
    /// The whole text, from its end. False, and nothing happens, when it stands there already.
    bool Show(const std::string& text);
    void Append(const std::string& added);

  private:
    void ScrollToEnd();

    std::string shown;
};

} // namespace halyard
