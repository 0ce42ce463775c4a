#pragma once

// The page of the window Watch that lists what waits to be said or banned, until when and why, takes some of
// it out, and lists what never went. The window owns the one.

#include "platform/Table.h"
#include "surface/bridge/watch/LiveTable.h"
#include "surface/bridge/watch/WatchHooks.h"
#include "surface/bridge/watch/WatchWords.h"

#include <cstdint>
#include <string>
#include <vector>

namespace halyard {

class WaitingPage {
  public:
    static constexpr std::size_t Most = 1000; ///< lines that are listed

    /// All outlive it.
    WaitingPage(const Truth& truth, WatchClock& clock, const WatchHooks& hooks);

    Frame FrameWaiting{"FrameWaiting", "Waiting"};
    Label lblWaiting{"lblWaiting"}; ///< how much waits
    TableBox tblWaiting{"tblWaiting",
                        {{"Room", 18},
                         {"What", 22},
                         {"Whom", 20},
                         {"By", 26},
                         {"Since", 11},
                         {"Goes", 22},
                         {"Held up by", 0}}};
    Button cmdDrop{"cmdDrop", "Drop"};
    Button cmdDropPerson{"cmdDropPerson", "Drop All of This Person"};
    Button cmdDropOp{"cmdDropOp", "Drop All of This Op"};
    Label lblDropped{"lblDropped"}; ///< what came of it
    Label lblGone{"lblGone", "Never went"};
    TableBox tblGone{"tblGone",
                     {{"When", 11}, {"Room", 18}, {"What", 22}, {"Whom", 20}, {"Why", 0}, {"By", 26}}};

    void Refresh();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameWaiting), visit(lblWaiting), visit(tblWaiting), visit(cmdDrop), visit(cmdDropPerson);
        visit(cmdDropOp), visit(lblDropped), visit(lblGone), visit(tblGone);
    }

  private:
    struct Waits {
        std::int16_t room = 0;
        bool ban = false;
        std::int64_t number = 0; ///< the line's, or the request's id
        std::string person;
        std::string op;
    };

    void AddLines(const RoomTruth& room, std::vector<std::string>& keys, std::vector<TableBox::Line>& lines);
    void AddBans(const RoomTruth& room, std::vector<std::string>& keys, std::vector<TableBox::Line>& lines);
    std::string Goes(const Departing& departing);
    void RefreshGone();
    const Waits* Chosen() const;
    void Chose();
    void Drop();
    void DropAll(const std::function<int(const std::string&)>& drop, const std::string& name);

    const Truth& truth;
    WatchClock& clock;
    const WatchHooks& hooks;
    LiveTable table{tblWaiting};
    LiveTable goneTable{tblGone};
    std::vector<Waits> waits; ///< as listed
};

} // namespace halyard
