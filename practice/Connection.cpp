#include "practice/Connection.h"

#include "oscar/wire/ModOscarFunctions.h"
#include "practice/Wire.h"

#include <utility>

namespace halyard {

namespace {
constexpr std::size_t headLength = 6;
}

PracticeConnection::PracticeConnection(std::unique_ptr<Socket> socket, const RateClasses& classes,
                                       std::int64_t now)
    : rates(classes, now), since(now), socket(std::move(socket)) {}

void PracticeConnection::Start() {
    socket->onData = [this](std::size_t) { Receive(); };
    socket->onError = [this](int, const std::string&) { End(""); };
    Send(1, WordToStr(0) + WordToStr(1));
}

void PracticeConnection::Send(int channel, std::string_view body) {
    if (!open || silent || body.size() > 65535) return;
    socket->Send("*" + ByteToStr(channel) + WordToStr(sequence) +
                 WordToStr(static_cast<long long>(body.size())) + std::string(body));
    sequence = (sequence + 1) % 65536;
}

void PracticeConnection::SendSnac(int family, int subtype, std::uint32_t id, std::string_view body) {
    Send(2, SnacBytes(family, subtype, id, body));
}

void PracticeConnection::Close() {
    if (!open) return;
    open = false;
    socket->Close();
}

void PracticeConnection::SignOff(std::string_view body) {
    Send(4, body);
    Close();
}

void PracticeConnection::End(const std::string& fault) {
    if (!open) return;
    Close();
    if (onEnd) onEnd(*this, fault);
}

void PracticeConnection::Receive() {
    pending += socket->ReadAll();
    std::size_t at = 0;
    while (open && TakeFrame(at)) {
    }
    pending.erase(0, at);
}

bool PracticeConnection::TakeFrame(std::size_t& at) {
    auto rest = std::string_view(pending).substr(at);
    if (rest.empty()) return false;
    if (rest[0] != '*') return End("sent what is no frame"), false;
    if (rest.size() < headLength) return false;
    Reader head(rest.substr(1));
    auto channel = head.Byte();
    head.Word(); // the sequence number: clients start it where they like
    auto length = static_cast<std::size_t>(head.Word());
    if (channel < 1 || channel > 5) return End("sent a frame of an unknown channel"), false;
    if (length > longestFrame) return End("sent an oversized frame"), false;
    if (rest.size() < headLength + length) return false;
    auto body = std::string(rest.substr(headLength, length));
    at += headLength + length;
    if (!silent && onFrame && !onFrame(*this, channel, body)) End("sent a frame that makes no sense");
    return true;
}

} // namespace halyard
