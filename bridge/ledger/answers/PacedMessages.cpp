#include "bridge/ledger/answers/PacedMessages.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"

#include <utility>

namespace halyard {

namespace {

constexpr const char* Ellipsis = "\x85";

std::string Html(std::string_view text) {
    std::string html;
    for (const char c : text.substr(0, PacedMessages::Longest)) {
        if (c == '<')
            html += "&lt;";
        else if (c == '>')
            html += "&gt;";
        else if (c == '&')
            html += "&amp;";
        else if (c == '\n')
            html += "<br>";
        else
            html += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
    return text.size() > PacedMessages::Longest ? html + Ellipsis : html;
}

} // namespace

PacedMessages::PacedMessages(Platform& platform, TillerSock& control)
    : control(control), pause(platform.NewTimer()) {
    pause->SetInterval(Pause);
    pause->onTick = [this] {
        pause->SetEnabled(false);
        SendNext();
    };
}

bool PacedMessages::Send(const std::string& name, std::string_view text) {
    if (waiting.size() >= MostWaiting) return false;
    waiting.push_back({name, Html(text)});
    if (!pause->Enabled()) SendNext();
    return true;
}

void PacedMessages::SendNext() {
    if (waiting.empty()) return;
    const auto message = std::move(waiting.front());
    waiting.pop_front();
    if (!control.LoggedOn()) return waiting.clear();
    control.SendIM(message.name, message.html);
    pause->SetEnabled(true);
}

} // namespace halyard
