#pragma once

// The boxes on the screen. Needs a QApplication.

#include "platform/Dialogs.h"

namespace halyard {

class QtDialogs : public Dialogs {
  public:
    void Note(const std::string& title, const std::string& text) override;
    void Error(const std::string& title, const std::string& text) override;
    bool YesNo(const std::string& title, const std::string& text) override;
    std::optional<std::size_t> Choose(const std::string& title, const std::string& text,
                                      const std::vector<std::string>& answers) override;
    std::optional<std::string> Open(const std::string& title, const std::string& filter,
                                    const std::string& folder) override;
    std::optional<std::string> Save(const std::string& title, const std::string& filter,
                                    const std::string& folder) override;
    std::optional<std::string> Font(const std::string& title, const std::string& current) override;
};

} // namespace halyard
