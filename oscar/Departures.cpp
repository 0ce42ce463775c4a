#include "oscar/Departures.h"

namespace halyard {

namespace {

constexpr std::array<DepartureText, DepartureCount> texts{{
    {"navigation-answers", "Any 000D 0009 on any connection is the answer to a room's creation.",
     "Only on the navigation connection, as often as creations are unanswered, and only with a room in it."},
    {"bare-join-refusals", "A 000D 0001 without TLV 0008 says nothing.",
     "It is an unknown join error, with the word as its code."},
    {"unenforced-bans", "A 000E 0001 that refuses with a bare word ends in silence.",
     "The request is over, and the operator is told that this network doesn't enforce bans."},
    {"main-sign-offs", "A channel 4 frame on the main connection ends it without a word.",
     "An empty one is a lost connection; one with a reason signs off, with the reason and without an "
     "attempt."},
    {"whole-message-blocks", "A line's encoding counts only before its text, and for later lines too.",
     "The whole block is read first, and its encoding is its own. UTF-16 is decoded."},
    {"roasted-password-type", "The roasted password goes out under TLV 0025.", "It goes out under TLV 0002."},
    {"rate-classes-as-told", "Class 1 rates bans, class 5 lines, and others show an empty notice.",
     "The classes of bans and lines are those of the connection's own table; others say nothing."},
    {"one-service-request", "Requests for a room may run into each other and into a migration.",
     "They wait for the one under way, and every connection keeps its own cookie, name and exchange."},
    {"refused-second-joins", "A room that the bot is in may be joined once more, and is lost by that.",
     "It is refused with words before it is sent."},
    {"reachable-redirects", "A redirect is followed wherever it leads.",
     "One to this machine, to nowhere or to a private address is followed on the sign-on's own address when "
     "that one is further out."},
    {"names-are-no-commands", "A person with the name of internal commands is obeyed with every permission.",
     "An internal command is known by the call it came by; names with brackets are heard as talk only."},
    {"tls", "Connections go plain.",
     "Every connection of the network, sign-on and redirects, goes over TLS, and never goes plain instead."},
}};

} // namespace

const DepartureText& TextOf(Departure departure) { return texts[static_cast<std::size_t>(departure)]; }

std::optional<Departure> DepartureNamed(std::string_view name) {
    for (std::size_t index = 0; index < texts.size(); ++index)
        if (name == texts[index].name) return static_cast<Departure>(index);
    return std::nullopt;
}

} // namespace halyard
