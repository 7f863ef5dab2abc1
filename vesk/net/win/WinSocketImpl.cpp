#include "vesk/net/win/internal/WinSocketImpl.h"

#include <windows.h>
#include <winsock2.h>

#include "vesk/net/TCPIPSocketImplFactory.h"
#include "vesk/net/internal/SocketApi.h"

namespace vesk {
namespace net {

base::CRef<CSocketImpl> CTCPIPSocketImplFactory::CreateSocketImpl() {
  return base::CRef<CSocketImpl>(VESK_NEW CWinSocketImpl);
}

VESK_IMPLEMENT_CLASS(CWinSocketImpl, CWinSocketImpl, "vesk::net::CWinSocketImpl", "vesk::net::CSocketImpl")

CWinSocketImpl::CWinSocketImpl() {}

namespace {

// Windows Sockets are started once when the library is loaded, version 2.0
// or, failing that, 1.1, and ended when it is unloaded. No call checks that
// the start succeeded: without it, creating a socket fails with the
// system's error.
struct CSocketsStart {
  bool started;
  CSocketsStart() {
    WSADATA data;
    started = WSAStartup(0x0002, &data) == 0 || WSAStartup(0x0101, &data) == 0;
  }
  ~CSocketsStart() {
    if (started) WSACleanup();
  }
};
CSocketsStart g_socketsStart;

}  // namespace

// The host's calls on Windows Sockets: a SOCKET is the handle itself
// (INVALID_SOCKET is kNoSocket) and WSAGetLastError the code.
namespace internal {

unsigned int LastSocketError() { return static_cast<unsigned int>(WSAGetLastError()); }

SocketHandle OpenSocket() {
  // Overlapped, as socket() makes them; not inherited, so a process started
  // meanwhile never keeps a connection open.
  SOCKET s = WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0,
                        WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
  return s == INVALID_SOCKET ? kNoSocket : static_cast<SocketHandle>(s);
}

bool CloseSocket(SocketHandle handle) { return closesocket(Native(handle)) == 0; }

// Shutting the receiving side down ends a blocked recv as the peer's close
// would; cancelling the socket's pending I/O ends a select or an accept on
// it. Nothing goes out to the peer.
void WakeSocketUsers(SocketHandle handle) {
  int error = WSAGetLastError();
  shutdown(Native(handle), SD_RECEIVE);
  CancelIoEx(reinterpret_cast<HANDLE>(Native(handle)), nullptr);
  WSASetLastError(error);
}

// Nothing to do: Windows binds a port whose last connections wait out
// TIME_WAIT, and SO_REUSEADDR would let a bind take a port someone listens
// on.
void PrepareBind(SocketHandle) {}

SocketHandle AcceptConnection(SocketHandle listener, sockaddr* peer, SocketLength* length) {
  SOCKET connection = accept(Native(listener), peer, length);
  if (connection == INVALID_SOCKET) return kNoSocket;
  // An accepted socket is inheritable whatever the listener was.
  SetHandleInformation(reinterpret_cast<HANDLE>(connection), HANDLE_FLAG_INHERIT, 0);
  return static_cast<SocketHandle>(connection);
}

bool SetBlocking(SocketHandle handle, bool blocking) {
  u_long nonBlocking = blocking ? 0 : 1;
  return ioctlsocket(Native(handle), FIONBIO, &nonBlocking) == 0;
}

// select takes the time-out as seconds and microseconds, and counts in
// milliseconds inside: a wait of more than a day is made a day (the caller
// waits the rest). A connect has finished when the socket is writable
// (connected) or in the exception set (failed).
int WaitSocket(SocketHandle handle, SocketReadiness what, long long microseconds) {
  const long long kLongest = 86400LL * 1000000LL;
  if (microseconds > kLongest) microseconds = kLongest;
  fd_set ready;
  fd_set failed;
  FD_ZERO(&ready);
  FD_ZERO(&failed);
  FD_SET(Native(handle), &ready);
  FD_SET(Native(handle), &failed);
  timeval wait;
  wait.tv_sec = static_cast<long>(microseconds / 1000000);
  wait.tv_usec = static_cast<long>(microseconds % 1000000);
  timeval* limit = microseconds < 0 ? nullptr : &wait;
  int result = what == SocketReadiness::Read ? select(0, &ready, nullptr, nullptr, limit)
                                             : select(0, nullptr, &ready, &failed, limit);
  return result == SOCKET_ERROR ? -1 : result;
}

bool AvailableBytes(SocketHandle handle, unsigned int& count) {
  u_long available = 0;
  if (ioctlsocket(Native(handle), FIONREAD, &available) != 0) return false;
  count = static_cast<unsigned int>(available);
  return true;
}

int ReceiveBytes(SocketHandle handle, char* buffer, int length) {
  int count = recv(Native(handle), buffer, length, 0);
  return count == SOCKET_ERROR ? -1 : count;
}

int SendBytes(SocketHandle handle, const char* buffer, int length) {
  int sent = send(Native(handle), buffer, length, 0);
  return sent == SOCKET_ERROR ? -1 : sent;
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
