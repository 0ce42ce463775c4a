#include "surface/panels/ChatsPanel.h"

#include "base/Text.h"
#include "commands/RoomByName.h"
#include "oscar/TillerSock.h"
#include "platform/Platform.h"
#include "state/Counters.h"
#include "state/Options.h"
#include "surface/panels/ConnectionPanel.h"

namespace halyard {

namespace {

constexpr std::size_t ChatDataFrame = 3;

enum Row {
    ServerIP,
    Exchange,
    Instance,
    Cookie,
    PeopleHere,
    Owner,
    Bans,
    MaxLength,
    MaxPeople,
    Detail,
    Index
};

std::optional<std::int16_t> NumberIn(const std::string& text) {
    return RoundToInt16(Val(Replace(text, " ", "")));
}

std::string OwnerText(const Chats& room) {
    if (room.IsOwner()) return "[You]";
    return room.GetOwner().empty() ? "[Unknown]" : room.GetOwner();
}

} // namespace

ChatsPanel::ChatsPanel(const SurfaceContext& context, const ConnectionPanel& connection)
    : context(context), connection(connection) {
    cmdJoinChat.Click = [this] { JoinClicked(); };
    cmdLeaveChat.Click = [this] { LeaveClicked(); };
    cmdCloseChat.Click = [this] { CloseClicked(); };
    lstChats.Click = [this] { RoomClicked(); };
}

bool ChatsPanel::Ready(const char* noName, const char* noExchange) const {
    const auto& boxes = context.options.Controls;
    const char* missing = !connection.SignedOn                 ? "Please sign on first!"
                          : Trim(boxes.txtChat.Text()).empty() ? noName
                          : Trim(boxes.txtEx.Text()).empty()   ? noExchange
                                                               : nullptr;
    if (missing) context.platform.Boxes().Note("Note", missing);
    return !missing;
}

void ChatsPanel::ShowStatus(const char* doing) {
    const auto& boxes = context.options.Controls;
    lblChatStatus.SetCaption(std::string(doing) + " chat '" + boxes.txtChat.Text() + "' in Exchange '" +
                             boxes.txtEx.Text() + "' Instance '" + boxes.txtInstance.Text() + "'...");
}

void ChatsPanel::JoinClicked() {
    if (!Ready("Please enter in a chat name to join!",
               "Please enter in an Exchange to join! Most common exchange numbers are 4 for private chats "
               "and 5 for public chats."))
        return;
    ShowStatus("Joining");
    const auto& boxes = context.options.Controls;
    const auto exchange = NumberIn(boxes.txtEx.Text());
    const auto instance = NumberIn(boxes.txtInstance.Text());
    if (exchange && instance) context.control.JoinChat(boxes.txtChat.Text(), *exchange, *instance);
}

void ChatsPanel::LeaveClicked() {
    if (!Ready("Please enter in a chat name to leave!",
               "Please enter the chats correct Exchange number so it can leave!"))
        return;
    ShowStatus("Leaving");
    const auto& boxes = context.options.Controls;
    if (auto exchange = NumberIn(boxes.txtEx.Text()))
        context.control.LeaveChat(-1, boxes.txtChat.Text(), *exchange);
}

void ChatsPanel::CloseClicked() {
    const auto& boxes = context.options.Controls;
    const auto name = NormalizeName(boxes.txtChat.Text());
    const auto exchange = NumberIn(boxes.txtEx.Text());
    for (const auto& room : context.control.Chat) {
        if (NormalizeName(room->ChatName) != name || room->Exchange != exchange) continue;
        const auto index = room->ChatIndex;
        if (!context.platform.Boxes().YesNo("Close Chat?", "Do you want to close chat '" +
                                                               boxes.txtChat.Text() + "', Exchange '" +
                                                               boxes.txtEx.Text() + "', Instance '" +
                                                               std::to_string(room->Instance) + "'?"))
            return;
        context.control.CloseChat(index);
        context.counters.UpdateStat("totalchatcloseattempt", true);
        return;
    }
    context.platform.Boxes().Error("Error", "You are not in chat '" + boxes.txtChat.Text() + "', Exchange '" +
                                                boxes.txtEx.Text() + "'!");
}

void ChatsPanel::RoomClicked() {
    if (lstChats.ListIndex() < 0) return;
    context.options.Controls.txtChat.SetText(lstChats.Text());
    if (auto room = RoomByName(context.control, lstChats.Text()))
        ShowChatData(context.control.GetChatIndex(room->ChatIndex));
}

void ChatsPanel::ShowChatData(std::int16_t position) {
    const auto room = context.control.Chat.Item(position);
    if (!room) return;
    shownRoom = room->ChatIndex;
    FrameMisc[ChatDataFrame].SetCaption("Chat Data: " + room->ChatName);
    const auto show = [this](Row row, const std::string& text) { lblChatData[row].SetCaption(text); };
    show(Bans, "[None]");
    for (const auto& list : context.control.EjectLists) {
        if (!list->IsOf(room->ChatName, room->Exchange)) continue;
        show(Bans, std::to_string(list->GetEjects().Count()));
        break;
    }
    show(ServerIP, room->ServerIP);
    show(Exchange, std::to_string(room->Exchange));
    show(Instance, std::to_string(room->Instance));
    show(Cookie, room->Cookie);
    show(PeopleHere, std::to_string(room->PeopleHere.Count()));
    show(Owner, OwnerText(*room));
    show(MaxLength, std::to_string(room->MaxMessageLength));
    show(MaxPeople, std::to_string(room->MaxPeople - 2) + " + 2");
    show(Detail, std::to_string(room->DetailLevel));
    show(Index, std::to_string(room->ChatIndex));
}

bool ChatsPanel::ForgetLostData() {
    if (shownRoom == 0) return false;
    const auto room = context.control.Room(shownRoom);
    if (room && FrameMisc[ChatDataFrame].Caption() == "Chat Data: " + room->ChatName) return false;
    shownRoom = 0;
    FrameMisc[ChatDataFrame].SetCaption("Chat Data");
    for (auto& label : lblChatData) label.SetCaption("[None]");
    return true;
}

void ChatsPanel::AddRoom(const std::string& strChatName) {
    int standing = 0;
    for (const auto& room : context.control.Chat) standing += SameName(room->ChatName, strChatName);
    if (LinesOf(strChatName) < standing) lstChats.AddItem(strChatName);
    ShowCount();
}

void ChatsPanel::RemoveRoom(const std::string& strChatName, std::int16_t intChatIndex) {
    int standing = 0; // a connection on which the room's information never came has no line
    for (const auto& room : context.control.Chat)
        standing +=
            room->ChatIndex != intChatIndex && !room->Cookie.empty() && SameName(room->ChatName, strChatName);
    for (int lines = LinesOf(strChatName); lines > standing; --lines)
        lstChats.RemoveItem(FindLine(lstChats, strChatName));
    ShowCount();
}

int ChatsPanel::LinesOf(const std::string& strChatName) const {
    int lines = 0;
    for (int line = 0; line < lstChats.ListCount(); ++line)
        lines += SameName(lstChats.List(line), strChatName);
    return lines;
}

void ChatsPanel::ClearRooms() {
    lstChats.Clear();
    ShowCount();
}

void ChatsPanel::DropLostRooms() {
    for (int line = lstChats.ListCount() - 1; line >= 0; --line)
        if (!RoomByName(context.control, lstChats.List(line))) lstChats.RemoveItem(line);
    ShowCount();
}

void ChatsPanel::ShowCount() {
    lblChatCount.SetCaption("Chats you are in: " + std::to_string(lstChats.ListCount()));
}

} // namespace halyard
