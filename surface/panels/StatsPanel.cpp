#include "surface/panels/StatsPanel.h"

#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Counters.h"
#include "state/TextFile.h"
#include "surface/panels/ConnectionPanel.h"

namespace halyard {

namespace {

constexpr int StatsInterval = 31000; // ms
constexpr int FirstCaption = 20;     // number of the first counter's caption
constexpr int BanQueueType = 0;
constexpr int MsgQueueType = 1;

} // namespace

StatsPanel::StatsPanel(const SurfaceContext& context, const ConnectionPanel& connection)
    : File(context.platform, context.counters), tmrStats(context.platform.NewTimer()), context(context),
      connection(connection) {
    for (int index = 0; index < Counters::StatCount; ++index)
        lblMisc.emplace_back(NumberedName("lblMisc", FirstCaption + index), Counters::StatCaption(index));
    cmdClearStats.Click = [this] { ClearStatsClicked(); };
    cmdClearActions.Click = [this] { this->context.counters.lstActions.Clear(); };
    cmdClearMsgQueue.Click = [this] { ClearQueues(MsgQueueType); };
    cmdClearBanQueue.Click = [this] { ClearQueues(BanQueueType); };
    cmdClearTimeBans.Click = [this] { this->context.control.ClearTimeBans(); };
    tmrStats->SetInterval(StatsInterval);
    tmrStats->onTick = [this] { StatsTick(); };
    tmrStats->SetEnabled(true);
}

void StatsPanel::StatsTick() {
    const bool done = File.Write();
    if (!File.Path().empty()) TellWritten(context.control.Tell(), File.Path(), done);
    if (!connection.SignedOn) return;
    SendProfile(context);
    context.control.SetPrivacy(1);
}

void StatsPanel::ClearStatsClicked() {
    if (context.platform.Boxes().YesNo("Clear stats?", "Do you really want to clear all statistics?"))
        context.counters.ClearStats();
}

void StatsPanel::ClearQueues(int intType) {
    for (const auto& room : context.control.Chat) room->ClearQueue(intType);
}

} // namespace halyard
