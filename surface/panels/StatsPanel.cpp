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
constexpr std::size_t LetInNow = 0; // of the answers about time bans
constexpr std::size_t NeverLetIn = 2;

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
    cmdClearTimeBans.Click = [this] { ClearTimeBansClicked(); };
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

/// Whoever is banned for a time is banned for good once the record is gone: the guard asks for that.
void StatsPanel::ClearTimeBansClicked() {
    auto& control = context.control;
    if (control.TimeBans.Count() == 0 || !control.Guarded(Departure::TimeBansAreKept))
        return control.ClearTimeBans();
    const auto answer =
        context.platform.Boxes().Choose("Clear time bans?",
                                        std::to_string(control.TimeBans.Count()) +
                                            " time bans run. When are these people to be let in again?",
                                        {"Now", "At their time", "Not at all"});
    if (answer == LetInNow) control.EndTimeBans();
    if (answer == NeverLetIn) control.ClearTimeBans();
}

void StatsPanel::ClearQueues(int intType) {
    for (const auto& room : context.control.Chat) room->ClearQueue(intType);
}

} // namespace halyard
