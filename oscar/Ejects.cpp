// The record of who is banned where: kept in step with what the service confirmed.

#include "base/Text.h"
#include "oscar/TillerSock.h"

namespace halyard {

std::int16_t TillerSock::PositionOfList(const Chats& room) const {
    std::int16_t position = 0;
    for (const auto& list : EjectLists) {
        ++position;
        if (list->IsOf(room.ChatName, room.Exchange)) return position;
    }
    return 0;
}

void TillerSock::KeepListsWithRooms() {
    for (const auto& room : Chat)
        if (room->EjectListIndex != PositionOfList(*room) &&
            Guarded(Departure::ListsStayWithRooms, room->ChatIndex))
            AttachEjectList(*room);
}

void TillerSock::AddEject(const std::string& strUser, std::int16_t intChatIndex) {
    auto room = Room(intChatIndex);
    if (!room) return;
    if (room->EjectListIndex == 0) AttachEjectList(*room);
    if (room->EjectListIndex != 0) {
        // After a list file was loaded the index may name no list: the name is then on none.
        if (auto list = EjectLists.Item(room->EjectListIndex)) list->AddEject(strUser);
    } else {
        auto list = std::make_shared<EjectList>(&telling);
        list->ChatName = room->ChatName;
        list->Exchange = room->Exchange;
        list->Instance = room->Instance;
        list->ChatIndex = room->ChatIndex;
        EjectLists.Add(list); // before the name, so that whoever hears of it finds it
        list->AddEject(strUser);
        room->EjectListIndex = static_cast<std::int16_t>(EjectLists.Count());
        events.NewEjectList(room->ChatName, intChatIndex);
    }
    events.AddedEject(strUser, intChatIndex, GetChatIndex(intChatIndex));
}

void TillerSock::RemoveEject(const std::string& strUser, std::int16_t intChatIndex) {
    auto room = Room(intChatIndex);
    if (!room) return;
    if (room->EjectListIndex != 0) {
        for (const auto& list : EjectLists) {
            if (!list->IsOf(room->ChatName, room->Exchange)) continue;
            list->RemoveEject(strUser);
            break;
        }
    }
    events.RemovedEject(strUser, intChatIndex, GetChatIndex(intChatIndex));
}

Collection<std::string> TillerSock::GetEjectList(const std::string& strChatName,
                                                 std::int16_t /*intChatIndex*/) const {
    for (const auto& list : EjectLists)
        if (SameName(list->ChatName, strChatName)) return list->GetEjects();
    return {};
}

void TillerSock::RemoveEjectList(const std::string& strChatName) {
    std::ptrdiff_t position = 0;
    for (const auto& list : EjectLists) {
        ++position;
        if (!SameName(list->ChatName, strChatName)) continue;
        if (auto room = Chat.Item(list->ChatColIndex)) room->EjectListIndex = 0;
        list->ClearEjects();
        EjectLists.Remove(position);
        KeepListsWithRooms();
        return;
    }
}

} // namespace halyard
