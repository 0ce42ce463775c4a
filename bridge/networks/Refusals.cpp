#include "bridge/networks/Refusals.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr const char* CheckName = "Check the screenname, blanks and all; register it there if it is new.";
constexpr const char* CheckPassword = "Type the password again. It counts upper and lower case.";
constexpr const char* ServiceTrouble =
    "The trouble is the service's own. Wait some minutes and sign on again; ask whoever runs it if it stays.";
constexpr const char* AskService = "Ask whoever runs the service.";
constexpr const char* WaitLong = "Wait ten minutes or more: trying again at once makes it last longer.";
constexpr const char* OtherClient = "Choose the network that fits this service, or ask whoever runs it.";
constexpr const char* OtherRoom = "Ask for another room name or exchange.";
constexpr const char* CannotHere = "This network can't do it: check the network, and do without.";
constexpr const char* SlowDown = "Wait a minute. Longer pauses between lines and bans avoid it.";

std::vector<Refusal> SignOnRefusals() {
    using enum RefusalKind;
    return {
        {SignOn, -1, "The service did not let the bot in within 15 seconds.",
         "Check host and port, and that the service is running; then sign on again."},
        {SignOn, 0x01, "The service doesn't know this name, or not with this password.", CheckName},
        {SignOn, 0x02, "The service can't sign anybody on just now.", ServiceTrouble},
        {SignOn, 0x03, "The sign-on failed, and the service doesn't say why.", ServiceTrouble},
        {SignOn, 0x04, "The service takes name or password for wrong.", CheckName},
        {SignOn, 0x05, "The password is not this name's.", CheckPassword},
        {SignOn, 0x06, "The service could not read the sign-on.", OtherClient},
        {SignOn, 0x07, "The account is not valid.", CheckName},
        {SignOn, 0x08, "The account has been deleted.", "Use another account."},
        {SignOn, 0x09, "The account has expired.", "Use another account, or ask whoever runs the service."},
        {SignOn, 0x0A, "The service can't reach its accounts.", ServiceTrouble},
        {SignOn, 0x0B, "The service can't look up where to send the bot.", ServiceTrouble},
        {SignOn, 0x0C, "The service holds no usable record of the account.", AskService},
        {SignOn, 0x0D, "The service's accounts are in a bad state.", ServiceTrouble},
        {SignOn, 0x0E, "The service's look-up is in a bad state.", ServiceTrouble},
        {SignOn, 0x0F, "The service failed inside.", ServiceTrouble},
        {SignOn, 0x10, "The service is off line for now.", ServiceTrouble},
        {SignOn, 0x11, "The account is suspended.", AskService},
        {SignOn, 0x12, "The service could not ask its accounts.", ServiceTrouble},
        {SignOn, 0x13, "The service has lost its accounts.", ServiceTrouble},
        {SignOn, 0x14, "The service could not assign the bot a place.", ServiceTrouble},
        {SignOn, 0x15, "The service has lost the place that it had assigned.", ServiceTrouble},
        {SignOn, 0x16, "Too many people are signed on from this address.",
         "Sign off others that use the same address."},
        {SignOn, 0x17, "Too many people have signed on from this address.",
         "Sign off others that use the same address, then wait some minutes."},
        {SignOn, 0x18, "There were too many sign-ons in a short time.", WaitLong},
        {SignOn, 0x19, "The name has been warned too often.", "Wait until its warning level has gone down."},
        {SignOn, 0x1A, "The place that the service had assigned was waited for too long.", ServiceTrouble},
        {SignOn, 0x1B, "The service wants a newer client.", OtherClient},
        {SignOn, 0x1C, "The service would like a newer client.", OtherClient},
        {SignOn, 0x1D, "The bot signs on again too soon.", WaitLong},
        {SignOn, 0x1E, "The service takes no sign-on of this name just now.", WaitLong},
        {SignOn, 0x20, "The account needs a number from a token, which the bot can't give.",
         "Use an account without one."},
        {SignOn, 0x22, "The account is suspended because of its owner's age.", AskService},
        {SignOn, 0x2A, "The sign-on failed, and the service doesn't say why.", ServiceTrouble},
    };
}

std::vector<Refusal> ErrorRefusals() {
    using enum RefusalKind;
    return {
        {Error, 0x01, "The service could not read the head of the request.", CannotHere},
        {Error, 0x02, "The service limits how much is asked of it.", SlowDown},
        {Error, 0x03, "The bot asks too much in a short time.", SlowDown},
        {Error, 0x04, "The person is not on line.", "Wait until they are."},
        {Error, 0x05, "That part of the service is down for now.", ServiceTrouble},
        {Error, 0x06, "The service has no such part.", CannotHere},
        {Error, 0x07, "The service has given up this kind of request.", CannotHere},
        {Error, 0x08, "The service doesn't support this request, such as a room on this exchange.",
         OtherRoom},
        {Error, 0x09, "The other side's client doesn't support it.", CannotHere},
        {Error, 0x0A, "The other side's client refused.", "Ask the person."},
        {Error, 0x0B, "The answer would be too long.", "Ask for less."},
        {Error, 0x0C, "The answer was lost.", "Ask again."},
        {Error, 0x0D, "The service denies the request.", AskService},
        {Error, 0x0E, "The service could not read the request.", CannotHere},
        {Error, 0x0F, "The bot's account lacks the right.", "Ask whoever owns the room or the service."},
        {Error, 0x10, "The person is blocked by the bot's own account.", "Unblock them."},
        {Error, 0x11, "The bot's account has been warned too often.", "Wait until its warning level sinks."},
        {Error, 0x12, "The person has been warned too often.", "Wait until their warning level sinks."},
        {Error, 0x13, "The person can't be reached for now.", "Try again later."},
        {Error, 0x14, "Nothing of this name is there, such as no public room of it.", OtherRoom},
        {Error, 0x15, "A list is full.", "Take something off it."},
        {Error, 0x16, "The request fits more than one thing.", "Say more precisely what is meant."},
        {Error, 0x17, "The service has too much to do.", ServiceTrouble},
        {Error, 0x18, "It can't be done from this kind of connection.", AskService},
    };
}

std::vector<Refusal> OtherRefusals() {
    using enum RefusalKind;
    return {
        {Room, 0x00, "The service has not answered, or not said why.",
         "Ask for the room once more, or for another name or exchange."},
        {Room, 0x12, "The bot is in as many rooms as the service allows.", "Leave a room first."},
        {Room, 0x18, "The room is full.", "Try again when somebody has left."},
        {Room, 0x2E, "The bot is in this room already.", "Nothing needs to be done."},
        {Room, 0x30, "The bot enters rooms too fast.", "Wait a minute, then join again."},
        {Room, 0x32, "The service finds the room's name improper.", OtherRoom},
        {Room, 0x33, "The room's name is not valid there.", OtherRoom},
        {Room, 0x4A, "The bot's account has been put out of the room.",
         "Ask the room's owner to let it in again."},
        {Rate, 1, "The service has changed how much it lets through.", "Nothing needs to be done."},
        {Rate, 2, "The service warns that the bot is close to its limit.", SlowDown},
        {Rate, 3, "The service lets no more through for now.", SlowDown},
        {Rate, 4, "The service has lifted its limit.", "Nothing needs to be done."},
        {SignOff, -1, "The connection to the service is lost, or could not be made.",
         "Check host, port and the machine's network; sign on again unless the bot does so by itself."},
        {SignOff, 0, "The service has signed the bot off.", "Sign on again."},
        {SignOff, 1, "The bot's name has signed on elsewhere, which ended the session here.",
         "Change the password if that was nobody of yours; then sign on again."},
    };
}

std::string Hex(int code) {
    constexpr const char* digits = "0123456789ABCDEF";
    std::string text = "0x";
    for (int shift = 12; shift >= 0; shift -= 4) text += digits[code >> shift & 15];
    return text;
}

} // namespace

const std::vector<Refusal>& Refusals() {
    static const auto all = [] {
        auto together = SignOnRefusals();
        for (const auto& more : {ErrorRefusals(), OtherRefusals()})
            together.insert(together.end(), more.begin(), more.end());
        return together;
    }();
    return all;
}

const Refusal* FindRefusal(RefusalKind kind, int code) {
    const auto& all = Refusals();
    const auto found = std::find_if(all.begin(), all.end(), [=](const Refusal& refusal) {
        return refusal.kind == kind && refusal.code == code;
    });
    return found == all.end() ? nullptr : &*found;
}

std::string RefusalText(RefusalKind kind, int code) {
    if (const auto* found = FindRefusal(kind, code))
        return std::string(found->sentence) + " " + found->advice;
    return std::string(RefusalKindText(kind)) + ": the service gives the code " + Hex(code) +
           ", whose meaning isn't known here. " + AskService;
}

const char* RefusalKindText(RefusalKind kind) {
    switch (kind) {
    case RefusalKind::SignOn: return "Sign-on";
    case RefusalKind::Error: return "Request";
    case RefusalKind::Room: return "Room";
    case RefusalKind::Rate: return "Limit";
    case RefusalKind::SignOff: return "Sign-off";
    }
    return "";
}

} // namespace halyard
