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
    {"stops-are-stops", "Sign Off doesn't end a running re-connection.", "It does."},
    {"silence-is-asked-about", "A service that is there but answers nothing is never noticed.",
     "After two silent minutes it is asked; where it answered once, 30 s without an answer are a lost "
     "connection."},
    {"rooms-are-asked-for-again",
     "A room that is refused or lost is asked for once, or every 8 s for ever, and two at once lose one.",
     "Rooms are asked for one by one with growing pauses up to ten minutes; hopeless ones are dropped."},
    {"time-bans-are-kept",
     "A time ban is lifted in the slot that was noted, is lost at Exit, and its end undoes a later ban.",
     "It is kept by room over restarts and lifted when the bot may; a later ban cancels it."},
    {"lists-stay-with-rooms", "Loading or removing an eject list parts rooms from their lists.",
     "They are attached again by name and exchange."},
    {"kicks-end-as-kicks",
     "A kick that is confirmed while banning is limited leaves the person banned and on no list.",
     "Its second half waits until it may be sent."},
    {"bans-outlive-rates", "Bans that are asked for or wait while a room is limited or lost are gone.",
     "They wait, and go when the room is back, if they are still wanted."},
    {"request-ids-have-one-owner",
     "An unanswered request keeps its id for ever, and an error to a line counts as one to a ban.",
     "The record ends when its id is given out again, and a reply counts only for a ban sent there."},
    {"names-mean-persons", "A part of a name hits before the whole name, and may hit ops and immunes.",
     "The whole name comes first; parts never hit ops, immunes or the bot; a name holds no second field."},
    {"own-lines-are-not-heard", "The bot obeys and punishes its own lines.",
     "They are left out of commands and auto-moderation."},
    {"dice-are-not-ghosts", "The ghost ban hits lines of the service and immunes.", "It hits neither."},
    {"runaway-fuse", "Nothing stops a bad entry.",
     "An entry that acts on too many known persons in a short time pauses, with an alarm."},
    {"nothing-said-is-lost",
     "A blank text sends an empty line, and an answer behind another within 11 s is dropped.",
     "Blank texts say nothing; up to 20 answers a room wait, each at most 60 s."},
    {"nothing-typed-is-lost", "Editor windows and New Settings drop what was typed and not set.",
     "They ask first."},
    {"shown-is-so", "Some counts, buttons and boxes of the panels show what was, not what is.",
     "They are shown as they are after every change."},
}};

} // namespace

const DepartureText& TextOf(Departure departure) { return texts[static_cast<std::size_t>(departure)]; }

std::optional<Departure> WayNamed(std::string_view name) {
    for (std::size_t index = 0; index < WayCount; ++index)
        if (name == texts[index].name) return static_cast<Departure>(index);
    return std::nullopt;
}

} // namespace halyard
