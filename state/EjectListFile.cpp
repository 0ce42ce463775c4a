#include "state/EjectListFile.h"

#include "base/Text.h"
#include "oscar/TillerSock.h"
#include "platform/Controls.h"
#include "platform/Platform.h"
#include "state/TextFile.h"

#include <unordered_map>

namespace halyard {

namespace {

constexpr const char* FirstLine = "Halyard File: Eject Lists";
constexpr std::int16_t Unbound = -1; // and not the 0 of a room without a list, on purpose

/// The lists made so far by what tells them apart.
using ListsByRoom = std::unordered_map<std::string, std::shared_ptr<EjectList>>;

void ClearAll(TillerSock& control, const EjectPanel& panel) {
    for (const auto& list : control.EjectLists) list->TellGone();
    control.EjectLists.Clear();
    for (const auto& room : control.Chat) room->EjectListIndex = Unbound;
    panel.lstEjected.Clear();
    panel.lblBanCount.SetCaption("Bans: [None]");
    panel.lstEjectListChats.Clear();
    panel.lblEjectListChat.SetCaption("Current Chat: [None]");
}

/// Makes the list live again if its room is joined.
void BindToRoom(TillerSock& control, EjectList& list) {
    int position = 0;
    for (const auto& room : control.Chat) {
        ++position;
        if (!list.IsOf(room->ChatName, room->Exchange)) continue;
        list.ChatIndex = room->ChatIndex;
        AssignInt16(list.ChatColIndex, position);
        AssignInt16(room->EjectListIndex, static_cast<long long>(control.EjectLists.Count()));
        return;
    }
}

std::shared_ptr<EjectList> NewList(TillerSock& control, const EjectPanel& panel, const std::string& name,
                                   std::int16_t exchange) {
    panel.lstEjectListChats.AddItem(name);
    auto list = std::make_shared<EjectList>(&control.Tell());
    list->ChatName = name;
    list->Exchange = exchange;
    control.EjectLists.Add(list);
    BindToRoom(control, *list);
    return list;
}

void ReadBan(TillerSock& control, const EjectPanel& panel, ListsByRoom& lists, std::string_view line) {
    auto fields = Split(line, ":", 4);
    if (fields.size() != 4) return;
    auto exchange = ToInt16(NormalizeName(fields[1])).value_or(0);
    auto& list = lists[NormalizeName(fields[0]) + ":" + std::to_string(exchange)];
    if (!list) list = NewList(control, panel, fields[0], exchange);
    list->AddEject(fields[3]);
}

} // namespace

bool WriteEjectLists(Platform& platform, TillerSock& control, const std::string& folderOrPath,
                     const std::string& fileName) {
    auto& files = platform.FileSystem();
    TextLines lines;
    lines.Add(FirstLine);
    lines.Add("");
    for (const auto& list : control.EjectLists) {
        auto head = list->ChatName + ":" + std::to_string(list->Exchange) + ":0:";
        for (const auto& name : list->GetEjects()) lines.Add(head, name);
    }
    const auto path = PathOf(files, folderOrPath, fileName);
    return TellWritten(control.Tell(), path, lines.Save(files, path));
}

void ReadEjectLists(Platform& platform, TillerSock& control, const EjectPanel& panel,
                    const std::string& folderOrPath, const std::string& fileName) {
    auto& files = platform.FileSystem();
    auto path = PathOf(files, folderOrPath, fileName);
    if (!files.Exists(path)) return;
    const auto text = files.Read(path, TextFileLimit).value_or(std::string());
    LineReader lines(text);
    if (lines.Next() != FirstLine)
        return platform.Boxes().Error("Error",
                                      "Eject List file not compatible with this version of Halyard!");
    const CauseScope load(control.Tell(), {.kind = CauseKind::Load, .entry = path});
    ClearAll(control, panel);
    ListsByRoom lists;
    while (auto line = lines.Next()) ReadBan(control, panel, lists, *line);
    control.KeepListsWithRooms();
}

} // namespace halyard
