#include "platform/HttpReader.h"

#include "base/Text.h"

namespace halyard {

HttpReader::State HttpReader::Add(std::string_view more) {
    if (state != State::Partial) return state;
    bytes += more;
    if (!headRead) state = TakeHead();
    if (headRead && state == State::Partial) state = TakeBody();
    return state;
}

HttpReader::State HttpReader::End() {
    if (state == State::Partial) state = headRead && toTheEnd ? State::Whole : State::Broken;
    return state;
}

int HttpReader::Status() const {
    const auto word = firstLine.starts_with("HTTP/1.") ? ToInt32(Mid(firstLine, 10, 3)) : std::nullopt;
    return word && *word >= 100 && *word <= 999 ? *word : 0;
}

HttpReader::State HttpReader::TakeHead() {
    const auto end = bytes.find("\r\n\r\n");
    if (end == std::string::npos) return bytes.size() > LargestHead ? State::Broken : State::Partial;
    if (end > LargestHead) return State::Broken;
    const auto lines = Split(std::string_view(bytes).substr(0, end), "\r\n");
    bytes.erase(0, end + 4);
    if (lines.empty()) return State::Broken;
    firstLine = lines[0];
    toTheEnd = kind == Kind::Answer;
    for (std::size_t at = 1; at < lines.size(); ++at)
        if (!TakeHeader(lines[at])) return State::Broken;
    headRead = true;
    if (kind == Kind::Request) return State::Partial;
    const auto status = Status();
    if (status < 200) return State::Broken; // nobody is asked to go on
    if (status == 204 || status == 304) toTheEnd = false, length = 0;
    return State::Partial;
}

/// The two headers that say where the body ends.
bool HttpReader::TakeHeader(std::string_view line) {
    const auto colon = line.find(':');
    if (colon == line.npos) return false;
    if (SameName(line.substr(0, colon), "Transfer-Encoding")) return false;
    if (!SameName(line.substr(0, colon), "Content-Length")) return true;
    const auto digits = Trim(line.substr(colon + 1));
    if (digits.empty() || digits.size() > 6 || digits.find_first_not_of("0123456789") != std::string::npos)
        return false;
    length = static_cast<std::size_t>(ToInt32(digits).value_or(0));
    toTheEnd = false;
    return length <= LargestBody;
}

HttpReader::State HttpReader::TakeBody() {
    if (toTheEnd) return bytes.size() > LargestBody ? State::Broken : State::Partial;
    if (bytes.size() < length) return State::Partial;
    bytes.resize(length);
    return State::Whole;
}

} // namespace halyard
