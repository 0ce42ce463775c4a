// Every connection beyond BOS: the redirect that names it (0001 0005), its service exchange (family 0001),
// and a room's opening up to its information (000E 0002).

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/SnacFrame.h"
#include "oscar/wire/TlvWalk.h"

#include <array>

namespace halyard {

void TillerSock::HandleRedirect(const std::string& strPacket) {
    auto free = Sock.TakeFree();
    if (free < 0) {
        ClearService();
        TellLost(NoSock, "Connection to a service has been lost: all " +
                             std::to_string(SocketTable::MaxSpeaking) + " sockets are in use.");
        return;
    }
    indices.FreeSockIndex = free;
    auto body = Mid(strPacket, IsFlagged(strPacket) ? BodyAt + 2 : BodyAt);
    ClearTLVData();
    ParseTLVs(body, TLVData);
    const auto ofBOS = service;
    ClearService();
    WalkTLVs(TLVData, [this](const std::string& type, const std::string& value) {
        if (type == "000D") {
            Sock.SetTag(indices.FreeSockIndex, FamilyTag(value) + "connecting");
            service.strServiceFamily = StrToHex(value);
        }
        if (type == "0005") {
            service.lngServicePort = DefaultPort;
            TakeAddress(value);
        }
        if (type == "0006") service.strServiceCookie = value;
        return true;
    });
    ClearTLVData();
    ConnectService(indices.FreeSockIndex);
    if (Departs(Departure::OneServiceRequest)) {
        service.wish = {request.strJoinName, request.intJoinExchange, request.intJoinInstance};
        ownService[indices.FreeSockIndex] = service;
        service = ofBOS;
    }
    indices.FreeSockIndex = 0;
}

void TillerSock::HandleServiceFamilies(int Index, const std::string& strPacket) {
    std::string versions;
    for (std::size_t at = BodyAt; at + 1 <= strPacket.size(); at += 2) {
        auto family = Mid(strPacket, at, 2);
        auto digits = StrToHex(family);
        versions += family + WordToStr(digits == "0001" ? 4 : digits == "0003" ? 3 : 1);
    }
    SendPacket(Index, 2, HexToStr("00010017000000000017") + versions);
}

void TillerSock::HandleServiceVersions(int Index, const std::string& strPacket) {
    service.ServiceVersions.Clear();
    for (std::size_t at = BodyAt; at + 3 <= strPacket.size(); at += 4) {
        service.ServiceVersions.Add(Mid(strPacket, at, 2));
        service.ServiceVersions.Add(Mid(strPacket, at + 2, 2));
    }
    SendPacket(Index, 2, HexToStr("00010006000000000006"));
}

void TillerSock::SendServiceReady(int Index, const std::string& head) {
    auto ready = HexToStr(head);
    for (std::ptrdiff_t item = 1; item < static_cast<std::ptrdiff_t>(service.ServiceVersions.Count());
         item += 2)
        ready += service.ServiceVersions.Item(item) + service.ServiceVersions.Item(item + 1) +
                 HexToStr("001008E5");
    SendPacket(Index, 2, ready);
}

void TillerSock::HandleServiceRates(int Index, const std::string& strPacket) {
    if (telling.news) telling.news->RateClasses(Index, Mid(strPacket, BodyAt));
    if (Departs(Departure::RateClassesAsTold)) rateTables[Index] = RateTable::Read(Mid(strPacket, BodyAt));
    SendPacket(Index, 2, HexToStr("0001000800000000000800010002000300040005"));
    auto tag = Sock.Tag(Index);
    if (tag == "[Chat_Navigation]connecting") {
        SendPacket(Index, 2, HexToStr("000D0002000000000002"));
        return;
    }
    if (tag == "[Chat]connecting") {
        OpenRoom(Index);
        return;
    }
    Sock.SetTag(Index, FamilyTag(HexToStr(service.strServiceFamily)) + "connected");
    SendServiceReady(Index, "00010002000000000001");
    if (service.strServiceFamily == "0007") indices.AdminIndex = Index;
    if (service.strServiceFamily == "0010") indices.IconIndex = Index;
    if (service.strServiceFamily == "0018") indices.EmailIndex = Index;
    ClearService();
}

void TillerSock::OpenRoom(int Index) {
    auto intChatIndex = static_cast<std::int16_t>(Index);
    if (Room(intChatIndex)) return; // a service that repeats itself gets no second room on this socket
    auto room = std::make_shared<Chats>(*this, sngBanPause);
    const bool own = Departs(Departure::OneServiceRequest);
    room->ChatName = own ? service.wish.strName : request.strJoinName;
    room->Exchange = own ? service.wish.intExchange : request.intJoinExchange;
    room->Instance = own ? service.wish.intInstance : request.intJoinInstance;
    room->ChatIndex = intChatIndex;
    room->SetAutoUnrate(window.GetAutoUnrate());
    room->SetUnratePause(window.GetUnratePause());
    Chat.Add(room);
    for (const char* tag : {"ban", "msg", "msg1", "msg2", "msg3", "firstjoin", "ping", "unrate"})
        CreateTimer(tag);
    AttachEjectList(*room);
    if (telling.news) telling.news->RoomOpened(intChatIndex, room->ChatName, room->Exchange);
    SendServiceReady(Index, "00010002000000000001");
    ClearService();
}

void TillerSock::HandleRoomInformation(int Index, const std::string& strPacket) {
    auto room = Room(static_cast<std::int16_t>(Index));
    if (!room) return;
    const auto openedAs = room->ChatName;
    auto rest = Mid(strPacket, 19);
    std::size_t cookieLength = rest.empty() ? 0 : static_cast<unsigned char>(rest[0]);
    room->Cookie = Mid(rest, 2, cookieLength);
    rest = Mid(rest, cookieLength + 3); // behind the cookie and the high byte of the instance
    if (!rest.empty()) room->Instance = static_cast<unsigned char>(rest[0]);
    rest = Mid(rest, 5); // the rest of the instance, the detail level, the TLV count
    ClearTLVData();
    ParseTLVs(rest, TLVData);
    WalkTLVs(TLVData, [&room](const std::string& type, const std::string& value) {
        if (type == "006A") room->ChatName = value;
        if (type == "00D2" && value.size() >= 2) room->MaxPeople = static_cast<unsigned char>(value[1]);
        if (type == "00D1")
            if (auto length = StrToWord(value)) AssignInt16(room->MaxMessageLength, *length);
        return true;
    });
    // Another room may have been asked for in between: this one was opened under that one's name then.
    if (!SameName(room->ChatName, openedAs)) AttachEjectList(*room);
    room->DetailLevel = 2; // whatever came
    room->ChatIndex = static_cast<std::int16_t>(Index);
    room->ServerIP = Sock.RemoteAddress(Index);
    Sock.SetTag(Index, "[Chat]connected");
    if (telling.news) telling.news->RoomEntered(room->ChatIndex, room->ChatName, room->Exchange);
    events.JoinedChat(room->ChatName, room->Exchange, room->Instance, room->ChatIndex, room->MaxPeople,
                      room->MaxMessageLength, room->ServerIP, room->DetailLevel);
    if (IsUnderWay(service.wish)) EndRequest();
}

} // namespace halyard
