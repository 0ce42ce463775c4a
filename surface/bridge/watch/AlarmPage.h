#pragma once

// The page Alarms of the window Watch: what rings now, and what rang, by the ledger where there is one. Who
// owns the window owns the one.

#include "platform/Controls.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace halyard {

class AlarmHost;
class LedgerHost;
enum class AlarmKind;

class AlarmPage {
  public:
    static constexpr int Rows = 100; ///< that are read at a time

    /// Both outlive it.
    AlarmPage(AlarmHost& alarms, LedgerHost& ledger);

    Frame FrameAlarms{"FrameAlarms", "Alarms"};
    Label lblRinging{"lblRinging", "Rings now"};
    ListBox lstRinging{"lstRinging"}; ///< "2026-11-23 15:05:09 CET  Room lost: lobby. It is closed."
    Button cmdDismiss{"cmdDismiss", "Dismiss"};
    Label lblRang{"lblRang", "Rang"};
    ListBox lstRang{"lstRang"}; ///< the newest first
    Button cmdOlder{"cmdOlder", "Older"};

    /// Shows what is; at once, and what the ledger has as soon as it is read. Cheap where nothing changed.
    void Fill();

    template <typename Visit>
    void EachControl(Visit&& visit) {
        visit(FrameAlarms), visit(lblRinging), visit(lstRinging), visit(cmdDismiss);
        visit(lblRang), visit(lstRang), visit(cmdOlder);
    }

  private:
    void FillRinging();
    void ReadRang();
    void ShowRemembered();
    void Dismiss();

    AlarmHost& alarms;
    LedgerHost& ledger;
    std::vector<std::pair<AlarmKind, std::string>> shown; ///< as lstRinging has them
    std::uint64_t version = ~std::uint64_t{0};            ///< of the book, when it was shown
    std::int64_t oldest = 0;                              ///< row
    std::shared_ptr<int> life = std::make_shared<int>();
};

} // namespace halyard
