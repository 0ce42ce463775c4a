#include "surface/bridge/guards/TrueShow.h"

#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "surface/frmMain.h"

namespace halyard {

TrueShow::TrueShow(frmMain& main) : main(main), timer(main.Context().platform.NewTimer()) {
    timer->SetInterval(1);
    timer->onTick = [this] { Show(); };
}

void TrueShow::Soon() {
    if (main.Control().Departs(Departure::ShownIsSo)) timer->SetEnabled(true);
}

void TrueShow::Show() {
    timer->SetEnabled(false);
    auto& control = main.Control();
    if (!control.Departs(Departure::ShownIsSo)) return;
    bool other = ShowCounts();
    other |= main.people.ForgetLostOp();
    other |= main.chats.ForgetLostData();
    other |= ShowSwitch();
    if (other) control.Guarded(Departure::ShownIsSo);
}

bool TrueShow::ShowCounts() {
    bool other = false;
    for (int index = 0; index < Counters::FirstKept; ++index) {
        const auto& label = main.counters.lblStat[static_cast<std::size_t>(index)];
        const auto before = label.Caption();
        main.counters.UpdateStat(Counters::StatName(index));
        other |= label.Caption() != before;
    }
    return other;
}

bool TrueShow::ShowSwitch() {
    const auto before = main.imComsWindow.cmdIMComs.Caption();
    main.imComsWindow.ShowSwitch();
    return main.imComsWindow.cmdIMComs.Caption() != before;
}

} // namespace halyard
