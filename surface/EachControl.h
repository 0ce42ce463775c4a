#pragma once

// The walk over all controls of the main window: the theme paints by it, and the tests look by it.

#include "surface/frmMain.h"

namespace halyard {

template <typename Visit>
void frmMain::EachControl(Visit&& visit) {
    visit(form);
    for (auto& frame : FrameTabs) visit(frame);
    EachOptionControl(options.Controls, visit);
    for (auto& label : counters.lblStat) visit(label);
    visit(counters.lstActions);
    slide.EachControl(visit);
    rates.EachControl(visit);
    connection.EachControl(visit);
    chats.EachControl(visit);
    people.EachControl(visit);
    autobans.EachControl(visit);
    ejects.EachControl(visit);
    stats.EachControl(visit);
    other.EachControl(visit);
}

} // namespace halyard
