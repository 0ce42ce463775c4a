#pragma once

// The text files of the program: Windows-1252, lines that end in CR LF. Reading takes LF alone too, passes
// over a UTF-8 byte order mark at the start, and does not mind a last line without its end.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace halyard {

class Files;
struct Telling;

/// More than the longest lists need; a greater file isn't read at all.
inline constexpr std::size_t TextFileLimit = 128 * 1024 * 1024;

/// The path of a file given in one piece, with `fileName` empty, or as a folder and a name.
std::string PathOf(Files& files, const std::string& folderOrPath, const std::string& fileName);

/// Tells that a file was written, or couldn't be, and returns `done`.
bool TellWritten(const Telling& telling, const std::string& path, bool done);

/// A text that is put together line by line.
class TextLines {
  public:
    /// A line break inside `line` becomes a blank, so that no text can pass for further lines of the file.
    void Add(std::string_view line) { Add(line, {}); }
    /// The line `head` + `text`.
    void Add(std::string_view head, std::string_view text);
    const std::string& Text() const { return text; }
    /// Puts the text in the place of the file. False, with the old file as it was, when that failed.
    bool Save(Files& files, const std::string& path) const;

  private:
    std::string text;
};

/// Goes through the lines of a text, from the first to the last.
class LineReader {
  public:
    explicit LineReader(std::string_view text);
    /// The next line without its end; nothing behind the last.
    std::optional<std::string_view> Next();

  private:
    std::string_view rest;
};

} // namespace halyard
