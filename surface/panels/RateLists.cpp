#include "surface/panels/RateLists.h"

#include "base/Text.h"
#include "commands/CommandEngine.h"
#include "commands/RoomByName.h"
#include "oscar/TillerSock.h"
#include "surface/look/ControlArrays.h"

namespace halyard {

namespace {

constexpr int Cleared = 5; // rate code
constexpr int BanClass = 1;
constexpr int TalkClass = 5;
constexpr int PauseOver = 112; // chatsends
constexpr int ReenabledByHand = 123;

bool IsType(int intType) { return intType == 0 || intType == 1; }

} // namespace

RateLists::RateLists(const SurfaceContext& context, Form& form) : context(context), form(form) {
    for (int type : {0, 1})
        lstRated[static_cast<std::size_t>(type)].DblClick = [this, type] { DoubleClicked(type); };
}

void RateLists::Rated(int intType, const std::string& strChatName) {
    if (!IsType(intType)) return;
    auto& list = lstRated[static_cast<std::size_t>(intType)];
    if (FindLine(list, strChatName) < 0) list.AddItem(NormalizeName(strChatName));
    if (form.Height() == PlainHeight) form.SetHeight(RatedHeight);
}

void RateLists::Unrated(int intType, const std::string& strChatName, std::int16_t intChatIndex) {
    if (!IsType(intType)) return;
    auto& list = lstRated[static_cast<std::size_t>(intType)];
    list.RemoveItem(FindLine(list, strChatName));
    const auto room = context.control.Room(intChatIndex);
    if (intType == 0 && room) // the room has said this once itself; it is said twice on purpose
        ResumeBanning(room->MinutesRated(), PauseOver, context.control.GetChatIndex(intChatIndex));
    LowerWindow();
}

void RateLists::ResumeBanning(const std::string& minutes, int number, std::int16_t position) {
    context.control.PrepareSends(minutes, "%p", context.control.ChatSends.Item(number),
                                 "Banning, Unbanning, Chat Closing", "banrated", "msg", position);
    context.engine.ScanAutobansOnUnrate(position);
}

void RateLists::LowerWindow() {
    if (Empty() && form.Height() == RatedHeight) form.SetHeight(PlainHeight);
}

void RateLists::ListRatedRooms() {
    for (const auto& room : context.control.Chat) {
        if (room->IsRated(BanClass))
            Rated(0, room->ChatName);
        else if (room->IsRated(TalkClass))
            Rated(1, room->ChatName);
    }
    if (Empty()) form.SetHeight(PlainHeight);
}

void RateLists::DoubleClicked(int intType) {
    auto& list = lstRated[static_cast<std::size_t>(intType)];
    if (list.ListIndex() < 0) return;
    if (auto room = RoomByName(context.control, list.Text())) {
        room->RateNotice(Cleared, intType == 0 ? BanClass : TalkClass);
        if (intType == 0) ResumeBanning("", ReenabledByHand, context.control.GetChatIndex(room->ChatIndex));
    }
    list.RemoveItem(list.ListIndex());
    LowerWindow();
}

} // namespace halyard
