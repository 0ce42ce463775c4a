// A settings file of any bytes; what it leads to must go through the writer and the reader again unchanged.

#include "fuzz/FuzzDesk.h"
#include "state/SettingsReader.h"
#include "state/SettingsWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halyard;
    auto& desk = fuzz::KeptDesk(data, size);
    auto& options = desk.window.options;
    SettingsTarget target{desk.platform, options, desk.window.Engine().Lists(), [] {}};
    desk.platform.disk.Put("/program/any.hys", std::string_view(reinterpret_cast<const char*>(data), size));
    ReadSettings(target, "/program/any.hys");
    std::string before;
    for (int round = 1; round <= 3; ++round) {
        if (round > 1) ReadSettings(target, "/program/again.hys");
        fuzz::Require(WriteSettings(desk.platform, options, "/program/again.hys"));
        auto text = desk.platform.disk.Contents("/program/again.hys");
        // The first reading brings lists into their own order and cuts what no option takes.
        if (round == 3) fuzz::Require(text == before);
        before = text;
    }
    return 0;
}
