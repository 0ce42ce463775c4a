// From frames to handlers: first by socket, then by channel, then by the SNAC's family and subtype. The two
// branches are not mirror images, and the channel tests come before the key test: a channel 1 or 4 frame
// whose body happens to match a key is dispatched twice.

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"
#include "oscar/wire/SnacFrame.h"

#include <string_view>

namespace halyard {

void TillerSock::ParsePacket(int Index, std::string& strPacket) {
    if (telling.frames && strPacket.size() >= SocketTable::HeaderSize)
        telling.frames->Frame(Index, false, static_cast<unsigned char>(strPacket[ChannelAt - 1]),
                              std::string_view(strPacket).substr(SocketTable::HeaderSize));
    if (telling.news && Departs(Departure::SilenceIsAskedAbout))
        telling.news->SomethingHeard(Index, SnacKey(Mid(strPacket, KeyAt, 4)) == "0001000F");
    if (Departs(Departure::OneServiceRequest))
        ParseWithOwnService(Index, strPacket);
    else
        Dispatch(Index, strPacket);
}

void TillerSock::Dispatch(int Index, std::string& strPacket) {
    if (Index == 0)
        ParseSignOnSocket(Index, strPacket);
    else
        ParseServiceSocket(Index, strPacket);
}

void TillerSock::ParseSignOnSocket(int Index, std::string& strPacket) {
    auto channel = Mid(strPacket, ChannelAt, 1);
    if (channel == ByteToStr(1)) HandleHello(Index);
    if (channel == ByteToStr(4)) {
        // While a migration is due, nothing is laid down for it either.
        if (signOn.LoggedOn &&
            (signOn.ServerPaused ? Departs(Departure::MainSignOffs) : Guarded(Departure::MainSignOffs)))
            return HandleMainSignOff(Index, Mid(strPacket, 7));
        if (signOn.LoggedOn && !signOn.ServerPaused) {
            if (telling.news)
                telling.news->ConnectionEnded(Index, "The service has ended the main connection.");
            HandleSignOff(Index);
            ResetAll();
            return;
        }
        // Only the auth server replies so: BOS hanging up before the log-in is done is no reply.
        if (signOn.OnAuthServer && !signOn.UseMD5Reply) HandleAuthReply(Mid(strPacket, 7), false);
    }

    auto key = SnacKey(Mid(strPacket, KeyAt, 4));
    if (key == "00170007") return HandleAuthKey(strPacket);
    if (key == "00170003") return HandleAuthReply(Mid(strPacket, BodyAt), true);
    if (key == "00010003") return HandleFamilies(strPacket);
    if (key == "00010018") return HandleVersions();
    if (key == "00010007") return HandleRates(strPacket);
    if (key == "00040005") return HandleICBMParameters(strPacket);
    if (key == "00090003") return FinishBringUp();
    if (key == "00130006") return HandleSSIList(strPacket);
    if (key == "00010005") return HandleRedirect(strPacket);
    if (key == "00010001") return HandleJoinError(strPacket);
    if (key == "0001000B") return HandlePause();
    if (key == "0001000D") {
        signOn.ServerPaused = false;
        StartNextRequest();
    }
    if (key == "0001000A") return HandleMainRateChange(strPacket);
    if (key == "00010012") return HandleMigration(strPacket);
    if (key == "00020001") return HandleLocationError(strPacket);
    if (key == "00020006") return HandleUserInfo(strPacket);
    if (key == "00040001") return HandleICBMError(strPacket);
    if (key == "00040007") return HandleInstantMessage(strPacket);
}

void TillerSock::ParseServiceSocket(int Index, std::string& strPacket) {
    auto channel = Mid(strPacket, ChannelAt, 1);
    if (channel == ByteToStr(1)) SendCookie(Index);
    if (channel == ByteToStr(4)) HandleSignOff(Index);

    auto key = SnacKey(Mid(strPacket, KeyAt, 4));
    if (key == "000E0006") return HandleChatMessage(Index, strPacket);
    if (key == "000E0003") return HandlePeople(Index, strPacket, true);
    if (key == "000E0004") return HandlePeople(Index, strPacket, false);
    if (key == "000E0001") return HandleBanReply(Index, strPacket);
    if (key == "000E0002") return HandleRoomInformation(Index, strPacket);
    if (key == "000E0030") return HandleOwner(Index, strPacket);
    if (key == "0001000A") return HandleRateChange(Index, strPacket);
    if (key == "00010003") return HandleServiceFamilies(Index, strPacket);
    if (key == "00010018") return HandleServiceVersions(Index, strPacket);
    if (key == "00010007") return HandleServiceRates(Index, strPacket);
    if (key == "000D0009") return HandleNavigation(Index, strPacket);
    if (key == "000D0001") return HandleNavigationError(strPacket);
}

} // namespace halyard
