#include "surface/panels/EjectListsPanel.h"

#include "base/Text.h"
#include "commands/RoomByName.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Counters.h"
#include "state/EjectListFile.h"

namespace halyard {

namespace {

constexpr const char* FileFilter = "Halyard Eject Lists (*.txt)|*.txt|";

} // namespace

EjectListsPanel::EjectListsPanel(const SurfaceContext& context) : context(context) {
    lstEjectListChats.Click = [this] { ListClicked(); };
    cmdClearList.Click = [this] { ClearClicked(); };
    cmdUnbanAll.Click = [this] { UnbanAllClicked(); };
    cmdSaveEjects.Click = [this] { SaveClicked(); };
    cmdLoadEjects.Click = [this] { LoadClicked(); };
}

std::string EjectListsPanel::ShownRoom() const {
    const auto& caption = lblEjectListChat.Caption();
    return Mid(caption, caption.find(':') + 2);
}

void EjectListsPanel::NewEjectList(const std::string& strChatName) { lstEjectListChats.AddItem(strChatName); }

void EjectListsPanel::AddedEject(const std::string& strUser, std::int16_t intChatColIndex) {
    const auto room = context.control.Chat.Item(intChatColIndex);
    if (!room) return;
    context.counters.UpdateStat("totalban");
    context.counters.AddAction("Ejected user in chat '" + room->ChatName + "': " + strUser);
    context.counters.UpdateStat("totalcurrentban");
    if (!SameName(ShownRoom(), room->ChatName)) return;
    const auto line = FindLine(lstEjectListChats, room->ChatName);
    if (line < 0) return;
    if (lstEjectListChats.ListIndex() == line)
        ListClicked();
    else
        lstEjectListChats.Select(line);
}

void EjectListsPanel::RemovedEject(const std::string& strUser, std::int16_t intChatColIndex) {
    const auto room = context.control.Chat.Item(intChatColIndex);
    if (!room) return;
    context.counters.UpdateStat("totalunbans");
    context.counters.AddAction("Unbanned user in chat '" + room->ChatName + "': " + strUser);
    context.counters.UpdateStat("totalcurrentban");
    if (!SameName(ShownRoom(), room->ChatName)) return;
    if (lstEjected.RemoveItem(FindLine(lstEjected, strUser)))
        lblBanCount.SetCaption("Bans: " + std::to_string(lstEjected.ListCount()));
}

void EjectListsPanel::ListClicked() {
    if (lstEjectListChats.ListIndex() < 0) return;
    const auto line = lstEjectListChats.Text();
    lstEjected.Clear();
    const auto ejects = context.control.GetEjectList(line, 0);
    for (const auto& name : ejects) lstEjected.AddItem(name);
    lblEjectListChat.SetCaption("Current Chat: " + line);
    lblBanCount.SetCaption("Bans: " + std::to_string(ejects.Count()));
}

void EjectListsPanel::ClearClicked() { // the list behind it stays
    lstEjected.Clear();
    lblBanCount.SetCaption("Bans: [None]");
}

void EjectListsPanel::UnbanAllClicked() {
    const auto room = RoomByName(context.control, lstEjectListChats.Text());
    if (!room) return;
    if (!context.platform.Boxes().YesNo("Unban All?", "Do you really want to unban all users from '" +
                                                          room->ChatName + "', Exchange '" +
                                                          std::to_string(room->Exchange) + "'?"))
        return;
    for (const auto& list : context.control.EjectLists) {
        if (!list->IsOf(room->ChatName, room->Exchange)) continue;
        list->ChatIndex = room->ChatIndex; // the list may be older than this stay in the room
        return list->UnbanAll(context.control);
    }
}

void EjectListsPanel::mnuUnbanUser() {
    if (lstEjected.ListIndex() < 0) return;
    if (const auto room = RoomByName(context.control, ShownRoom()))
        context.control.UnbanUser(lstEjected.Text(), BanKind::Unban, room->ChatIndex);
    else
        context.platform.Boxes().Error("Error", "Failed to unban user: No chat name matches the eject list. "
                                                "Please unban manually or re-load bans.");
}

void EjectListsPanel::mnuRemoveEjectedList() {
    const auto line = lstEjectListChats.ListIndex();
    if (line < 0) return;
    context.control.RemoveEjectList(lstEjectListChats.Text());
    lstEjectListChats.RemoveItem(line);
    ClearClicked();
    lblEjectListChat.SetCaption("Current Chat: [None]");
}

void EjectListsPanel::SaveClicked() {
    auto& platform = context.platform;
    if (auto path =
            platform.Boxes().Save("Save Eject Lists", FileFilter, platform.FileSystem().ProgramFolder()))
        WriteEjectLists(platform, context.control, *path);
}

void EjectListsPanel::LoadClicked() {
    auto& platform = context.platform;
    if (auto path =
            platform.Boxes().Open("Load Eject List", FileFilter, platform.FileSystem().ProgramFolder()))
        ReadEjectLists(platform, context.control,
                       EjectPanel{lstEjected, lblBanCount, lstEjectListChats, lblEjectListChat}, *path);
}

} // namespace halyard
