#include "tests/commands/RoomScene.h"

#include "base/Latin1.h"
#include "base/Text.h"

namespace halyard {

static std::string Person(const std::string& name) { return MakeTLV("", 1, name) + std::string(4, '\0'); }

RoomScene::RoomScene() {
    SignOn();
    OpenRoom("Lobby");
    MakeOp("judge");
    Joins("judge");
    Joins("bob");
    transcript.clear();
    told.clear();
}

std::int16_t RoomScene::OpenRoom(const std::string& name, bool wait) {
    Wire::OpenRoom(name);
    if (wait) world.RunFor(2500);
    return static_cast<std::int16_t>(control.Sockets().UpperBound());
}

void RoomScene::Feed(int position, const std::string& snac, const std::string& body) {
    auto frame = Frame(snac + "000000000000" + Hex(body));
    control.ParsePacket(Room(position).ChatIndex, frame);
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
    user.empty() ? Joins(text) : Says(user, text);
    return Taken();
}

void RoomScene::Play(const std::string& user, const std::string& script) {
    for (const auto& step : Split(Replace(script, "; ", "\n"), "\n")) {
        auto sides = Split(Split(step + " ", " #")[0], "->");
        if (sides.size() < 2) continue;
        Lines expected;
        for (const auto& answer : Split(Trim(sides[1]), " | ")) {
            auto number = static_cast<int>(Val(Split(answer, " ")[0]));
            auto words = Split(answer, " ", 2);
            words.resize(2);
            auto marks = Split(words[1], "=");
            marks.resize(3);
            expected.push_back(number ? Send(number, marks[0], marks[1], marks[2]) : answer);
        }
        EXPECT_EQ(Answers(user, Trim(sides[0])), expected) << step;
    }
}

Lines RoomScene::Taken() {
    world.RunFor(30000);
    return std::exchange(transcript, {});
}

void RoomScene::MakeOp(const std::string& name, const std::string& strPerms) {
    options.Ops.Add(name);
    options.Perms.Add(strPerms, name);
}

std::string RoomScene::Send(int number, const std::string& p, const std::string& d, const std::string& s) {
    return ToUtf8(Replace(Replace(Replace(control.ChatSends.Item(number), "%p", p), "%d", d), "%s", s));
}

void RoomScene::Arrived(Peer& peer) {
    for (const auto& frame : peer.Take()) {
        auto asked = AskedOf(frame);
        auto words = Split(asked, " ", 3);
        if (frame.starts_with("2 000E0005")) {
            transcript.push_back(ToUtf8(asked));
        } else if (words.size() == 3) {
            transcript.push_back(words[0] + " " + words[2]);
            if (confirmBans) peer.Send("000E000100000000" + Hex(WordToStr(std::stoi(words[1]))) + "0000");
        }
    }
}

} // namespace halyard
