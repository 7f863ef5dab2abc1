// The host calls of SocketHost.h that both hosts' Berkeley sockets make the
// same way; each host's ...SocketImpl.cpp supplies the rest.
#include <climits>
#include <cstring>
#include <limits>

#include "vesk/net/internal/SocketApi.h"
#include "vesk/net/internal/SocketError.h"
#include "vesk/net/internal/SocketHost.h"

namespace vesk {
namespace net {
namespace internal {

namespace {

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

// Option ids 0-9 and the host's level and name for each.
const OptionSlot kOptions[] = {
    {IPPROTO_IP, IP_MULTICAST_LOOP}, {IPPROTO_IP, IP_TOS},       {SOL_SOCKET, SO_BROADCAST},
    {SOL_SOCKET, SO_KEEPALIVE},      {SOL_SOCKET, SO_LINGER},    {SOL_SOCKET, SO_OOBINLINE},
    {SOL_SOCKET, SO_RCVBUF},         {SOL_SOCKET, SO_REUSEADDR}, {SOL_SOCKET, SO_SNDBUF},
    {IPPROTO_TCP, TCP_NODELAY},
};
const unsigned int kOptionCount = sizeof kOptions / sizeof kOptions[0];

}  // namespace

bool BindSocket(SocketHandle handle, const unsigned char address[4], unsigned short port) {
  sockaddr_in local = SocketAddress(address, port);
  return bind(Native(handle), reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0;
}

bool LocalAddress(SocketHandle handle, unsigned char address[4], unsigned short& port) {
  sockaddr_in local;
  SocketLength length = sizeof local;
  if (getsockname(Native(handle), reinterpret_cast<sockaddr*>(&local), &length) != 0) return false;
  std::memcpy(address, &local.sin_addr, 4);
  port = ntohs(local.sin_port);
  return true;
}

bool ConnectSocket(SocketHandle handle, const unsigned char address[4], unsigned short port) {
  sockaddr_in remote = SocketAddress(address, port);
  return connect(Native(handle), reinterpret_cast<const sockaddr*>(&remote), sizeof remote) == 0;
}

bool ListenSocket(SocketHandle handle, unsigned int backlog) {
  int depth = backlog > static_cast<unsigned int>(INT_MAX) ? INT_MAX : static_cast<int>(backlog);
  return listen(Native(handle), depth) == 0;
}

SocketHandle AcceptSocket(SocketHandle handle, unsigned char peer[4], unsigned short& peerPort) {
  sockaddr_in address;
  SocketLength length = sizeof address;
  SocketHandle connection = AcceptConnection(handle, reinterpret_cast<sockaddr*>(&address), &length);
  if (connection == kNoSocket) return kNoSocket;
  std::memcpy(peer, &address.sin_addr, 4);
  peerPort = ntohs(address.sin_port);
  return connection;
}

bool PendingConnectError(SocketHandle handle, unsigned int& code) {
  int error = 0;
  SocketLength length = sizeof error;
  if (getsockopt(Native(handle), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &length) != 0) return false;
  code = error == 0 ? 0 : SocketErrorCode(error);
  return true;
}

// Ids beyond the table never come here: CSocketImpl checks them first.
bool GetSocketOption(SocketHandle handle, unsigned int id, int& value) {
  if (id >= kOptionCount) return false;
  // Some options answer in fewer bytes (TCP_NODELAY in one on Windows).
  value = 0;
  SocketLength length = sizeof value;
  return getsockopt(Native(handle), kOptions[id].level, kOptions[id].name, reinterpret_cast<char*>(&value),
                    &length) == 0;
}

bool SetSocketOption(SocketHandle handle, unsigned int id, int value) {
  if (id >= kOptionCount) return false;
  return setsockopt(Native(handle), kOptions[id].level, kOptions[id].name, reinterpret_cast<const char*>(&value),
                    sizeof value) == 0;
}

bool GetLinger(SocketHandle handle, bool& on, int& seconds) {
  linger state;
  std::memset(&state, 0, sizeof state);
  SocketLength length = sizeof state;
  if (getsockopt(Native(handle), SOL_SOCKET, SO_LINGER, reinterpret_cast<char*>(&state), &length) != 0) {
    return false;
  }
  on = state.l_onoff != 0;
  seconds = state.l_linger;
  return true;
}

// The seconds are 16 bits on Windows: longer times linger as long as the
// host can.
bool SetLinger(SocketHandle handle, bool on, int seconds) {
  typedef decltype(linger::l_linger) Seconds;
  linger state;
  state.l_onoff = on ? 1 : 0;
  const int most = static_cast<int>(std::numeric_limits<Seconds>::max());
  state.l_linger = static_cast<Seconds>(seconds > most ? most : seconds);
  return setsockopt(Native(handle), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&state), sizeof state) ==
         0;
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
