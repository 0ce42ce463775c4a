#include "rooms/EjectList.h"

#include "base/Text.h"
#include "rooms/RoomHost.h"

namespace halyard {

void EjectList::AddEject(const std::string& strUser) {
    const auto name = NormalizeName(strUser);
    if (!name.empty()) Ejects.Add(name, name);
}

void EjectList::RemoveEject(const std::string& strUser) {
    Ejects.Remove(std::string_view(NormalizeName(strUser)));
}

void EjectList::UnbanAll(RoomHost& host) const {
    const auto names = Ejects; // lifting may change the list
    const auto intChatIndex = ChatIndex;
    for (const auto& name : names) host.LiftBan(name, intChatIndex);
}

bool EjectList::IsOf(const std::string& strChatName, std::int16_t intExchange) const {
    return Exchange == intExchange && SameName(ChatName, strChatName);
}

} // namespace halyard
