#pragma once

// What sockets of every kind of machine do alike. A test program that has SocketContract.cpp among its
// sources plays it on the sockets that it makes.

#include "platform/Platform.h"

#include <functional>
#include <memory>

namespace halyard {

/// One kind of machine and its message loop.
struct SocketWorld {
    virtual ~SocketWorld() = default;
    virtual Platform& Machine() = 0;
    /// Lets happen what comes until `done` holds. False when it never did.
    virtual bool Until(const std::function<bool()>& done) = 0;
    /// Lets happen what is due by now.
    virtual void Pending() = 0;
};

/// Each program has its own.
std::unique_ptr<SocketWorld> MakeSocketWorld();

} // namespace halyard
