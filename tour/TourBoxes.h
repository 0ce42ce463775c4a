#pragma once

#include "platform/Dialogs.h"

#include <cstdio>
#include <string>
#include <utility>

namespace halyard {

/// The operator's answers during the tour: which file to load, where to save. What a box says is printed.
class TourBoxes : public Dialogs {
  public:
    TourBoxes(std::string opens, std::string saves) : opens(std::move(opens)), saves(std::move(saves)) {}

    void Note(const std::string& title, const std::string& text) override { Print(title, text); }
    void Error(const std::string& title, const std::string& text) override { Print(title, text); }
    bool YesNo(const std::string& title, const std::string& text) override {
        Print(title, text);
        return false;
    }
    std::optional<std::size_t> Choose(const std::string& title, const std::string& text,
                                      const std::vector<std::string>&) override {
        Print(title, text);
        return std::nullopt;
    }
    std::optional<std::string> Open(const std::string&, const std::string&, const std::string&) override {
        return opens;
    }
    std::optional<std::string> Save(const std::string&, const std::string&, const std::string&) override {
        return saves;
    }
    std::optional<std::string> Font(const std::string&, const std::string&) override { return std::nullopt; }

  private:
    static void Print(const std::string& title, const std::string& text) {
        std::printf("        box   [%s] %s\n", title.c_str(), text.c_str());
    }

    std::string opens;
    std::string saves;
};

} // namespace halyard
