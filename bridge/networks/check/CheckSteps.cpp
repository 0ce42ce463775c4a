#include "bridge/networks/check/CheckSteps.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "platform/Platform.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

using Found = std::optional<Finding>;

constexpr int WrongPassword = 5;
constexpr int RateLimited = 24;
constexpr int TooSoon = 29;
constexpr int NotOwnerWord = 0x48;

Finding Works(std::string detail) { return {CheckVerdict::Works, std::move(detail)}; }
Finding DoesNot(std::string detail) { return {CheckVerdict::DoesNot, std::move(detail)}; }
Finding Odd(std::string detail) { return {CheckVerdict::Odd, std::move(detail)}; }
Finding NoAnswer() { return DoesNot("no answer within 10 s"); }

std::string HexWord(int word) { return StrToHex(WordToStr(word)); }

/// Small letters drawn anew.
std::string Letters(Platform& platform, int count) {
    std::string letters;
    for (int drawn = 0; drawn < count; ++drawn)
        letters +=
            static_cast<char>('a' + std::min(25, static_cast<int>(platform.RandomSource().Fraction() * 26)));
    return letters;
}

std::string RefusalText(const CheckHeard& heard) {
    return "refused with code " + std::to_string(std::max(0, heard.refused)) + " (" + heard.refusedText + ")";
}

/// Why a step on the main connection can't be made.
Found WithoutSession(const CheckRun& run) {
    if (run.ears.heard.signedOn && run.ears.heard.ended.empty()) return std::nullopt;
    return DoesNot("not tried: not signed on");
}

Found WithoutRoom(const CheckRun& run) {
    if (auto lacking = WithoutSession(run)) return lacking;
    if (run.ears.heard.room != 0) return std::nullopt;
    return DoesNot("not tried: not in a room");
}

CheckStep Passwords(CheckRun& run) {
    const auto begin = [&run]() -> Found {
        auto wrong = Letters(run.platform, 12);
        if (wrong == run.terms.password) wrong += 'x';
        run.control.StopAtAuthAnswer = true;
        run.control.Login(run.terms.name, wrong, run.terms.port, run.terms.hashed, false, run.terms.host);
        return std::nullopt;
    };
    const auto look = [&run]() -> Found {
        const auto& heard = run.ears.heard;
        if (heard.refused == WrongPassword) return Works("a wrong password is refused");
        if (heard.refused == RateLimited || heard.refused == TooSoon)
            run.skipSignOn = "the service limits sign-ons at the moment";
        if (heard.refused != 0) return Odd(RefusalText(heard) + ", which says nothing about passwords");
        if (heard.letIn && heard.cookie)
            return Odd("this server checks no passwords: anybody can be your op, and can sign the bot off by "
                       "taking its name");
        if (heard.letIn) return Odd("answered with neither an error nor a way in");
        if (heard.ended.empty()) return std::nullopt;
        if (!heard.answered) run.skipSignOn = heard.ended;
        return DoesNot(heard.ended);
    };
    const auto silence = [&run] {
        if (!run.ears.heard.answered) run.skipSignOn = "the service doesn't answer";
        return NoAnswer();
    };
    return {NetworkCheck::PasswordsRow, begin, look, silence};
}

CheckStep SignOn(CheckRun& run) {
    const auto begin = [&run]() -> Found {
        if (!run.skipSignOn.empty()) return DoesNot("not tried: " + run.skipSignOn);
        const auto redirect = run.ears.heard.farRedirect;
        run.ears.heard = {};
        run.ears.heard.farRedirect = redirect;
        run.control.StopAtAuthAnswer = false;
        run.control.Login(run.terms.name, run.terms.password, run.terms.port, run.terms.hashed, false,
                          run.terms.host);
        return std::nullopt;
    };
    const auto look = [&run]() -> Found {
        const auto& heard = run.ears.heard;
        if (heard.signedOn) return Works("signed on at " + heard.host);
        if (heard.refused == WrongPassword)
            return DoesNot(RefusalText(heard) + "; it may be the network's salt that is wrong");
        if (heard.refused != 0) return DoesNot(RefusalText(heard));
        if (!heard.ended.empty()) return DoesNot(heard.ended + ", after: " + heard.stage);
        return std::nullopt;
    };
    const auto silence = [&run] {
        return DoesNot("not signed on within 10 s, the last was: " + run.ears.heard.stage);
    };
    return {"Sign-on", begin, look, silence};
}

CheckStep JoinRoom(CheckRun& run) {
    const auto begin = [&run]() -> Found {
        if (auto lacking = WithoutSession(run)) return lacking;
        if (Trim(run.terms.room).empty()) return DoesNot("not tried: no room was named");
        run.ears.heard.roomRefusal.clear();
        run.control.JoinChat(run.terms.room, run.terms.exchange, 0);
        return std::nullopt;
    };
    const auto look = [&run]() -> Found {
        const auto& heard = run.ears.heard;
        if (heard.room != 0) return Works(heard.roomText);
        return heard.roomRefusal.empty() ? std::nullopt : Found(DoesNot(heard.roomRefusal));
    };
    return {"Room", begin, look, NoAnswer};
}

/// The bot's room of the name that was given, or its first. None is joined: the bot would stay there.
CheckStep StandingRoom(CheckRun& run) {
    const auto begin = [&run]() -> Found {
        if (auto lacking = WithoutSession(run)) return lacking;
        const auto& wanted = run.terms.room;
        for (const auto& room : run.control.Chat) {
            if (!Trim(wanted).empty() &&
                !(SameName(room->ChatName, wanted) && room->Exchange == run.terms.exchange))
                continue;
            if (run.control.Sockets().Tag(room->ChatIndex) != "[Chat]connected") continue;
            run.ears.heard.room = room->ChatIndex;
            for (const auto& name : room->PeopleHere) run.ears.heard.people.insert(name);
            return Works("the bot is in " + room->ChatName);
        }
        return Odd("not tried: while the bot is signed on, it must be in the room");
    };
    return {"Room", begin, begin, NoAnswer};
}

CheckStep People(CheckRun& run) {
    const auto look = [&run]() -> Found {
        const auto& people = run.ears.heard.people;
        if (people.count(NormalizeName(run.terms.name)) == 0) return std::nullopt;
        return Works("the room's list came, " + std::to_string(people.size()) + " with the bot itself");
    };
    const auto begin = [&run, look] {
        auto lacking = WithoutRoom(run);
        return lacking ? lacking : look();
    };
    const auto silence = [&run] {
        const auto count = run.ears.heard.people.size();
        if (count == 0) return DoesNot("no list of the people in the room came within 10 s");
        return Odd("a list of " + std::to_string(count) + " came, without the bot itself");
    };
    return {"People", begin, look, silence};
}

CheckStep Rates(CheckRun& run) {
    const auto begin = [&run]() -> Found {
        if (auto lacking = WithoutSession(run)) return lacking;
        const auto& heard = run.ears.heard;
        const auto main = heard.RatesOf(0);
        const auto room = heard.RatesOf(heard.room);
        if (!main.known) return Odd("the service told no classes at the sign-on, or it was not heard");
        auto text = "messages are in class " + std::to_string(main.messages);
        if (heard.room == 0 || !room.known) return Odd(text + "; of a room no classes were seen");
        text += ", room lines in " + std::to_string(room.lines) + ", bans in " + std::to_string(room.bans);
        if (run.terms.network.ways.test(static_cast<std::size_t>(Departure::RateClassesAsTold)))
            return Works(text + ", which the network's way reads");
        return room.AsLaidDown() ? Works(text + ", as is laid down")
                                 : Odd(text + "; laid down are 5 for room lines and 1 for bans");
    };
    return {"Rates", begin, begin, NoAnswer};
}

CheckStep Talk(CheckRun& run) {
    const auto begin = [&run]() -> Found {
        if (auto lacking = WithoutRoom(run)) return lacking;
        run.control.SendChat(run.ears.heard.room, CheckEars::Phrase, "manual");
        return std::nullopt;
    };
    const auto look = [&run]() -> Found {
        if (run.ears.heard.ownLine) return Works("a line was said and heard back");
        return WithoutRoom(run) ? Found(DoesNot(run.ears.heard.roomRefusal)) : std::nullopt;
    };
    return {"Talk", begin, look, [] { return DoesNot("the line was not heard back within 10 s"); }};
}

CheckStep UserInfo(CheckRun& run, std::function<void()> ask) {
    const auto begin = [&run, ask = std::move(ask)]() -> Found {
        if (auto lacking = WithoutSession(run)) return lacking;
        run.ears.heard.infoError.reset();
        ask();
        return std::nullopt;
    };
    const auto look = [&run]() -> Found {
        const auto& heard = run.ears.heard;
        if (heard.ownInfo) return Works("the bot's own came");
        return heard.infoError ? Found(DoesNot("refused with word " + HexWord(*heard.infoError)))
                               : std::nullopt;
    };
    return {"User information", begin, look, NoAnswer};
}

CheckStep Message(CheckRun& run) {
    const auto begin = [&run]() -> Found {
        if (auto lacking = WithoutSession(run)) return lacking;
        run.control.SendIM(run.terms.name, CheckEars::Phrase);
        return std::nullopt;
    };
    const auto look = [&run]() -> Found {
        const auto& heard = run.ears.heard;
        if (heard.ownMessage) return Works("a message to itself came back");
        return heard.messageError ? Found(DoesNot("refused with word " + HexWord(*heard.messageError)))
                                  : std::nullopt;
    };
    return {"Message", begin, look, NoAnswer};
}

std::string BanFrame(const char* key, std::uint32_t id, const std::string& name) {
    return HexToStr(key) + std::string(2, '\0') + LongToStr(id) + MakeTLV("0001", 2, name);
}

CheckStep Bans(CheckRun& run) {
    const auto replyTo = [&run](std::uint32_t id) -> const BanReply* {
        const auto found = run.ears.heard.banReplies.find(id);
        return found == run.ears.heard.banReplies.end() ? nullptr : &found->second;
    };
    const auto begin = [&run]() -> Found {
        if (auto lacking = WithoutRoom(run)) return lacking;
        const auto slot = run.ears.heard.room;
        const auto room = run.control.Room(slot);
        if (!room) return DoesNot("not tried: not in a room");
        if (room->IsRated(1)) return Odd("not tried: the service limits bans at the moment");
        run.banName = Letters(run.platform, 14);
        run.banStands = true;
        run.control.SendPacket(slot, 2, BanFrame("000E0024", CheckBanId, run.banName));
        return std::nullopt;
    };
    const auto look = [&run, replyTo]() -> Found {
        if (auto lacking = WithoutRoom(run)) return DoesNot("the room was lost before the answer");
        const auto* reply = replyTo(CheckBanId);
        if (!reply) return std::nullopt;
        if (reply->verdict != BanVerdict::Accepted) run.banStands = false;
        if (reply->verdict == BanVerdict::NotEnforced)
            return DoesNot("not enforced: the service knows no bans (bare word " + HexWord(reply->word) +
                           ")");
        if (reply->verdict == BanVerdict::Refused && reply->word == NotOwnerWord)
            return Odd(
                "refused with word 0048: the room isn't the bot's own, and nobody can be banned from it");
        if (reply->verdict == BanVerdict::Refused)
            return DoesNot("refused with word " + HexWord(reply->word));
        run.LiftBan();
        const auto* lifted = replyTo(CheckLiftId);
        if (!lifted) return std::nullopt;
        if (lifted->verdict == BanVerdict::Accepted) return Works("accepted, and lifted at once");
        return Odd("accepted, but not lifted: " + run.banName + ", whom nobody knows, stays banned");
    };
    const auto silence = [&run, replyTo] {
        run.LiftBan();
        if (!replyTo(CheckBanId)) return NoAnswer();
        return Odd("accepted, but lifting it had no answer: " + run.banName +
                   ", whom nobody knows, may stay banned");
    };
    return {"Bans", begin, look, silence};
}

} // namespace

void CheckRun::LiftBan() {
    if (!banStands) return;
    banStands = false;
    if (ears.heard.room != 0)
        control.SendPacket(ears.heard.room, 2, BanFrame("000E0025", CheckLiftId, banName));
}

std::vector<CheckStep> OwnSteps(CheckRun& run) {
    const auto askInfo = [&run] { run.control.GetUserInfo(run.terms.name); };
    return {Passwords(run),         SignOn(run),  JoinRoom(run), People(run), Rates(run), Talk(run),
            UserInfo(run, askInfo), Message(run), Bans(run)};
}

std::vector<CheckStep> StandingSteps(CheckRun& run) {
    // Its answer, 0001 000F, is one that the bot passes over; 0002 0006 would be said in a room.
    const auto askInfo = [&run] {
        run.control.SendPacket(0, 2, HexToStr("0001000E0000") + LongToStr(CheckInfoId));
    };
    return {StandingRoom(run), People(run), Rates(run), UserInfo(run, askInfo), Bans(run)};
}

} // namespace halyard
