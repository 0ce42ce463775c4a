#pragma once

// Holds the forecast of what waits to what becomes of it: a line or ban that goes out does so at the moment
// that was told, unless something came between, whereupon the moments are told anew.

#include "base/News.h"
#include "bridge/watch/Forecast.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace halyard {

class TillerSock;

class ForecastWatch : public News {
  public:
    ForecastWatch(const TillerSock& control, const Truth& truth) : control(control), truth(truth) {}

    /// After an event: which moment was missed, empty for none. Makes the forecasts that are due.
    std::string Check(std::int64_t now);

    void LineQueued(std::int16_t room, const Msgs&) override { rooms[room].lines.stale = true; }
    void LineSaid(std::int16_t room, const Msgs&, const std::string&,
                  const std::vector<std::int64_t>& numbers) override;
    void LineDropped(std::int16_t room, const Msgs& line, LineDrop why) override;
    void PauseBegan(std::int16_t room, Pause pause, int milliseconds) override;
    void RateLevel(std::int16_t room, int classId, bool rated, int milliseconds) override;
    void RoomOpened(std::int16_t room, const std::string&, std::int16_t) override { rooms.erase(room); }
    void BanWanted(std::int16_t room, std::int32_t, BanKind, const std::string&,
                   const std::string&) override {
        rooms[room].bans.stale = true;
    }
    void BanAsked(std::int16_t room, std::int32_t id, BanRequestKind, const std::string&) override;
    void BanDropped(std::int16_t room, std::int32_t, BanKind, const std::string&, const std::string&,
                    DropReason) override {
        rooms[room].bans.stale = true;
    }

  private:
    struct Told {
        std::map<std::int64_t, Departing> departing; // by number
        bool stale = true;
        bool went = false; // in this event, as told
    };
    struct Room {
        Told lines, bans;
        bool paused = false; // a pause of lines began in this event
        bool banPaused = false;
    };
    void Goes(std::int16_t room, Told& told, std::int64_t number, bool overtaken, const char* what);

    const TillerSock& control;
    const Truth& truth;
    std::map<std::int16_t, Room> rooms;
    std::string wrong;
};

} // namespace halyard
