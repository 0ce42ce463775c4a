#include "oscar/SocketTable.h"

#include "oscar/wire/ModOscarFunctions.h"
#include "platform/Platform.h"

#include <utility>

namespace halyard {

SocketTable::SocketTable(Platform& platform) : platform(platform) { Load(); }

int SocketTable::Load() {
    int Index = static_cast<int>(Sock.size());
    Sock.push_back({platform.NewSocket(), {}});
    Sock.back().socket->onData = [this, Index](std::size_t available) {
        if (onData) onData(Index, available);
    };
    Sock.back().socket->onError = [this, Index](int number, const std::string& description) {
        if (onError) onError(Index, number, description);
    };
    if (generations.size() < Sock.size()) generations.resize(Sock.size());
    return Index;
}

int SocketTable::TakeFree() {
    int free = 0;
    for (int Index = 0; Index <= UpperBound(); ++Index)
        if (!IsConnected(Index)) free = Index;
    if (free == 0) return UpperBound() + 1 < MaxSpeaking ? Load() : -1;
    Close(free);
    return free;
}

void SocketTable::CloseSock(int Index) {
    if (!Has(Index)) return;
    SetTag(Index, "");
    Close(Index);
    if (Index == UpperBound() && Index > 0) Sock.pop_back();
}

void SocketTable::CloseAllSocks() {
    for (int Index = 0; Index <= UpperBound(); ++Index) Close(Index);
    Sock.resize(1);
}

void SocketTable::Connect(int Index, const std::string& host, std::int32_t port,
                          const std::optional<TlsTerms>& tls) {
    if (!Has(Index)) return;
    Renew(Index);
    auto& socket = *Sock[static_cast<std::size_t>(Index)].socket;
    socket.SetTls(tls);
    socket.Connect(host, port);
    socket.SetLowWaterMark(HeaderSize);
}

void SocketTable::Close(int Index) {
    if (!Has(Index)) return;
    Renew(Index);
    Sock[static_cast<std::size_t>(Index)].socket->Close();
}

void SocketTable::Renew(int Index) {
    ++generations[static_cast<std::size_t>(Index)];
    SetBuffer(Index, {});
}

bool SocketTable::IsConnected(int Index) const {
    return Has(Index) && Sock[static_cast<std::size_t>(Index)].socket->State() == SocketState::Connected;
}

std::string SocketTable::RemoteAddress(int Index) const {
    return Has(Index) ? Sock[static_cast<std::size_t>(Index)].socket->RemoteAddress() : std::string();
}

std::string SocketTable::Tag(int Index) const {
    return Has(Index) ? Sock[static_cast<std::size_t>(Index)].Tag : std::string();
}

void SocketTable::SetTag(int Index, const std::string& tag) {
    if (!Has(Index) || Tag(Index) == tag) return;
    Sock[static_cast<std::size_t>(Index)].Tag = tag;
    if (onTag) onTag(Index, tag);
}

std::string SocketTable::ReadAll(int Index) {
    return Has(Index) ? Sock[static_cast<std::size_t>(Index)].socket->ReadAll() : std::string();
}

void SocketTable::SendPacket(int Index, int intChannel, std::string_view strPacket) {
    if (Index < 0 || static_cast<std::size_t>(Index) >= SockSequence.size()) return;
    auto& sequence = SockSequence[static_cast<std::size_t>(Index)];
    if (sequence > 65535) sequence = 0;
    auto length = WordToStr(static_cast<long long>(strPacket.size()));
    auto frame = "*" + ByteToStr(intChannel) + WordToStr(sequence) + length;
    ++sequence;
    if (length.empty() || !Has(Index)) return;
    Sock[static_cast<std::size_t>(Index)].socket->Send(frame.append(strPacket));
}

void SocketTable::SetLowWaterMark(int Index, std::size_t bytes) {
    if (Has(Index)) Sock[static_cast<std::size_t>(Index)].socket->SetLowWaterMark(bytes);
}

std::string SocketTable::TakeBuffer(int Index) {
    if (Index < 0 || static_cast<std::size_t>(Index) >= SockBuffer.size()) return {};
    return std::exchange(SockBuffer[static_cast<std::size_t>(Index)], {});
}

void SocketTable::SetBuffer(int Index, std::string bytes) {
    if (Index >= 0 && static_cast<std::size_t>(Index) < SockBuffer.size())
        SockBuffer[static_cast<std::size_t>(Index)] = std::move(bytes);
}

std::uint64_t SocketTable::Generation(int Index) const {
    return Index >= 0 && static_cast<std::size_t>(Index) < generations.size()
               ? generations[static_cast<std::size_t>(Index)]
               : 0;
}

} // namespace halyard
