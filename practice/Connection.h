#pragma once

// One client's connection to the practice network: cuts what arrives into frames, frames what leaves, and
// remembers what the connection is for. Frames that cannot be right end it, and nothing else suffers. Owned
// by the world.

#include "platform/Socket.h"
#include "practice/service/RateClasses.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace halyard {

struct Room;

/// What a connection was opened for, by the family that stands for it.
enum class Service {
    None = 0,
    Bos = 0x0001,
    Admin = 0x0007,
    Navigation = 0x000D,
    Chat = 0x000E,
    Icons = 0x0010,
    Email = 0x0018
};

class PracticeConnection {
  public:
    /// Longer frames than this are taken for nonsense, in bytes behind the six of the header.
    static constexpr std::size_t longestFrame = 8192;

    PracticeConnection(std::unique_ptr<Socket> socket, const RateClasses& classes, std::int64_t now);

    /// A whole frame came. False says that it made no sense: the connection is closed.
    std::function<bool(PracticeConnection&, int channel, std::string_view body)> onFrame;
    /// The peer ended the connection, or, with a `fault` to tell of, sent what makes no sense. Runs once; not
    /// for ends that the network itself wanted.
    std::function<void(PracticeConnection&, const std::string& fault)> onEnd;

    /// Takes over the socket's handlers and says hello.
    void Start();
    void Send(int channel, std::string_view body);
    void SendSnac(int family, int subtype, std::uint32_t id, std::string_view body);
    /// Ends it without a word, after what is queued.
    void Close();
    /// Ends it with a channel 4 frame.
    void SignOff(std::string_view body = {});
    bool Open() const { return open; }
    const Socket& Raw() const { return *socket; }

    Service service = Service::None;
    std::string name;       ///< of the person, as given at sign-on; empty until known
    std::string authKey;    ///< what the hashed sign-on was asked to hash
    std::string roomCookie; ///< of a chat connection: the room it was opened for
    Room* room = nullptr;   ///< the room it is in; null before 0001 0002
    bool ready = false;     ///< 0001 0002 came
    bool migrating = false; ///< told to come back under a new cookie
    bool silent = false;    ///< stands, passes over what comes, and sends nothing
    int genericVersion = 1; ///< the client's version of family 0001
    RateMeter rates;
    const std::int64_t since; ///< ms

  private:
    void Receive();
    bool TakeFrame(std::size_t& at);
    void End(const std::string& fault);

    std::unique_ptr<Socket> socket;
    std::string pending; ///< less than one frame
    int sequence = 0;
    bool open = true;
};

} // namespace halyard
