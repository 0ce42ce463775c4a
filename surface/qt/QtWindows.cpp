#include "surface/qt/QtWindows.h"

#include "surface/bridge/Bridge.h"
#include "surface/frmMain.h"
#include "surface/qt/MainWindow.h"
#include "surface/qt/bind/ByHand.h"
#include "surface/qt/views/Bridge.h"
#include "surface/qt/views/Windows.h"

#include <QTimer>

namespace halyard {

QtWindows::QtWindows() = default;
QtWindows::~QtWindows() = default;

template <typename Model>
void QtWindows::Offer(Model& model, std::unique_ptr<FormWindow> (*draw)(Model&)) {
    makers[&model.form] = [&model, draw] { return draw(model); };
}

void QtWindows::Draw(frmMain& bot, Bridge* bridge) {
    main = &bot;
    DrawnDesk() = &bot.Control().Tell();
    windows[&bot.form].drawn = std::make_unique<MainWindow>(bot, bridge);
    if (bridge) {
        Offer(bridge->window, DrawNetwork);
        Offer(bridge->ledgerWindow, DrawLedger);
        Offer(bridge->ledgerTerms, DrawLedgerTerms);
        Offer(bridge->guardsWindow, DrawGuards);
    }
    Offer(bot.ccomsWindow, DrawCcoms);
    Offer(bot.uniPermsWindow, DrawUniPerms);
    Offer(bot.locksWindow, DrawLocks);
    Offer(bot.chatSendsWindow, DrawChatSends);
    Offer(bot.imComsWindow, DrawIMComs);
    Offer(bot.creditsWindow, DrawCredits);
    Offer(bot.reconnection.Alert, DrawNotice);
}

void QtWindows::Close() {
    DrawnDesk() = nullptr;
    going.clear();
    windows.clear();
    makers.clear();
}

void QtWindows::Show(Form& window) {
    auto& entry = windows[&window];
    if (const auto maker = makers.find(&window); !entry.drawn && maker != makers.end())
        entry.drawn = maker->second();
    if (entry.drawn) entry.drawn->Present();
}

void QtWindows::ShowConsole(frmConsole& console) {
    auto& entry = windows[&console.form];
    for (const auto& open : main->consoles.ChatConsoles)
        if (open.get() == &console) entry.model = open;
    entry.drawn = DrawConsole(console);
    entry.drawn->Present();
}

void QtWindows::Unload(Form& window) {
    const auto found = windows.find(&window);
    if (found == windows.end() || !found->second.drawn) return;
    found->second.drawn->hide();
    if (!found->second.model) return; // kept for the next time
    // This may run inside the window's own handler.
    going.push_back(std::move(found->second));
    windows.erase(found);
    QTimer::singleShot(0, &keeper, [this] { going.clear(); });
}

void QtWindows::Focus(Form& window) {
    if (const auto found = windows.find(&window); found != windows.end() && found->second.drawn)
        found->second.drawn->Present();
}

} // namespace halyard
