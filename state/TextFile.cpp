#include "state/TextFile.h"

#include "base/News.h"
#include "platform/Files.h"

#include <algorithm>

namespace halyard {

std::string PathOf(Files& files, const std::string& folderOrPath, const std::string& fileName) {
    if (fileName.empty()) return folderOrPath;
    // Joined instead of changing the working directory, which the whole process would feel.
    bool ended = !folderOrPath.empty() && folderOrPath.back() == files.Separator();
    return folderOrPath + (ended ? "" : std::string(1, files.Separator())) + fileName;
}

bool TellWritten(const Telling& telling, const std::string& path, bool done) {
    if (telling.news) telling.news->FileWritten(path, done);
    return done;
}

void TextLines::Add(std::string_view head, std::string_view line) {
    auto start = text.size();
    text.append(head).append(line);
    std::replace_if(
        text.begin() + static_cast<std::ptrdiff_t>(start), text.end(),
        [](char c) { return c == '\r' || c == '\n'; }, ' ');
    text.append("\r\n");
}

bool TextLines::Save(Files& files, const std::string& path) const { return ReplaceFile(files, path, text); }

LineReader::LineReader(std::string_view text) : rest(text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (rest.starts_with(byteOrderMark)) rest.remove_prefix(byteOrderMark.size());
}

std::optional<std::string_view> LineReader::Next() {
    if (rest.empty()) return std::nullopt;
    auto end = rest.find('\n');
    auto line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

} // namespace halyard
