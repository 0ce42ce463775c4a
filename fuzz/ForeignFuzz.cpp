// A foreign settings file of any bytes, imported into a bot on line.

#include "fuzz/FuzzDesk.h"
#include "state/SettingsReader.h"
#include "state/SettingsWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halyard;
    auto& desk = fuzz::KeptDesk(data, size);
    SettingsTarget target{desk.platform, desk.window.options, desk.window.Engine().Lists(), [] {}};
    desk.platform.disk.Put("/program/any.txt", std::string_view(reinterpret_cast<const char*>(data), size));
    ImportForeignSettings(target, "/program/any.txt");
    fuzz::Require(WriteSettings(desk.platform, desk.window.options, "/program/own.hys"));
    return 0;
}
