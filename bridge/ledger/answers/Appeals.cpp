#include "bridge/ledger/answers/Appeals.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "bridge/ledger/Ledger.h"
#include "bridge/ledger/answers/PacedMessages.h"
#include "bridge/ledger/reading/Moments.h"
#include "bridge/ledger/reading/Views.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "rooms/TimeBan.h"

#include <algorithm>
#include <utility>

namespace halyard {

namespace {

/// A room as the answers of the file and of the desk have it.
std::string RoomKey(const std::string& name, std::int16_t exchange) {
    return NormalizeName(name) + ":" + std::to_string(exchange);
}

} // namespace

Appeals::Appeals(Platform& platform, TillerSock& control, Ledger& ledger, PacedMessages& messages)
    : platform(platform), control(control), ledger(ledger), messages(messages) {}

/// On whose eject lists the name stands now.
std::vector<Appeals::Place> Appeals::PlacesOf(const std::string& key) const {
    std::vector<Place> places;
    for (const auto& list : control.EjectLists) {
        if (list->GetEjects().Item(key).empty()) continue;
        Place place{list->ChatName, list->Exchange, "until somebody lets you in"};
        for (const auto& record : control.TimeBans) {
            const auto ban = ReadTimeBan(record);
            if (SameName(ban.user, key) && SameName(ban.room, list->ChatName) &&
                ban.exchange == list->Exchange)
                place.until =
                    "until about " + ShownMoment(platform.CalendarMilliseconds() + ban.secondsLeft * 1000);
        }
        places.push_back(std::move(place));
        if (places.size() == MostRooms) break;
    }
    return places;
}

void Appeals::MessagePassedOver(const std::string& name, const std::string& message) {
    if (!terms.appeals) return;
    const auto key = NormalizeName(name);
    if (std::ranges::find(terms.noAppealOf, key) != terms.noAppealOf.end()) return;
    auto places = PlacesOf(key);
    if (places.empty()) return;
    struct Found {
        std::size_t kept = 0;
        std::map<std::string, std::string> since;
    };
    auto found = std::make_shared<Found>();
    ledger.Read(
        [found, person = ToUtf8(key)](Connection& connection) {
            const auto row = FindPerson(connection, person);
            const auto page = row == 0 ? std::nullopt : ReadPerson(connection, row);
            if (!page) return;
            found->kept = static_cast<std::size_t>(std::ranges::count_if(
                page->notes, [](const NoteLine& note) { return note.kind == NoteKind::Appeal; }));
            for (const auto& standing : page->standing)
                if (standing.list == ListName::Ejects && standing.wasSeen)
                    found->since[RoomKey(FromUtf8(standing.roomName), standing.exchange)] =
                        ShownMoment(standing.since);
        },
        [this, found, name, text = Trim(StripHTML(message)), places = std::move(places),
         alive = std::weak_ptr(life)](const DatabaseResult& result) {
            if (!alive.expired() && result.Ok()) Heard(name, text, places, found->kept, found->since);
        });
}

void Appeals::Heard(const std::string& name, const std::string& text, const std::vector<Place>& places,
                    std::size_t kept, const std::map<std::string, std::string>& since) {
    const CauseScope heard(control.Tell(), {.kind = CauseKind::Service, .who = name});
    if (kept < MostKept && ledger.AddNote(NoteKind::Appeal, name, name, text.substr(0, Longest)) != 0) {
        ++count;
        if (onAppeal) onAppeal(count, name);
    }
    const auto key = NormalizeName(name);
    const auto now = platform.Milliseconds();
    const auto before = answered.find(key);
    if (before != answered.end() && now - before->second < Rest) return;
    if (answered.size() >= MostPeople)
        std::erase_if(answered, [&](const auto& each) { return now - each.second >= Rest; });
    if (answered.size() >= MostPeople) return;
    std::string answer;
    for (const auto& place : places) {
        const auto known = since.find(RoomKey(place.room, place.exchange));
        answer += "You are out of " + place.room + (known == since.end() ? "" : " since " + known->second) +
                  ", " + place.until + ".\n";
    }
    answer += terms.whomToAsk;
    if (messages.Send(name, Trim(answer))) answered[key] = now;
}

} // namespace halyard
