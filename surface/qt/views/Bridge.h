#pragma once

// What the bridge adds to the main window, and its own windows.

#include <memory>

class QWidget;

namespace halyard {

class FootLine;
class FormWindow;
class GuardsWindow;
class LedgerTermsWindow;
class LedgerWindow;
class NetworkRow;
class NetworkWindow;

QWidget* DrawNetworkRow(NetworkRow& row);
QWidget* DrawFootLine(FootLine& foot);
std::unique_ptr<FormWindow> DrawNetwork(NetworkWindow& model);
std::unique_ptr<FormWindow> DrawLedger(LedgerWindow& model);
std::unique_ptr<FormWindow> DrawLedgerTerms(LedgerTermsWindow& model);
std::unique_ptr<FormWindow> DrawGuards(GuardsWindow& model);

} // namespace halyard
