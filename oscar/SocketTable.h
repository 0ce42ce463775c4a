#pragma once

// The array Sock of connections: an index is a connection's identity everywhere. Element 0 always exists.
// Each connection has a state text, and per index there is a sequence number and what was received of an
// unfinished frame.

#include "platform/Socket.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace halyard {

class Platform;

class SocketTable {
  public:
    static constexpr std::size_t HeaderSize = 6; ///< of a FLAP frame
    static constexpr int MaxSpeaking = 51; ///< indices with a sequence number; the others could never send

    explicit SocketTable(Platform& platform);

    std::function<void(int Index, std::size_t available)> onData;
    std::function<void(int Index, int number, const std::string& description)> onError;
    std::function<void(int Index, const std::string& tag)> onTag; ///< another one than before

    int UpperBound() const { return static_cast<int>(Sock.size()) - 1; }
    bool Has(int Index) const { return Index >= 0 && Index <= UpperBound(); }
    /// Adds an element above the highest; its index.
    int Load();
    /// The last element, from the lowest up, that isn't connected, closed for reuse; a new one when all are
    /// connected; -1 when a new one would have no sequence number.
    int TakeFree();
    /// An index at the top is closed and unloaded (element 0 stays), another loses its tag and is closed for
    /// reuse.
    void CloseSock(int Index);
    /// Closes and unloads all but element 0, which is only closed.
    void CloseAllSocks();

    /// Starts a fresh stream: nothing of an earlier connection on this index is kept but its sequence number.
    /// Without terms it goes plain.
    void Connect(int Index, const std::string& host, std::int32_t port,
                 const std::optional<TlsTerms>& tls = {});
    void Close(int Index);
    bool IsConnected(int Index) const;
    std::string RemoteAddress(int Index) const;
    /// An empty text for an index that isn't there.
    std::string Tag(int Index) const;
    void SetTag(int Index, const std::string& tag);

    std::string ReadAll(int Index);
    /// Frames `strPacket` (marker, channel, sequence, length) and sends it. The sequence number is used up
    /// even when nothing is connected; a body above 65535 bytes can't be framed and goes nowhere.
    void SendPacket(int Index, int intChannel, std::string_view strPacket);
    void SetLowWaterMark(int Index, std::size_t bytes);

    /// What was received of an unfinished frame. Indices 0 to 30 have a buffer, the others lose theirs.
    std::string TakeBuffer(int Index);
    void SetBuffer(int Index, std::string bytes);
    /// Changes whenever the index gets another connection or loses it.
    std::uint64_t Generation(int Index) const;

  private:
    struct Element {
        std::unique_ptr<Socket> socket;
        std::string Tag;
    };
    void Renew(int Index);

    Platform& platform;
    std::vector<Element> Sock;
    std::array<std::int32_t, MaxSpeaking> SockSequence{}; // per index, never reset
    std::array<std::string, 31> SockBuffer;
    std::vector<std::uint64_t> generations;
};

} // namespace halyard
