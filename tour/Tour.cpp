#include "tour/Tour.h"

#include "base/Latin1.h"
#include "rooms/EjectList.h"

#include <array>
#include <cstdio>

namespace halyard {

namespace {

constexpr const char* RoomName = "Halyard Den";
constexpr int StepLength = 100;              // ms
constexpr std::int64_t SceneLength = 93000;  // ms from the bot's entry: the time ban is over by then
constexpr std::int64_t LongestTour = 117000; // ms

constexpr const char* InAlready = "Join chat failed, you are already in this chat.";

struct Expected {
    const char* name;
    bool keptOut;
};
constexpr std::array<Expected, 5> Expectations{{
    {"bob", true},        // an op's ban
    {"bulkspam77", true}, // an autoban with an asterisk
    {"chatty", true},     // an autoword
    {"heckler", false},   // kicked, then banned for a minute
    {"grandma", false},   // immune, and never gone
}};

} // namespace

Tour::Tour(Platform& platform, std::int32_t port)
    : platform(platform), port(port), window(platform), timer(platform.NewTimer()),
      started(platform.Milliseconds()) {
    window.counters.lstActions.onInserted = [this](int index) {
        Print("(bot)", window.counters.lstActions.List(index));
    };
    timer->SetInterval(StepLength);
    timer->onTick = [this] { Step(); };
    timer->SetEnabled(true);
    Begin();
}

void Tour::Begin() {
    window.Form_Load();
    window.other.cmdLoadSettings.Press();
    auto& controls = window.options.Controls;
    controls.txtPW.SetText("practice");
    controls.txtPort.SetText(std::to_string(port));
    window.connection.cmdSignOn.Press();
}

void Tour::Step() {
    if (stage != Stage::Done && Elapsed() > LongestTour) return Fail("the tour took too long");
    if (stage == Stage::SigningOn && window.connection.SignedOn) Join();
    if (stage == Stage::Joining && window.chats.lstChats.ListCount() == 1) LookOn();
    if (stage == Stage::Playing && platform.Milliseconds() - joined >= SceneLength) {
        stage = Stage::Knocking;
        std::printf("\nWho may come in now? Visitors try the door under these names:\n");
        Knock();
    }
}

void Tour::Join() {
    stage = Stage::Joining;
    window.chats.cmdJoinChat.Press();
}

void Tour::LookOn() {
    stage = Stage::Playing;
    joined = platform.Milliseconds();
    onlooker = std::make_unique<Visitor>(platform, port, "onlooker", RoomName);
    onlooker->onSeen = [this](const std::string& who, const std::string& what) { Print(who, what); };
}

void Tour::Knock() {
    if (knocked == Expectations.size()) return Report();
    const auto& expected = Expectations[knocked++];
    visitor = std::make_unique<Visitor>(platform, port, expected.name, RoomName);
    visitor->onAnswer = [this, expected](bool letIn, const std::string& why) {
        bool right = (letIn || why == InAlready) != expected.keptOut;
        asExpected = asExpected && right;
        std::printf("  %-12s %s%s\n", expected.name, ToUtf8(why).c_str(),
                    right ? "" : "   <-- NOT AS EXPECTED");
        // The visitor is still telling: the next one takes its place in a fresh turn of the loop.
        timer->onTick = [this] {
            timer->onTick = [this] { Step(); };
            Knock();
        };
    };
}

void Tour::Report() {
    std::printf("\nThe bot's eject list of %s:\n", RoomName);
    auto names = window.Control().GetEjectList(RoomName, 0);
    for (const auto& name : names) std::printf("  %s\n", ToUtf8(name).c_str());
    std::size_t wanted = 0;
    for (const auto& expected : Expectations) {
        if (expected.keptOut) ++wanted;
        if (expected.keptOut == names.Item(expected.name).empty()) asExpected = false;
    }
    if (names.Count() != wanted) asExpected = false;
    window.ejects.cmdSaveEjects.Press();
    window.connection.cmdSignOff.Press();
    std::printf(asExpected ? "\nAll bans really happened on the service's side.\n"
                           : "\nNot every ban is as the scene has it.\n");
    Finish(asExpected ? 0 : 1);
}

void Tour::Fail(const std::string& why) {
    std::printf("\n%s: %s\n", why.c_str(), ToUtf8(window.connection.lblConnectionInfo.Caption()).c_str());
    Finish(1);
}

void Tour::Finish(int status) {
    stage = Stage::Done;
    timer->SetEnabled(false);
    if (onFinished) onFinished(status);
}

void Tour::Print(const std::string& who, const std::string& what) const {
    auto seconds = Elapsed() / 1000;
    std::printf("%02d:%02d  %-12s %s\n", static_cast<int>(seconds / 60), static_cast<int>(seconds % 60),
                ToUtf8(who).c_str(), ToUtf8(what).c_str());
    std::fflush(stdout);
}

} // namespace halyard
