#include "platform/qt/TcpOptions.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace halyard {

namespace {

void Set(int descriptor, int level, int option, int value) {
    setsockopt(descriptor, level, option, &value, sizeof value);
}

} // namespace

void SetTcpOptions(long long descriptor) {
    auto socket = static_cast<int>(descriptor);
    Set(socket, IPPROTO_TCP, TCP_NODELAY, 1);
    Set(socket, SOL_SOCKET, SO_KEEPALIVE, 1);
    Set(socket, IPPROTO_TCP, TCP_KEEPIDLE, 30);        // s
    Set(socket, IPPROTO_TCP, TCP_KEEPINTVL, 10);       // s
    Set(socket, IPPROTO_TCP, TCP_KEEPCNT, 3);          // probes
    Set(socket, IPPROTO_TCP, TCP_USER_TIMEOUT, 60000); // ms
}

void EndSending(long long descriptor) { shutdown(static_cast<int>(descriptor), SHUT_WR); }

} // namespace halyard
