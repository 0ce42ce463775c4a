// A settings file of any bytes; what it leads to must soon come through the writer and the reader unchanged.

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
    // The first reading brings lists into their own order and cuts what no option takes. A name of one
    // character with a blank is long enough for one reading more: the blank goes there, and the name at the
    // next.
    std::string before, text;
    for (int round = 1; round <= 2 || (text != before && round <= 4); ++round) {
        if (round > 1) ReadSettings(target, "/program/again.hys");
        fuzz::Require(WriteSettings(desk.platform, options, "/program/again.hys"));
        before = std::exchange(text, desk.platform.disk.Contents("/program/again.hys"));
    }
    fuzz::Require(text == before);
    return 0;
}
