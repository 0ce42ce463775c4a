#include "oscar/networks/HostAndPort.h"

#include "base/Text.h"
#include "oscar/networks/Reach.h"

namespace halyard {

void SplitHostAndPort(const std::string& text, std::string& host, std::int32_t& port) {
    auto end = text.find(':');
    host = text;
    if (text.starts_with('[')) {
        const auto closing = text.find(']');
        if (closing == text.npos) return;
        host = text.substr(1, closing - 1);
        end = closing + 1;
        if (Mid(text, end + 1, 1) != ":") return;
    } else {
        if (end == text.npos || text.find(':', end + 1) != text.npos) return;
        host = text.substr(0, end);
    }
    if (auto number = ToInt32(text.substr(end + 1))) port = *number;
}

bool IsAddress(const std::string& host) {
    return ReachOf(host) != Reach::Name && !SameName(host, "localhost");
}

} // namespace halyard
