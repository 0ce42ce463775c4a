#include "tests/surface/DeskScene.h"

#include "base/Latin1.h"

namespace halyard {

Desk::Desk(std::uint64_t seed, PracticeOptions options) : world(seed), network(service, std::move(options)) {
    network.onEvent = [this](const PracticeEvent& event) {
        if (event.room.empty() && event.what != "signs on") return;
        const auto seconds = (event.milliseconds - started + 500) / 1000;
        transcript.push_back(std::to_string(seconds) + " " + event.who + " " + ToUtf8(event.what) +
                             (event.room.empty() || event.room == "lobby" ? "" : " in " + event.room));
    };
    EXPECT_TRUE(network.Start());
    window.Form_Load();
    boxes.txtSN.SetText("Harbour Bot");
    boxes.txtPW.SetText("secret");
}

void Desk::SignOn() {
    window.connection.cmdSignOn.Press();
    ASSERT_TRUE(world.RunUntil([this] { return window.connection.SignedOn; }, 5000));
}

void Desk::Join(const std::string& room) {
    boxes.txtChat.SetText(room);
    window.chats.cmdJoinChat.Press();
    ASSERT_TRUE(world.RunUntil([&] { return network.IsInRoom(room, "harbourbot"); }, 5000)) << room;
    Wait(3); // past the first seconds, in which those who are there do not count as newcomers
}

void Desk::MakeOp(const std::string& name) {
    Type(window.people.txtAddOp, name);
    boxes.lstOps.Select(boxes.lstOps.ListCount() - 1);
    window.people.cmdFullPerms.Press();
}

void Desk::Type(TextBox& box, const std::string& text) {
    box.SetText(text);
    box.KeyPress(EnterKey);
}

void Desk::Start() {
    transcript.clear();
    started = world.Now();
}

Lines Desk::Happened(const std::string& what) const {
    Lines found;
    std::copy_if(transcript.begin(), transcript.end(), std::back_inserter(found),
                 [&](const auto& line) { return line.find(what) != std::string::npos; });
    return found;
}

Lines Desk::Boxes() {
    Lines texts;
    for (const auto& box : machine.dialogs.shown) texts.push_back(box.title + ": " + box.text);
    machine.dialogs.shown.clear();
    return texts;
}

Lines Desk::Listed(const ListBox& list) const {
    Lines lines;
    for (int index = 0; index < list.ListCount(); ++index) lines.push_back(list.List(index));
    return lines;
}

} // namespace halyard
