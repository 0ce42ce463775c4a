// From bytes to frames. A frame is never rejected: marker, channel and sequence of what is received are not
// looked at.

#include "oscar/TillerSock.h"
#include "oscar/wire/ModOscarFunctions.h"

#include <utility>

namespace halyard {

void TillerSock::DataArrival(int Index, std::size_t available) {
    if (available == 0) {
        Sock.SetBuffer(Index, {});
        return;
    }
    const CauseBreak apart(telling);
    auto generation = Sock.Generation(Index);
    auto data = Sock.TakeBuffer(Index);
    if (data.empty())
        data = Sock.ReadAll(Index);
    else
        data += Sock.ReadAll(Index);
    const auto size = data.size();

    std::size_t at = 0;
    std::size_t frameLength = 0;
    std::size_t unfinished = 0;
    while (at < size) {
        auto left = size - at;
        // A header that is cut short leaves the length of the frame before: fewer than 6 bytes at the start
        // of a read are dropped, fewer than 6 behind a whole frame are kept.
        if (left >= SocketTable::HeaderSize)
            if (auto word = StrToWord(std::string_view(data).substr(at + 4, 2)))
                frameLength = static_cast<std::size_t>(*word) + SocketTable::HeaderSize;
        if (frameLength == 0) break;
        if (left < frameLength) {
            unfinished = left;
            break;
        }
        at += frameLength;
        if (frameLength == size) { // the usual case: it came alone
            ParsePacket(Index, data);
            break;
        }
        if (Departs(Departure::OneServiceRequest) && Sock.Generation(Index) != generation) return;
        auto frame = data.substr(at - frameLength, frameLength);
        ParsePacket(Index, frame);
    }

    // The handlers may have given this index another connection: the old stream's rest must not run into it.
    if (Sock.Generation(Index) != generation) return;
    if (unfinished > 0) {
        data.erase(0, at);
        Sock.SetBuffer(Index, std::move(data));
    }
    Sock.SetLowWaterMark(Index,
                         unfinished < SocketTable::HeaderSize ? SocketTable::HeaderSize - unfinished : 1);
}

void TillerSock::SendPacket(int Index, int intChannel, const std::string& strPacket) {
    if (telling.frames) telling.frames->Frame(Index, true, intChannel, strPacket);
    Sock.SendPacket(Index, intChannel, strPacket);
}

} // namespace halyard
