/// \file
/// The POSIX host's Berkeley sockets: descriptors as handles. Not installed.
#ifndef VESK_NET_POSIX_SOCKETAPI_H
#define VESK_NET_POSIX_SOCKETAPI_H

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include "vesk/net/internal/SocketHost.h"

namespace vesk {
namespace net {
namespace internal {

/// The length argument of the address and option calls.
typedef socklen_t SocketLength;

/// The descriptor of a handle (-1 for kNoSocket).
inline int Native(SocketHandle handle) { return static_cast<int>(handle); }

}  // namespace internal
}  // namespace net
}  // namespace vesk

#endif
