/// \file
/// Windows Sockets as Berkeley sockets: a SOCKET is the handle itself
/// (INVALID_SOCKET is kNoSocket). Not installed.
#ifndef VESK_NET_WIN_INTERNAL_SOCKETAPI_H
#define VESK_NET_WIN_INTERNAL_SOCKETAPI_H

#include <winsock2.h>
#include <ws2tcpip.h>

#include "vesk/net/internal/SocketHost.h"

namespace vesk {
namespace net {
namespace internal {

/// The length argument of the address and option calls.
typedef int SocketLength;

/// The SOCKET of a handle.
inline SOCKET Native(SocketHandle handle) { return static_cast<SOCKET>(handle); }

}  // namespace internal
}  // namespace net
}  // namespace vesk

#endif
