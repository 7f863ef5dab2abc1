#include "vesk/net/posix/PosixSocketImpl.h"

#include <errno.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "vesk/net/TCPIPSocketImplFactory.h"
#include "vesk/net/internal/SocketApi.h"
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

unsigned int LastSocketError() { return SocketErrorCode(errno); }

SocketHandle OpenSocket() {
  int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  return fd < 0 ? kNoSocket : static_cast<SocketHandle>(fd);
}

bool CloseSocket(SocketHandle handle) { return close(Native(handle)) == 0 || errno == EINTR; }

// Shutting the receiving side down wakes a call blocked in a read, a wait or
// an accept on it, as closing does on Windows; nothing goes out to the peer.
void WakeSocketUsers(SocketHandle handle) { shutdown(Native(handle), SHUT_RD); }

// A port whose last connections still wait out TIME_WAIT can be bound again
// at once, as on Windows; a port someone listens on stays refused.
void PrepareBind(SocketHandle handle) {
  int on = 1;
  setsockopt(Native(handle), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
}

SocketHandle AcceptConnection(SocketHandle listener, sockaddr* peer, SocketLength* length) {
  int connection;
  SocketLength size = *length;
  do {
    *length = size;
    connection = accept4(Native(listener), peer, length, SOCK_CLOEXEC);
  } while (connection < 0 && errno == EINTR);
  return connection < 0 ? kNoSocket : static_cast<SocketHandle>(connection);
}

bool SetBlocking(SocketHandle handle, bool blocking) {
  int nonBlocking = blocking ? 0 : 1;
  return ioctl(Native(handle), FIONBIO, &nonBlocking) == 0;
}

// poll instead of select: no FD_SETSIZE ceiling on the descriptor. A signal
// ends a limited wait early (the caller waits the rest) and restarts an
// unlimited one.
int WaitSocket(SocketHandle handle, SocketReadiness what, long long microseconds) {
  int fd = Native(handle);
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
  if (ioctl(Native(handle), FIONREAD, &available) != 0) return false;
  count = static_cast<unsigned int>(available);
  return true;
}

int ReceiveBytes(SocketHandle handle, char* buffer, int length) {
  for (;;) {
    ssize_t count = recv(Native(handle), buffer, static_cast<size_t>(length), 0);
    if (count >= 0 || errno != EINTR) return static_cast<int>(count);
  }
}

// MSG_NOSIGNAL: a peer that has gone gives an error, never SIGPIPE.
int SendBytes(SocketHandle handle, const char* buffer, int length) {
  for (;;) {
    ssize_t sent = send(Native(handle), buffer, static_cast<size_t>(length), MSG_NOSIGNAL);
    if (sent >= 0 || errno != EINTR) return static_cast<int>(sent);
  }
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
