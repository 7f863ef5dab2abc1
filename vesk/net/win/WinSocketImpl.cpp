#include "vesk/net/win/internal/WinSocketImpl.h"

#include <winsock2.h>
#include <ws2tcpip.h>
#include <windows.h>

#include <climits>
#include <cstring>

#include "vesk/net/TCPIPSocketImplFactory.h"

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

namespace {

SOCKET Socket(SocketHandle handle) { return static_cast<SOCKET>(handle); }

sockaddr_in SocketAddress(const unsigned char address[4], unsigned short port) {
  sockaddr_in result;
  std::memset(&result, 0, sizeof result);
  result.sin_family = AF_INET;
  result.sin_port = htons(port);
  std::memcpy(&result.sin_addr, address, 4);
  return result;
}

struct OptionSlot {
  int level;
  int name;
};

// Option ids 0-9 and the level and name of each.
const OptionSlot kOptions[] = {
    {IPPROTO_IP, IP_MULTICAST_LOOP}, {IPPROTO_IP, IP_TOS},       {SOL_SOCKET, SO_BROADCAST},
    {SOL_SOCKET, SO_KEEPALIVE},      {SOL_SOCKET, SO_LINGER},    {SOL_SOCKET, SO_OOBINLINE},
    {SOL_SOCKET, SO_RCVBUF},         {SOL_SOCKET, SO_REUSEADDR}, {SOL_SOCKET, SO_SNDBUF},
    {IPPROTO_TCP, TCP_NODELAY},
};

const OptionSlot* Slot(unsigned int id) {
  if (id < sizeof kOptions / sizeof kOptions[0]) return &kOptions[id];
  WSASetLastError(WSAENOPROTOOPT);
  return nullptr;
}

}  // namespace

unsigned int LastSocketError() { return static_cast<unsigned int>(WSAGetLastError()); }

SocketHandle OpenSocket() {
  // Overlapped, as socket() makes them; not inherited, so a process started
  // meanwhile never keeps a connection open.
  SOCKET s = WSASocketW(AF_INET, SOCK_STREAM, IPPROTO_TCP, nullptr, 0,
                        WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT);
  return s == INVALID_SOCKET ? kNoSocket : static_cast<SocketHandle>(s);
}

bool CloseSocket(SocketHandle handle) { return closesocket(Socket(handle)) == 0; }

// Shutting the receiving side down ends a blocked recv as the peer's close
// would; cancelling the socket's pending I/O ends a select or an accept on
// it. Nothing goes out to the peer.
void WakeSocketUsers(SocketHandle handle) {
  int error = WSAGetLastError();
  shutdown(Socket(handle), SD_RECEIVE);
  CancelIoEx(reinterpret_cast<HANDLE>(Socket(handle)), nullptr);
  WSASetLastError(error);
}

// Nothing to do: Windows binds a port whose last connections wait out
// TIME_WAIT, and SO_REUSEADDR would let a bind take a port someone listens
// on.
void PrepareBind(SocketHandle) {}

bool BindSocket(SocketHandle handle, const unsigned char address[4], unsigned short port) {
  sockaddr_in local = SocketAddress(address, port);
  return bind(Socket(handle), reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0;
}

bool LocalAddress(SocketHandle handle, unsigned char address[4], unsigned short& port) {
  sockaddr_in local;
  int length = sizeof local;
  if (getsockname(Socket(handle), reinterpret_cast<sockaddr*>(&local), &length) != 0) return false;
  std::memcpy(address, &local.sin_addr, 4);
  port = ntohs(local.sin_port);
  return true;
}

bool ConnectSocket(SocketHandle handle, const unsigned char address[4], unsigned short port) {
  sockaddr_in remote = SocketAddress(address, port);
  return connect(Socket(handle), reinterpret_cast<const sockaddr*>(&remote), sizeof remote) == 0;
}

bool ListenSocket(SocketHandle handle, unsigned int backlog) {
  int depth = backlog > static_cast<unsigned int>(INT_MAX) ? INT_MAX : static_cast<int>(backlog);
  return listen(Socket(handle), depth) == 0;
}

SocketHandle AcceptSocket(SocketHandle handle, unsigned char peer[4], unsigned short& peerPort) {
  sockaddr_in address;
  int length = sizeof address;
  SOCKET connection = accept(Socket(handle), reinterpret_cast<sockaddr*>(&address), &length);
  if (connection == INVALID_SOCKET) return kNoSocket;
  // An accepted socket is inheritable whatever the listener was.
  SetHandleInformation(reinterpret_cast<HANDLE>(connection), HANDLE_FLAG_INHERIT, 0);
  std::memcpy(peer, &address.sin_addr, 4);
  peerPort = ntohs(address.sin_port);
  return static_cast<SocketHandle>(connection);
}

bool SetBlocking(SocketHandle handle, bool blocking) {
  u_long nonBlocking = blocking ? 0 : 1;
  return ioctlsocket(Socket(handle), FIONBIO, &nonBlocking) == 0;
}

bool PendingConnectError(SocketHandle handle, unsigned int& code) {
  int error = 0;
  int length = sizeof error;
  if (getsockopt(Socket(handle), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length) != 0) {
    return false;
  }
  code = static_cast<unsigned int>(error);
  return true;
}

// select takes the time-out as seconds and microseconds. A connect has
// finished when the socket is writable (connected) or in the exception set
// (failed).
int WaitSocket(SocketHandle handle, SocketReadiness what, long long microseconds) {
  fd_set ready;
  fd_set failed;
  FD_ZERO(&ready);
  FD_ZERO(&failed);
  FD_SET(Socket(handle), &ready);
  FD_SET(Socket(handle), &failed);
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
  if (ioctlsocket(Socket(handle), FIONREAD, &available) != 0) return false;
  count = static_cast<unsigned int>(available);
  return true;
}

int ReceiveBytes(SocketHandle handle, char* buffer, int length) {
  int count = recv(Socket(handle), buffer, length, 0);
  return count == SOCKET_ERROR ? -1 : count;
}

int SendBytes(SocketHandle handle, const char* buffer, int length) {
  int sent = send(Socket(handle), buffer, length, 0);
  return sent == SOCKET_ERROR ? -1 : sent;
}

bool GetSocketOption(SocketHandle handle, unsigned int id, int& value) {
  const OptionSlot* slot = Slot(id);
  // Some options answer in fewer bytes (TCP_NODELAY in one): start from 0.
  value = 0;
  int length = sizeof value;
  return slot && getsockopt(Socket(handle), slot->level, slot->name, reinterpret_cast<char*>(&value), &length) == 0;
}

bool SetSocketOption(SocketHandle handle, unsigned int id, int value) {
  const OptionSlot* slot = Slot(id);
  return slot &&
         setsockopt(Socket(handle), slot->level, slot->name, reinterpret_cast<const char*>(&value), sizeof value) == 0;
}

bool GetLinger(SocketHandle handle, bool& on, int& seconds) {
  linger state;
  std::memset(&state, 0, sizeof state);
  int length = sizeof state;
  if (getsockopt(Socket(handle), SOL_SOCKET, SO_LINGER, reinterpret_cast<char*>(&state), &length) != 0) {
    return false;
  }
  on = state.l_onoff != 0;
  seconds = state.l_linger;
  return true;
}

// The seconds are 16 bits on Windows: longer times linger as long as it can.
bool SetLinger(SocketHandle handle, bool on, int seconds) {
  linger state;
  state.l_onoff = on ? 1 : 0;
  state.l_linger = static_cast<u_short>(seconds > 0xFFFF ? 0xFFFF : seconds);
  return setsockopt(Socket(handle), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&state), sizeof state) == 0;
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
