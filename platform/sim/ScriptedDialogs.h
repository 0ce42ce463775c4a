#pragma once

// Boxes that nobody sees: each is recorded, and answered from the answers that were laid down beforehand.

#include "platform/Dialogs.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

class ScriptedDialogs : public Dialogs {
  public:
    enum class Kind { Note, Error, YesNo, Open, Save, Font, Choose };
    struct Box {
        Kind kind;
        std::string title;
        std::string text;   ///< the filter of Open and Save, the current name of Font
        std::string folder; ///< the answers of Choose, each with "|" behind it
        bool operator==(const Box&) const = default;
    };

    /// In the order in which they came.
    std::vector<Box> shown;

    /// Answers of the next boxes that ask, oldest first. When none is left the answer is No, or cancelled.
    void AnswerYes() { yesNo.push_back(true); }
    void AnswerNo() { yesNo.push_back(false); }
    /// For Choose, counted from 0. When none is left nothing is chosen.
    void AnswerChoice(std::size_t choice) { choices.push_back(choice); }
    /// For Open, Save and Font.
    void AnswerText(const std::string& text) { texts.push_back(text); }
    void AnswerCancel() { texts.push_back(std::nullopt); }
    /// Answers that no box has asked for.
    std::size_t AnswersLeft() const { return yesNo.size() + choices.size() + texts.size(); }

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

  private:
    std::optional<std::string> NextText();

    std::deque<bool> yesNo;
    std::deque<std::size_t> choices;
    std::deque<std::optional<std::string>> texts;
};

} // namespace halyard
