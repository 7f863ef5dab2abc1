#include "vesk/net/posix/PosixSocketImpl.h"

#include <arpa/inet.h>
#include <errno.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <climits>

#include "vesk/net/TCPIPSocketImplFactory.h"
#include "vesk/net/internal/SocketError.h"

namespace vesk {
namespace net {

base::CRef<CSocketImpl> CTCPIPSocketImplFactory::CreateSocketImpl() {
  return base::CRef<CSocketImpl>(VESK_NEW posix::CPosixSocketImpl);
}

namespace posix {

VESK_IMPLEMENT_CLASS(CPosixSocketImpl, CPosixSocketImpl, "vesk::net::posix::CPosixSocketImpl",
                     "vesk::net::CSocketImpl")

CPosixSocketImpl::CPosixSocketImpl() {}

}  // namespace posix

// The host's calls: descriptors held as handles, errno reported as the
// Windows Sockets number of the same condition.
namespace internal {

namespace {

int Fd(SocketHandle handle) { return static_cast<int>(handle); }

sockaddr_in SocketAddress(const unsigned char address[4], unsigned short port) {
  sockaddr_in result;
  memset(&result, 0, sizeof result);
  result.sin_family = AF_INET;
  result.sin_port = htons(port);
  memcpy(&result.sin_addr, address, 4);
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

const OptionSlot* Slot(unsigned int id) {
  if (id < sizeof kOptions / sizeof kOptions[0]) return &kOptions[id];
  errno = ENOPROTOOPT;
  return nullptr;
}

}  // namespace

unsigned int LastSocketError() { return SocketErrorCode(errno); }

SocketHandle OpenSocket() {
  int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  return fd < 0 ? kNoSocket : static_cast<SocketHandle>(fd);
}

bool CloseSocket(SocketHandle handle) { return close(Fd(handle)) == 0 || errno == EINTR; }

// Shutting the receiving side down wakes a call blocked in a read, a wait or
// an accept on it, as closing does on Windows; nothing goes out to the peer.
void WakeSocketUsers(SocketHandle handle) { shutdown(Fd(handle), SHUT_RD); }

// A port whose last connections still wait out TIME_WAIT can be bound again
// at once, as on Windows; a port someone listens on stays refused.
void PrepareBind(SocketHandle handle) {
  int on = 1;
  setsockopt(Fd(handle), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
}

bool BindSocket(SocketHandle handle, const unsigned char address[4], unsigned short port) {
  sockaddr_in local = SocketAddress(address, port);
  return bind(Fd(handle), reinterpret_cast<const sockaddr*>(&local), sizeof local) == 0;
}

bool LocalAddress(SocketHandle handle, unsigned char address[4], unsigned short& port) {
  sockaddr_in local;
  socklen_t length = sizeof local;
  if (getsockname(Fd(handle), reinterpret_cast<sockaddr*>(&local), &length) != 0) return false;
  memcpy(address, &local.sin_addr, 4);
  port = ntohs(local.sin_port);
  return true;
}

bool ConnectSocket(SocketHandle handle, const unsigned char address[4], unsigned short port) {
  sockaddr_in remote = SocketAddress(address, port);
  return connect(Fd(handle), reinterpret_cast<const sockaddr*>(&remote), sizeof remote) == 0;
}

bool ListenSocket(SocketHandle handle, unsigned int backlog) {
  int depth = backlog > static_cast<unsigned int>(INT_MAX) ? INT_MAX : static_cast<int>(backlog);
  return listen(Fd(handle), depth) == 0;
}

SocketHandle AcceptSocket(SocketHandle handle, unsigned char peer[4], unsigned short& peerPort) {
  sockaddr_in address;
  int connection;
  do {
    socklen_t length = sizeof address;
    connection = accept4(Fd(handle), reinterpret_cast<sockaddr*>(&address), &length, SOCK_CLOEXEC);
  } while (connection < 0 && errno == EINTR);
  if (connection < 0) return kNoSocket;
  memcpy(peer, &address.sin_addr, 4);
  peerPort = ntohs(address.sin_port);
  return static_cast<SocketHandle>(connection);
}

bool SetBlocking(SocketHandle handle, bool blocking) {
  int nonBlocking = blocking ? 0 : 1;
  return ioctl(Fd(handle), FIONBIO, &nonBlocking) == 0;
}

bool PendingConnectError(SocketHandle handle, unsigned int& code) {
  int error = 0;
  socklen_t length = sizeof error;
  if (getsockopt(Fd(handle), SOL_SOCKET, SO_ERROR, &error, &length) != 0) return false;
  code = error == 0 ? 0 : SocketErrorCode(error);
  return true;
}

// poll instead of select: no FD_SETSIZE ceiling on the descriptor. A signal
// ends a limited wait early (the caller waits the rest) and restarts an
// unlimited one.
int WaitSocket(SocketHandle handle, SocketReadiness what, long long microseconds) {
  int fd = Fd(handle);
  if (fd < 0) {
    errno = EBADF;
    return -1;
  }
  timespec wait = {static_cast<time_t>(microseconds / 1000000), static_cast<long>(microseconds % 1000000) * 1000L};
  pollfd entry = {fd, static_cast<short>(what == SocketReadiness::Read ? POLLIN : POLLOUT), 0};
  for (;;) {
    int result = ppoll(&entry, 1, microseconds < 0 ? nullptr : &wait, nullptr);
    if (result > 0 && (entry.revents & POLLNVAL)) {
      errno = EBADF;  // closed by another thread meanwhile
      return -1;
    }
    if (result >= 0) return result;
    if (errno != EINTR) return -1;
    if (microseconds >= 0) return 0;
  }
}

bool AvailableBytes(SocketHandle handle, unsigned int& count) {
  int available = 0;
  if (ioctl(Fd(handle), FIONREAD, &available) != 0) return false;
  count = static_cast<unsigned int>(available);
  return true;
}

int ReceiveBytes(SocketHandle handle, char* buffer, int length) {
  for (;;) {
    ssize_t count = recv(Fd(handle), buffer, static_cast<size_t>(length), 0);
    if (count >= 0 || errno != EINTR) return static_cast<int>(count);
  }
}

// MSG_NOSIGNAL: a peer that has gone gives an error, never SIGPIPE.
int SendBytes(SocketHandle handle, const char* buffer, int length) {
  for (;;) {
    ssize_t sent = send(Fd(handle), buffer, static_cast<size_t>(length), MSG_NOSIGNAL);
    if (sent >= 0 || errno != EINTR) return static_cast<int>(sent);
  }
}

bool GetSocketOption(SocketHandle handle, unsigned int id, int& value) {
  const OptionSlot* slot = Slot(id);
  socklen_t length = sizeof value;
  return slot && getsockopt(Fd(handle), slot->level, slot->name, &value, &length) == 0;
}

bool SetSocketOption(SocketHandle handle, unsigned int id, int value) {
  const OptionSlot* slot = Slot(id);
  return slot && setsockopt(Fd(handle), slot->level, slot->name, &value, sizeof value) == 0;
}

bool GetLinger(SocketHandle handle, bool& on, int& seconds) {
  linger state;
  memset(&state, 0, sizeof state);
  socklen_t length = sizeof state;
  if (getsockopt(Fd(handle), SOL_SOCKET, SO_LINGER, &state, &length) != 0) return false;
  on = state.l_onoff != 0;
  seconds = state.l_linger;
  return true;
}

bool SetLinger(SocketHandle handle, bool on, int seconds) {
  linger state;
  state.l_onoff = on ? 1 : 0;
  state.l_linger = seconds;
  return setsockopt(Fd(handle), SOL_SOCKET, SO_LINGER, &state, sizeof state) == 0;
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
