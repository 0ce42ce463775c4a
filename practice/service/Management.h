#pragma once

// The management interface of the practice network, as servers of one's own have it: HTTP on 127.0.0.1 by
// which sessions are ended and asked after, and accounts suspended. One request a connection. The network
// owns the one.

#include "platform/HttpReader.h"
#include "practice/World.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>

namespace halyard {

class Management {
  public:
    explicit Management(World& world);
    ~Management();
    Management(const Management&) = delete;
    Management& operator=(const Management&) = delete;

    /// False when the port can't be had; 0 takes any free one.
    bool Start(std::int32_t port);
    std::int32_t Port() const { return server->Port(); }
    /// Once a second: drops callers who never finish.
    void Heartbeat();

  private:
    struct Caller;

    void Accept(std::unique_ptr<Socket> socket);
    void Heard(Caller& caller);
    std::string AnswerTo(const std::string& firstLine, const std::string& body);
    std::string Session(const std::string& method, const std::string& name);
    std::string Account(const std::string& name, const std::string& body);

    World& world;
    std::unique_ptr<SocketServer> server;
    std::list<std::unique_ptr<Caller>> callers;
};

} // namespace halyard
