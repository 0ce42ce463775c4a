#include "tests/commands/RoomScene.h"

#include "base/Latin1.h"
#include "base/Text.h"
#include "oscar/ModOscarFunctions.h"

namespace halyard {

namespace {

constexpr int Port = 5190;

std::string SnacFrame(const std::string& snac, const std::string& body) {
    auto data = HexToStr(snac) + std::string(6, '\0') + body;
    return "*" + ByteToStr(2) + WordToStr(0) + WordToStr(static_cast<long long>(data.size())) + data;
}

std::string Person(const std::string& name) { return MakeTLV("", 1, name) + std::string(4, '\0'); }

} // namespace

RoomScene::RoomScene() : server(service.NewServer()) {
    world.network.faults.latencyMin = world.network.faults.latencyMax = 0;
    server->onConnection = [this](std::unique_ptr<Socket> socket) {
        auto connection = connections.size();
        socket->onData = [this, connection](std::size_t) { Receive(connection); };
        connections.push_back(std::move(socket));
        buffers.emplace_back();
    };
    server->Listen("127.0.0.1", Port);
    control.DefaultChatSends();
    OpenRoom("Lobby");
    MakeOp("judge");
    Joins("judge");
    Joins("bob");
    transcript.clear();
    told.clear();
}

std::int16_t RoomScene::OpenRoom(const std::string& name, bool wait) {
    control.JoinChat(name, 4, 0);
    auto redirect = SnacFrame("00010005", MakeTLV("000D", 2, HexToStr("000E")) +
                                              MakeTLV("0005", 2, "127.0.0.1") + MakeTLV("0006", 2, "cookie"));
    control.ParsePacket(0, redirect);
    world.RunFor(10);
    int slot = control.Sockets().UpperBound();
    auto rates = SnacFrame("00010007", "");
    control.ParsePacket(slot, rates);
    auto information = SnacFrame("000E0002", std::string(8, '\0') + MakeTLV("006A", 2, name) +
                                                 MakeTLV("00D1", 2, WordToStr(2000)));
    control.ParsePacket(slot, information);
    if (wait) world.RunFor(2500);
    return static_cast<std::int16_t>(slot);
}

void RoomScene::Feed(int position, const std::string& snac, const std::string& body) {
    auto frame = SnacFrame(snac, body);
    control.ParsePacket(SlotAt(position), frame);
    world.RunReady();
}

void RoomScene::Joins(const std::string& user, int position) { Feed(position, "000E0003", Person(user)); }
void RoomScene::Leaves(const std::string& user, int position) { Feed(position, "000E0004", Person(user)); }

void RoomScene::Says(const std::string& user, const std::string& text, int position) {
    Feed(position, "000E0006",
         std::string(10, '\0') + MakeTLV("0003", 2, Person(user)) +
             MakeTLV("0005", 2, MakeTLV("0001", 2, text)));
}

Lines RoomScene::Answers(const std::string& user, const std::string& text) {
    transcript.clear();
    Says(user, text);
    return Taken();
}

Lines RoomScene::Taken() {
    world.RunFor(30000);
    return std::exchange(transcript, {});
}

void RoomScene::MakeOp(const std::string& name, const std::string& strPerms) {
    options.Ops.Add(name, name);
    options.Perms.Add(strPerms, name);
}

std::string RoomScene::Send(int number, const std::string& p, const std::string& d, const std::string& s) {
    return ToUtf8(Replace(Replace(Replace(control.ChatSends.Item(number), "%p", p), "%d", d), "%s", s));
}

void RoomScene::Receive(std::size_t connection) {
    auto& buffer = buffers[connection];
    buffer += connections[connection]->ReadAll();
    while (buffer.size() >= 6) {
        auto length = 6 + static_cast<std::size_t>(StrToWord(buffer.substr(4)).value_or(0));
        if (buffer.size() < length) return;
        auto frame = buffer.substr(0, length);
        buffer.erase(0, length);
        Note(connection, frame);
    }
}

void RoomScene::Note(std::size_t connection, const std::string& frame) {
    auto snac = StrToHex(Mid(frame, 7, 4));
    auto body = Mid(frame, 17);
    Collection<std::string> parts;
    if (snac == "000E0005") {
        body = Mid(body, 11);
        ParseTLVs(body, parts);
        auto message = parts.Item(6);
        parts.Clear();
        ParseTLVs(message, parts);
        transcript.push_back(ToUtf8(parts.Item(6)));
    } else if (snac == "000E0024" || snac == "000E0025") {
        ParseTLVs(body, parts);
        transcript.push_back((snac == "000E0024" ? "ban " : "unban ") + parts.Item(2));
        auto reply = SnacFrame("000E0001", std::string(2, '\0'));
        reply.replace(14, 2, Mid(frame, 15, 2)); // the request id
        if (confirmBans) connections[connection]->Send(reply);
    }
}

} // namespace halyard
