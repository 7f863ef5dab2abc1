/// \file
/// The host's socket calls, as thin as the host allows: each host supplies
/// them in its ...SocketImpl.cpp, those its Berkeley sockets make alike in
/// BerkeleySockets.cpp, and CStreamSocketImpl builds every socket operation
/// on them. A call that fails leaves its Windows Sockets number for
/// LastSocketError. Not installed.
#ifndef VESK_NET_INTERNAL_SOCKETHOST_H
#define VESK_NET_INTERNAL_SOCKETHOST_H

#include <cstdint>

namespace vesk {
namespace net {
namespace internal {

/// A socket of the host (a descriptor or a SOCKET), widened to a pointer.
typedef std::uintptr_t SocketHandle;
/// No socket: all bits set (INVALID_SOCKET, and -1 as a descriptor).
const SocketHandle kNoSocket = ~static_cast<SocketHandle>(0);

/// What a wait waits for.
enum class SocketReadiness {
  Read,    ///< data, the peer's close, or a pending connection request
  Connect  ///< a non-blocking connect has finished, well or not
};

/// The Windows Sockets number of the last failed call below on this thread.
unsigned int LastSocketError();

/// A new IPv4 stream socket that child processes do not inherit; kNoSocket
/// on failure.
SocketHandle OpenSocket();
/// Closes handle. It is gone even when this reports a failure (false).
bool CloseSocket(SocketHandle handle);
/// Wakes the calls blocked on handle in a read, a wait or an accept, so that
/// they return; sends nothing to the peer.
void WakeSocketUsers(SocketHandle handle);

/// Readies handle for a bind (the host's address-reuse rules).
void PrepareBind(SocketHandle handle);
bool BindSocket(SocketHandle handle, const unsigned char address[4], unsigned short port);
/// The address and port handle is bound to.
bool LocalAddress(SocketHandle handle, unsigned char address[4], unsigned short& port);
/// Starts a connect; a non-blocking one that cannot finish at once fails
/// with 10035 or 10036 (WSAEWOULDBLOCK, WSAEINPROGRESS).
bool ConnectSocket(SocketHandle handle, const unsigned char address[4], unsigned short port);
bool ListenSocket(SocketHandle handle, unsigned int backlog);
/// The next connection (not inherited by child processes) and its peer;
/// kNoSocket on failure.
SocketHandle AcceptSocket(SocketHandle handle, unsigned char peer[4], unsigned short& peerPort);
bool SetBlocking(SocketHandle handle, bool blocking);
/// The outcome of a finished non-blocking connect into code: 0 or a Windows
/// Sockets number.
bool PendingConnectError(SocketHandle handle, unsigned int& code);

/// Waits until handle is ready: > 0 ready, 0 when the time ran out (or the
/// wait was cut short: the caller waits the rest), -1 on failure. A negative
/// time waits without limit.
int WaitSocket(SocketHandle handle, SocketReadiness what, long long microseconds);
/// Bytes that can be read without blocking.
bool AvailableBytes(SocketHandle handle, unsigned int& count);
/// One receive of at most length bytes: the count (0 once the peer has
/// closed), -1 on failure.
int ReceiveBytes(SocketHandle handle, char* buffer, int length);
/// One send of at most length bytes: the count sent, -1 on failure. Never
/// raises a signal.
int SendBytes(SocketHandle handle, const char* buffer, int length);

/// Option ids 0-9 of CSocketImpl other than OptionLinger, as a 4-byte int.
bool GetSocketOption(SocketHandle handle, unsigned int id, int& value);
bool SetSocketOption(SocketHandle handle, unsigned int id, int value);
/// SO_LINGER: whether it is on and its seconds.
bool GetLinger(SocketHandle handle, bool& on, int& seconds);
bool SetLinger(SocketHandle handle, bool on, int seconds);

}  // namespace internal
}  // namespace net
}  // namespace vesk

#endif
