#include "soak/watch/ForecastWatch.h"

#include "oscar/TillerSock.h"

namespace halyard {

namespace {

void Take(std::map<std::int64_t, Departing>& into, const std::vector<Departing>& all) {
    into.clear();
    for (const auto& each : all)
        if (into.size() < ForecastDepth) into[each.number] = each; // those behind aren't played through
}

bool IsTie(const RoomTruth& room, std::int64_t now) {
    return room.pauseEnd[static_cast<std::size_t>(Pause::Lines1)] >= now &&
           room.pauseEnd[static_cast<std::size_t>(Pause::Lines1)] ==
               room.pauseEnd[static_cast<std::size_t>(Pause::Lines2)];
}

} // namespace

/// Something that nobody foresaw came between while a forecast is stale.
void ForecastWatch::Goes(std::int16_t room, Told& told, std::int64_t number, bool overtaken,
                         const char* what) {
    const auto found = told.departing.find(number);
    if (found == told.departing.end()) return;
    const auto& foreseen = found->second;
    const auto* there = truth.Room(room);
    const bool held = foreseen.at == truth.Now() && foreseen.overtaken == overtaken;
    if (!held && !told.stale && there && !IsTie(*there, truth.Now()) && wrong.empty())
        wrong = std::string(what) + " " + std::to_string(number) + " in room " + std::to_string(room) +
                " went at " + std::to_string(truth.Now()) + " and was to go at " +
                std::to_string(foreseen.at) + (foreseen.overtaken ? ", overtaken" : "");
    if (held) told.went = true;
    told.departing.erase(found);
}

void ForecastWatch::LineSaid(std::int16_t room, const Msgs&, const std::string&,
                             const std::vector<std::int64_t>& numbers) {
    for (const auto number : numbers) Goes(room, rooms[room].lines, number, false, "line");
}

void ForecastWatch::LineDropped(std::int16_t room, const Msgs& line, LineDrop why) {
    auto& told = rooms[room].lines;
    if (why == LineDrop::Overtaken || why == LineDrop::TooOld)
        Goes(room, told, line.Number, true, "line");
    else if (line.Number > 0)
        told.stale = true;
}

void ForecastWatch::PauseBegan(std::int16_t room, Pause pause, int) {
    if (pause == Pause::Lines1 || pause == Pause::Lines2) rooms[room].paused = true;
    if (pause == Pause::Bans) rooms[room].banPaused = true;
}

void ForecastWatch::RateLevel(std::int16_t room, int, bool, int) {
    rooms[room].lines.stale = rooms[room].bans.stale = true;
}

void ForecastWatch::BanAsked(std::int16_t room, std::int32_t id, BanRequestKind kind, const std::string&) {
    if (kind == BanRequestKind::Ban) Goes(room, rooms[room].bans, id, false, "ban");
}

std::string ForecastWatch::Check(std::int64_t now) {
    for (auto& [slot, room] : rooms) {
        // A pause that begins without what was foreseen to go is that of something else.
        if (room.paused && !room.lines.went) room.lines.stale = true;
        if (room.banPaused && !room.bans.went) room.bans.stale = true;
        const auto* said = truth.Room(slot);
        const auto joined = control.Room(slot);
        if (said && joined && room.lines.stale) Take(room.lines.departing, ForecastLines(*said, now));
        if (said && joined && room.bans.stale)
            Take(room.bans.departing, ForecastBans(*said, now, joined->BanPause()));
        room.lines.stale = room.bans.stale = room.lines.went = room.bans.went = false;
        room.paused = room.banPaused = false;
        for (const auto* told : {&room.lines, &room.bans})
            if (said && wrong.empty() && !told->departing.empty())
                if (const auto& next = told->departing.begin()->second; next.at >= 0 && next.at + 1000 < now)
                    wrong = "number " + std::to_string(next.number) + " in room " + std::to_string(slot) +
                            " still waits and was to go at " + std::to_string(next.at);
    }
    return wrong;
}

} // namespace halyard
