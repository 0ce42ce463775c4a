#include "soak/TapMachine.h"

#include <algorithm>

namespace halyard {

class TapMachine::TapSocket : public SimSocket {
  public:
    explicit TapSocket(TapMachine& machine) : SimSocket(machine.network), machine(machine) {
        machine.sockets.push_back(this);
    }
    TapSocket(const TapSocket&) = delete;
    TapSocket& operator=(const TapSocket&) = delete;
    ~TapSocket() override {
        End();
        machine.sockets.erase(std::find(machine.sockets.begin(), machine.sockets.end(), this));
    }

    void Connect(const std::string& host, std::int32_t port) override {
        End();
        stream = ++machine.streams;
        SimSocket::Connect(host, port);
    }
    void Close() override {
        End();
        SimSocket::Close();
    }
    void Send(std::string_view bytes) override {
        if (machine.onSend) machine.onSend(bytes);
        if (machine.listener && State() == SocketState::Connected) machine.listener->Sent(stream, bytes);
        SimSocket::Send(bytes);
    }
    std::string ReadAll() override {
        auto bytes = SimSocket::ReadAll();
        pending += bytes;
        Show();
        if (machine.repeatReplies > 0 && pending.empty() && !lastReply.empty()) {
            --machine.repeatReplies;
            pending = lastReply;
            bytes += pending;
            Show();
        }
        lastReply.clear();
        return bytes;
    }

  private:
    static constexpr std::size_t headerSize = 6;

    std::size_t FrameSize(std::size_t at) const {
        auto high = static_cast<unsigned char>(pending[at + 4]);
        auto low = static_cast<unsigned char>(pending[at + 5]);
        return headerSize + 256U * high + low;
    }
    /// Shows what has come in whole frames, and takes it off.
    void Show() {
        std::size_t at = 0;
        while (pending.size() - at >= headerSize && pending.size() - at >= FrameSize(at)) {
            auto frame = pending.substr(at, FrameSize(at));
            at += frame.size();
            if (machine.listener) machine.listener->Received(stream, frame);
            if (frame.substr(headerSize, 4) == std::string("\0\x0E\0\1", 4)) lastReply = frame;
        }
        pending.erase(0, at);
    }
    void End() {
        pending.clear();
        if (stream != 0 && machine.listener) machine.listener->Ended(stream);
        stream = 0;
    }

    TapMachine& machine;
    std::uint64_t stream = 0;
    std::string pending;
    std::string lastReply; ///< to a ban request, of this reading
};

std::unique_ptr<Socket> TapMachine::NewSocket() { return std::make_unique<TapSocket>(*this); }

} // namespace halyard
