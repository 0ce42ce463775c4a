// Whatever a service may send: bytes cut anywhere, frames of every dispatch row, ends of connections and
// time, into a bot on line with a room and the whole command engine behind it.
//
// An input is a row of steps, a byte each and what belongs to it. The low two bits are the socket; the rest
// says what happens there (see Step). A bot with the ways of "Open server" meets those whose last byte ends
// in three set bits.

#include "fuzz/FuzzDesk.h"

namespace {

using namespace halyard;
using namespace halyard::fuzz;

constexpr const char* rows[] = {"00170007", "00170003", "00010003", "00010018", "00010007", "00040005",
                                "00090003", "00130006", "00010005", "00010001", "0001000B", "0001000D",
                                "00010012", "00020001", "00020006", "00040001", "00040007", "000E0006",
                                "000E0003", "000E0004", "000E0001", "000E0002", "000E0030", "0001000A",
                                "000D0009", "000D0001"};
constexpr int rowCount = static_cast<int>(std::size(rows));
/// The smallest interval of the window's own timers is 10 ms: more time a step would only make inputs slow.
constexpr int longestWait = 20000;
/// Inputs from one whole sign-on to the next: it takes longer than most inputs do.
constexpr unsigned inputsOfASignOn = 8;

void Step(FuzzDesk& desk, Input& input) {
    auto first = input.Byte();
    auto socket = first % 4;
    auto what = first / 4;
    if (what < rowCount)
        desk.Feed(socket, Snac(rows[what], input.Bytes(static_cast<std::size_t>(input.Word()))));
    else if (what == 58)
        desk.Feed(socket, Flap(input.Bytes(static_cast<std::size_t>(input.Word())), 1 + socket));
    else if (what == 59)
        desk.Feed(socket, Flap(input.Bytes(static_cast<std::size_t>(input.Word())), 4));
    else if (what == 60)
        desk.Wait(input.Word() % longestWait);
    else if (what == 61)
        desk.Fail(socket);
    else if (what == 62)
        desk.window.connection.Login();
    else
        desk.Feed(socket, input.Bytes(static_cast<std::size_t>(input.Word())));
}

const Ways& WaysFor(const std::uint8_t* data, std::size_t size) {
    static const Ways none;
    static const Ways open = FindNetwork(BuiltInNetworks(), "Open server")->ways;
    return size > 0 && data[size - 1] % 8 == 7 ? open : none;
}

/// What must hold in every state that bytes can bring about.
void CheckState(const FuzzDesk& desk) {
    const auto& timers = desk.window.counters.lstActions;
    Require(timers.ListCount() <= 20);
    for (const auto& room : desk.window.reconnection.RejoinQueue) Require(!room.empty());
    const auto& control = desk.control;
    Require(control.Sockets().UpperBound() < SocketTable::MaxSpeaking);
    Require(control.Timers().Count() <= 1 + 8 * SocketTable::MaxSpeaking);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto& desk = KeptDesk(data, size);
    desk.control.Switches().SetWays(WaysFor(data, size));
    static unsigned inputs = 0;
    if (inputs++ % inputsOfASignOn == 0)
        desk.SignOnAndJoin();
    else
        desk.BeInLobby();
    Require(desk.control.LoggedOn() && desk.control.Room(1)); // whatever a service did before
    desk.FillLists();
    for (Input input(data, size); !input.Empty();) Step(desk, input);
    desk.Wait(1000);
    CheckState(desk);
    return 0;
}
