#include "rooms/EjectList.h"

#include "base/News.h"
#include "base/Text.h"
#include "rooms/RoomHost.h"

namespace halyard {

void EjectList::AddEject(const std::string& strUser) {
    const auto name = NormalizeName(strUser);
    if (name.empty() || !Ejects.Add(name, name) || !telling || !telling->news) return;
    telling->news->ListAdded({ListName::Ejects, ChatName, Exchange}, name);
}

void EjectList::RemoveEject(const std::string& strUser) {
    const auto name = NormalizeName(strUser);
    if (!Ejects.Remove(std::string_view(name)) || !telling || !telling->news) return;
    telling->news->ListRemoved({ListName::Ejects, ChatName, Exchange}, name);
}

void EjectList::ClearEjects() {
    const bool had = Ejects.Count() > 0;
    Ejects.Clear();
    if (had && telling && telling->news) telling->news->ListCleared({ListName::Ejects, ChatName, Exchange});
}

void EjectList::TellGone() const {
    if (Ejects.Count() > 0 && telling && telling->news)
        telling->news->ListCleared({ListName::Ejects, ChatName, Exchange});
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
