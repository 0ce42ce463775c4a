#include "fuzz/FuzzDesk.h"

#include "state/Permissions.h"

#include <algorithm>
#include <sanitizer/lsan_interface.h>

namespace halyard::fuzz {

namespace {

constexpr int desksOfALeakCheck = 16;
constexpr std::int64_t longestWait = 120000;

int InputsOfADesk() {
    const char* asked = std::getenv("HALYARD_FUZZ_INPUTS");
    return asked ? std::max(std::atoi(asked), 1) : 64;
}

} // namespace

std::string Flap(std::string_view body, int channel) {
    return "*" + ByteToStr(channel) + WordToStr(0) + WordToStr(static_cast<long long>(body.size())) +
           std::string(body);
}

std::string Snac(const char* familyAndSubtype, std::string_view body) {
    return Flap(HexToStr(familyAndSubtype) + std::string(6, '\0') + std::string(body));
}

void FuzzDesk::Feed(int socket, std::string_view bytes) {
    if (auto found = platform.sockets.find(socket); found != platform.sockets.end())
        found->second->Feed(bytes);
}

void FuzzDesk::Fail(int socket) {
    if (auto found = platform.sockets.find(socket); found != platform.sockets.end()) found->second->Fail();
}

void FuzzDesk::Wait(std::int64_t milliseconds) {
    milliseconds = std::min(milliseconds, longestWait - waited);
    waited += milliseconds;
    world.RunFor(milliseconds);
}

void FuzzDesk::SignOnAndJoin() {
    control.Settings.LoginMD5 = false;
    control.Login("Harbour Bot", "secret", 5190, false, false, "127.0.0.1");
    Feed(0, Flap(MakeTLV("0005", 2, "127.0.0.1:5190") + MakeTLV("0006", 2, "cookie"), 4));
    Feed(0, Snac("00090003", ""));
    Feed(0, Snac("00010005", HexToStr("000D0002000E")));
    Feed(1, Snac("00010007", ""));
    Feed(1, Snac("000E0002", WordToStr(4) + MakeTLV("", 1, "4-0-lobby") + WordToStr(0) + ByteToStr(2) +
                                 WordToStr(2) + MakeTLV("006A", 2, "lobby") +
                                 MakeTLV("00D1", 2, WordToStr(2000))));
    for (const auto* name : {"Harbour Bot", "Boss", "Some Guest"}) Enter(name);
    Feed(1, Snac("000E0030", "Harbour Bot"));
    world.RunFor(3000);
}

void FuzzDesk::BeInLobby() {
    if (!control.LoggedOn() || !control.Room(1)) SignOnAndJoin();
}

void FuzzDesk::Enter(const std::string& name) {
    Feed(1, Snac("000E0003", MakeTLV("", 1, name) + HexToStr("00000000")));
}

void FuzzDesk::FillLists() {
    if (std::exchange(filled, true)) return;
    auto& options = window.options;
    auto& lists = window.Engine().Lists();
    lists.AddOp("boss", 0, FullPerms);
    lists.AddOp("mate", 0, "");
    lists.AddImm("friend", 0);
    lists.AddAB("spam*", 0);
    lists.AddAB("rowdy", 0);
    lists.AddAW("d*mn", 0);
    lists.AddAW("<a href", 0);
    options.SetWordBanOn(true);
    options.AutobanLevel = 1;
    options.BanAllICQs = options.CharBanOn = options.AutobanGhosts = options.IMComsOn = true;
    options.ReconnectOn = options.RejoinError = options.RejoinKicked = true;
    control.ChatSendOn = true;
    world.RunFor(12000); // past the pauses of what the lists said
}

FuzzDesk& KeptDesk(const std::uint8_t* data, std::size_t size) {
    static std::unique_ptr<FuzzDesk> desk;
    static const int inputs = InputsOfADesk();
    static int desks = 0;
    static int uses = 0;
    const bool first = uses++ % inputs == 0;
    if (first) {
        desk.reset();
        if (++desks % desksOfALeakCheck == 0) Require(__lsan_do_recoverable_leak_check() == 0);
        desk = std::make_unique<FuzzDesk>();
    }
    KeepOnRecord(std::string_view(reinterpret_cast<const char*>(data), size), first);
    desk->platform.dialogs.shown.clear();
    desk->waited = 0;
    return *desk;
}

} // namespace halyard::fuzz
