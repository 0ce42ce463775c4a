#include "state/AutoSave.h"

#include "platform/Platform.h"
#include "state/EjectListFile.h"
#include "state/Options.h"
#include "state/SettingsWriter.h"

namespace halyard {

namespace {

constexpr int MinutesBetweenSaves = 30;

} // namespace

AutoSave::AutoSave(Platform& platform, Options& options) : platform(platform), options(options) {
    options.tmrAutoSave->onTick = [this] { Tick(); };
}

void AutoSave::Tick() {
    if (++options.AutoSaveMinutes < MinutesBetweenSaves) return;
    auto& files = platform.FileSystem();
    const auto folder = files.ProgramFolder() + files.Separator();
    WriteSettings(platform, options, folder, options.AutoSaveFile);
    options.AutoSaveMinutes = 0;
    if (options.AutoSaveBansOn) WriteEjectLists(platform, options.Control(), folder, options.EjectListFile);
}

} // namespace halyard
