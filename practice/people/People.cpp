#include "practice/people/People.h"

#include "base/Text.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "practice/Wire.h"

#include <algorithm>

namespace halyard {

namespace {

constexpr int classFree = 0x0010;
constexpr int classNumber = 0x0050; // the names of the other network are numbers

int ClassOf(const std::string& name) {
    auto digits = std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
    return digits ? classNumber : classFree;
}

} // namespace

Person* People::Find(std::string_view name) {
    auto found = people.find(NormalizeName(name));
    return found == people.end() ? nullptr : &found->second;
}

Person& People::Enter(std::string_view name, std::int64_t now) {
    auto [at, isNew] = people.try_emplace(NormalizeName(name));
    if (isNew) at->second.since = now;
    at->second.name = name;
    return at->second;
}

void People::Remove(std::string_view name) { people.erase(NormalizeName(name)); }

void Tickets::Add(Ticket ticket) {
    tickets.push_back(std::move(ticket));
    if (tickets.size() > most) tickets.pop_front();
}

std::optional<Ticket> Tickets::Take(std::string_view cookie) {
    auto found = std::find_if(tickets.begin(), tickets.end(),
                              [&](const auto& ticket) { return ticket.cookie == cookie; });
    if (found == tickets.end()) return std::nullopt;
    auto ticket = std::move(*found);
    tickets.erase(found);
    return ticket;
}

std::string UserInfo(const std::string& name, const Person* person, std::int64_t startedAt,
                     std::int64_t now) {
    auto since = person ? person->since : now;
    return ShortString(name) + WordToStr(0) + WordToStr(3) + WordTlv(0x0001, ClassOf(name)) +
           Tlv(0x0003, LongToStr(static_cast<double>(startedAt + since / 1000))) +
           Tlv(0x000F, LongToStr(static_cast<double>((now - since) / 1000)));
}

} // namespace halyard
