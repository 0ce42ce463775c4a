// Lines said in the room. The first byte of a line says by whom: an op with all permissions, one with few, an
// immune, a guest, the service, the operator's own box; digits let time pass instead.

#include "fuzz/FuzzDesk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halyard;
    auto& desk = fuzz::KeptDesk(data, size);
    desk.BeInLobby();
    desk.FillLists();
    static const char* const speakers[] = {"Boss", "Mate", "Friend", "Some Guest", "OnlineHost", "100200"};
    for (fuzz::Input input(data, size); !input.Empty();) {
        auto who = input.Byte();
        const std::string text(input.Line());
        if (who == '!')
            desk.window.Engine().InternalCommand(text);
        else if (who >= '0' && who <= '9')
            desk.Wait(1000 * (who - '0') + 500);
        else
            desk.window.Engine().ChatMessage(1, speakers[who % 6], text);
    }
    desk.Wait(12000);
    return 0;
}
