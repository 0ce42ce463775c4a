#pragma once

// The bar below the menu's entries that opens what the bridge adds: one menu entry a window of its own. The
// bridge owns the one and says what each entry does.

#include "platform/Controls.h"

namespace halyard {

class BridgeBar {
  public:
    BridgeBar() {
        mnuBridge.Items = {&mnuNetwork, &mnuLedger, &mnuLedgerTerms, &mnuGuards};
        lblBridge.Click = [this] { mnuBridge.Popup(); };
    }

    Label lblBridge{"lblBridge", "Bridge"};
    Menu mnuBridge{"mnuBridge", "Bridge"};
    Menu mnuNetwork{"mnuNetwork", "Network\x85"};
    Menu mnuLedger{"mnuLedger", "Ledger\x85"};
    Menu mnuLedgerTerms{"mnuLedgerTerms", "Ledger Settings\x85"};
    Menu mnuGuards{"mnuGuards", "Guards\x85"};
};

} // namespace halyard
