#include "bridge/watch/alarms/CommandRinger.h"

#include "base/Latin1.h"
#include "platform/Platform.h"

#include <utility>

namespace halyard {

namespace {

CommandLine LineFor(const std::vector<std::string>& command, const Ring& ring) {
    CommandLine line;
    for (const auto& argument : command) line.arguments.push_back(ToUtf8(argument));
    line.environment = {{"HALYARD_ALARM", EnvironmentField(TextOf(ring.kind).name)},
                        {"HALYARD_REASON", WordOf(ring.reason)},
                        {"HALYARD_SUBJECT", EnvironmentField(ring.subject)},
                        {"HALYARD_WORDS", EnvironmentField(SentenceOf(ring))},
                        {"HALYARD_TIME", std::to_string(ring.at / 1000)}};
    return line;
}

} // namespace

std::string EnvironmentField(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string field;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        auto piece = ToUtf8(std::string_view(&c, 1));
        // Those of C1, too, where a character of Windows-1252 has none of its own.
        const bool control = byte < 0x20 || byte == 0x7F || c == '\\' ||
                             (piece.size() == 2 && piece[0] == '\xC2' && piece[1] < '\xA0');
        if (control) piece = std::string("\\x") + digits[byte >> 4] + digits[byte & 15];
        if (field.size() + piece.size() > CommandRinger::LongestField) break;
        field += piece;
    }
    return field;
}

CommandRinger::CommandRinger(Platform& platform, std::function<void(const std::string&)> tell)
    : tell(std::move(tell)), commands(platform.NewCommands()) {}

void CommandRinger::Hear(const Ring& ring) {
    if (command.empty() || !commands || waiting.size() >= MostWaiting) return;
    waiting.push_back(ring);
    RunNext();
}

void CommandRinger::RunNext() {
    if (running || waiting.empty()) return;
    const auto ring = std::move(waiting.front());
    waiting.pop_front();
    if (command.empty()) return waiting.clear();
    running = commands->Run(LineFor(command, ring), [this](const CommandEnd& end) {
        running = false;
        if (!end.problem.empty())
            tell("The alarms' command: " + end.problem + ".");
        else if (end.status != 0)
            tell("The alarms' command gives the status " + std::to_string(end.status) + ".");
        RunNext();
    });
}

} // namespace halyard
