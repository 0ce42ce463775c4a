// Instant messages: as a service would send them, and as they reach the command engine. The first byte of an
// input chooses.

#include "fuzz/FuzzDesk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halyard;
    auto& desk = fuzz::KeptDesk(data, size);
    desk.BeInLobby();
    desk.FillLists();
    fuzz::Input input(data, size);
    if (input.Byte() % 2 == 0)
        desk.Feed(0, fuzz::Snac("00040007", input.Rest()));
    else
        while (!input.Empty()) desk.window.Engine().InstantMessage("Boss", std::string(input.Line()));
    desk.Wait(5000);
    return 0;
}
