// The operator's program: the bot on the real machine, with its windows.

#include "platform/qt/QtPlatform.h"
#include "platform/qt/widgets/QtDesktop.h"
#include "platform/qt/widgets/QtDialogs.h"
#ifdef HALYARD_SQLITE
#include "platform/sqlite/SqliteDatabase.h"
#endif
#include "surface/bridge/Bridge.h"
#include "surface/frmMain.h"
#include "surface/qt/AppLook.h"
#include "surface/qt/QtWindows.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    halyard::SetLook(application);

    auto shell = std::make_unique<halyard::QtDesktop>();
    auto& desktop = *shell;
    halyard::QtPlatform platform(std::make_unique<halyard::QtDialogs>(), std::move(shell));
#ifdef HALYARD_SQLITE
    platform.databases = [](halyard::QtPlatform::Post post) {
        return std::make_unique<halyard::SqliteDatabase>(std::move(post));
    };
#endif
    halyard::QtWindows windows;
    halyard::frmMain bot(platform, &windows);
    halyard::Bridge bridge(bot);
    windows.Draw(bot, &bridge);
    desktop.onTrayEvent = [&bot](int message) { bot.Form_MouseMove(0, 0, message, 0); };
    bot.Form_Load();
    bridge.Start();
    windows.Show(bot.form);

    const int status = QApplication::exec();
    desktop.onTrayEvent = nullptr;
    windows.Close();
    return status;
}
