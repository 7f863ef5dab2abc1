/// \file
/// The host's Berkeley sockets for the calls both hosts make alike: its
/// socket headers, the length type of its address and option calls
/// (SocketLength) and its socket of a handle (Native). Not installed.
#ifndef VESK_NET_INTERNAL_SOCKETAPI_H
#define VESK_NET_INTERNAL_SOCKETAPI_H

#if defined(_WIN32)
#include "vesk/net/win/internal/SocketApi.h"
#else
#include "vesk/net/posix/SocketApi.h"
#endif

namespace vesk {
namespace net {
namespace internal {

/// accept for AcceptSocket: the next connection, which child processes do
/// not inherit; kNoSocket on failure.
SocketHandle AcceptConnection(SocketHandle listener, sockaddr* peer, SocketLength* length);

}  // namespace internal
}  // namespace net
}  // namespace vesk

#endif
