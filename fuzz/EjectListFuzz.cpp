// An eject list file of any bytes, loaded while the bot is in a room of which the file may hold a list.

#include "fuzz/FuzzDesk.h"
#include "state/EjectListFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace halyard;
    auto& desk = fuzz::KeptDesk(data, size);
    desk.SignOnAndJoin();
    auto& ejects = desk.window.ejects;
    const EjectPanel panel{ejects.lstEjected, ejects.lblBanCount, ejects.lstEjectListChats,
                           ejects.lblEjectListChat};
    desk.platform.disk.Put("/program/any.txt", std::string_view(reinterpret_cast<const char*>(data), size));
    ReadEjectLists(desk.platform, desk.control, panel, "/program/any.txt");
    fuzz::Require(WriteEjectLists(desk.platform, desk.control, "/program/again.txt"));
    desk.control.BanUser("rowdy", BanKind::Ban, 1);
    desk.Feed(1, fuzz::Snac("000E0001", HexToStr("0000")));
    desk.platform.dialogs.AnswerYes();
    if (ejects.lstEjectListChats.ListCount() > 0) ejects.lstEjectListChats.Select(0);
    ejects.cmdUnbanAll.Press();
    desk.control.RemoveEjectList("lobby");
    return 0;
}
