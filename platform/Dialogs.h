#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace halyard {

/// The boxes that stop the operator for an answer. Texts are Windows-1252.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    /// A plain box, as titled "Note" or "Help".
    virtual void Note(const std::string& title, const std::string& text) = 0;
    /// A box with the exclamation sign, as titled "Error".
    virtual void Error(const std::string& title, const std::string& text) = 0;
    /// True for Yes.
    virtual bool YesNo(const std::string& title, const std::string& text) = 0;
    /// Which of `answers` was chosen, from 0; nothing when the box was closed without one.
    virtual std::optional<std::size_t> Choose(const std::string& title, const std::string& text,
                                              const std::vector<std::string>& answers) = 0;
    /// The path to open or to save to; nothing when cancelled. `filter` is label, "|", pattern, "|".
    virtual std::optional<std::string> Open(const std::string& title, const std::string& filter,
                                            const std::string& folder) = 0;
    virtual std::optional<std::string> Save(const std::string& title, const std::string& filter,
                                            const std::string& folder) = 0;
    /// The name of the chosen font; nothing when cancelled.
    virtual std::optional<std::string> Font(const std::string& title, const std::string& current) = 0;
};

} // namespace halyard
