#pragma once

// Reads the keys of a TOML table with the bounds that each has, and tells what is wrong with its place. Texts
// come out as Windows-1252.

#include "bridge/Toml.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace halyard {

/// The mistakes of a file.
class TomlMistakes {
  public:
    void Add(const TomlPlace& place, std::string_view text);
    bool Any() const { return count > 0; }
    /// In the order of their places, each as "line 3, column 5: " and the text, in one line. Of more than a
    /// hundred the others are but counted.
    std::vector<std::string> Texts() const;

  private:
    std::vector<std::pair<TomlPlace, std::string>> first;
    std::size_t count = 0;
};

/// What a text may be: its length in characters, and whether control characters may be among them.
struct TextBounds {
    std::size_t shortest = 1;
    std::size_t longest = 255;
    bool controls = false;
    bool Take(std::string_view text) const;
};

class TomlFields {
  public:
    /// `path` is what the table is called in mistakes, empty for the whole file. All outlive this.
    TomlFields(const TomlValue& table, std::string path, TomlMistakes& mistakes)
        : table(table), path(std::move(path)), mistakes(mistakes) {}

    // The value of a key; nothing when there is none, or when it was wrong, which is told then.
    std::optional<std::string> Text(std::string_view key, const TextBounds& bounds = {});
    std::optional<std::int64_t> Number(std::string_view key, std::int64_t least, std::int64_t most);
    std::optional<bool> Switch(std::string_view key);
    /// At most `longest` of them, unless it is told. Null where the others give nothing.
    const std::vector<TomlValue>* List(std::string_view key, std::size_t longest);
    const TomlValue* Table(std::string_view key);
    /// As Text, and a key that isn't there is told too.
    std::optional<std::string> NeedText(std::string_view key, const TextBounds& bounds = {});

    /// An item of a list under `key`.
    std::optional<std::string> TextOf(const TomlValue& item, std::string_view key, const TextBounds& bounds);
    std::optional<std::int64_t> NumberOf(const TomlValue& item, std::string_view key, std::int64_t least,
                                         std::int64_t most);
    /// `what` is wrong with the value of `key`, told at its place; at the table's where it isn't there.
    void Tell(std::string_view key, std::string_view what);
    /// The same of an item at `place`.
    void Tell(const TomlPlace& place, std::string_view key, std::string_view what);
    /// Tells every key that was not asked for. To be called last.
    void TellUnknown();

  private:
    const TomlMember* Find(std::string_view key) const;
    /// Counts the key as asked for.
    const TomlMember* Ask(std::string_view key);

    const TomlValue& table;
    std::string path;
    TomlMistakes& mistakes;
    std::vector<std::string_view> asked;
};

/// A text of a file for people: Windows-1252, in one line and not too long.
std::string ShownText(std::string_view utf8);
/// The Windows-1252 of a text; nothing when a character has no place there.
std::optional<std::string> WholeFromUtf8(std::string_view utf8);

} // namespace halyard
