#include "vesk/net/posix/PosixSocketImpl.h"

#include <arpa/inet.h>
#include <errno.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <time.h>
#include <unistd.h>

#include <climits>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/InterruptedIOException.h"
#include "vesk/net/SocketException.h"
#include "vesk/net/TCPIPSocketImplFactory.h"
#include "vesk/net/internal/SocketError.h"
#include "vesk/net/internal/WinSocketException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace net {

base::CRef<CSocketImpl> CTCPIPSocketImplFactory::CreateSocketImpl() {
  return base::CRef<CSocketImpl>(VESK_NEW posix::CPosixSocketImpl);
}

namespace posix {

namespace {

// Clients know the socket's failures by the implementation's source path.
const char* const kSource = "vesk/net/WinSocketImpl";

[[noreturn]] __attribute__((noinline, cold)) void ThrowSocketError(unsigned int line, const char* description,
                                                                   int hostCode) {
  throw CWinSocketException(kSource, line, description, internal::SocketErrorCode(hostCode));
}

// Throws CWinSocketException with the Windows Sockets number of errno.
#define VESK_THROW_SOCKET_ERROR(description) ThrowSocketError(__LINE__, description, errno)

timespec Now() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now;
}

// Waits until fd reports one of events: > 0 ready, 0 timed out, -1 failed
// (errno set). A time-out of t milliseconds waits t / 1000 seconds and
// t % 1000 MICROseconds, the remainder passed on unscaled: callers rely on
// 1500 waiting 1 s and 500 us. Without limit it waits as long as it takes.
// poll instead of select: no FD_SETSIZE ceiling on the descriptor.
int WaitFor(int fd, short events, unsigned int timeout, bool limited) {
  if (fd < 0) {
    errno = EBADF;
    return -1;
  }
  timespec wait = {static_cast<time_t>(timeout / 1000), static_cast<long>(timeout % 1000) * 1000L};
  timespec deadline = Now();
  deadline.tv_sec += wait.tv_sec;
  deadline.tv_nsec += wait.tv_nsec;
  if (deadline.tv_nsec >= 1000000000L) {
    deadline.tv_sec += 1;
    deadline.tv_nsec -= 1000000000L;
  }
  pollfd entry = {fd, events, 0};
  for (;;) {
    int result = ppoll(&entry, 1, limited ? &wait : nullptr, nullptr);
    if (result > 0 && (entry.revents & POLLNVAL)) {
      errno = EBADF;  // closed by another thread meanwhile
      return -1;
    }
    if (result >= 0) return result;
    if (errno != EINTR) return -1;
    if (limited) {
      // A signal cut the wait short: wait out the rest.
      timespec now = Now();
      wait.tv_sec = deadline.tv_sec - now.tv_sec;
      wait.tv_nsec = deadline.tv_nsec - now.tv_nsec;
      if (wait.tv_nsec < 0) {
        wait.tv_sec -= 1;
        wait.tv_nsec += 1000000000L;
      }
      if (wait.tv_sec < 0) return 0;
    }
  }
}

sockaddr_in SocketAddress(const CInetAddress& address, unsigned short port) {
  sockaddr_in result;
  memset(&result, 0, sizeof result);
  result.sin_family = AF_INET;
  result.sin_port = htons(port);
  memcpy(&result.sin_addr, address.GetAddress(), 4);
  return result;
}

base::CRef<CInetAddress> NewAddress(const sockaddr_in& address) {
  return base::CRef<CInetAddress>(
      VESK_NEW CInetAddress(reinterpret_cast<const unsigned char*>(&address.sin_addr)));
}

// A connect the system could not finish at once: its outcome, 0 or errno.
int PendingConnectError(int fd) {
  int error = 0;
  socklen_t length = sizeof error;
  if (getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &length) != 0) return errno;
  return error;
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

const OptionSlot& Slot(unsigned int id) {
  if (id >= sizeof kOptions / sizeof kOptions[0]) {
    VESK_THROW(kSource, CSocketException, "The specified option is not supported.");
  }
  return kOptions[id];
}

}  // namespace

VESK_IMPLEMENT_CLASS(CPosixSocketImpl, CPosixSocketImpl, "vesk::net::posix::CPosixSocketImpl",
                     "vesk::net::CSocketImpl")

CPosixSocketImpl::CPosixSocketImpl() : m_handle(-1), m_users(0), m_closing(-1), m_input(*this), m_output(*this) {
  memset(&m_remote, 0, sizeof m_remote);
}

CPosixSocketImpl::~CPosixSocketImpl() {
  int handle = m_handle.exchange(-1);
  if (handle >= 0) close(handle);
  handle = m_closing.exchange(-1);
  if (handle >= 0) close(handle);
}

CPosixSocketImpl::CUse::CUse(const CPosixSocketImpl& impl) : m_impl(impl) {
  m_impl.m_users.fetch_add(1);
  m_handle = m_impl.m_handle.load();
}

CPosixSocketImpl::CUse::~CUse() {
  if (m_impl.m_users.fetch_sub(1) == 1 && m_impl.m_closing.load() >= 0) {
    int handle = m_impl.m_closing.exchange(-1);
    if (handle >= 0) close(handle);
  }
}

bool CPosixSocketImpl::Retire(int handle) {
  // Shutting the receiving side down wakes a call blocked in a read, a wait
  // or an accept on it, as closing does on Windows; nothing goes out to the
  // peer for it.
  shutdown(handle, SHUT_RD);
  int earlier = m_closing.exchange(handle);
  if (earlier >= 0) close(earlier);
  if (m_users.load() != 0) return true;  // the last call closes it
  handle = m_closing.exchange(-1);
  // The descriptor is gone even when close reports an error: never twice.
  return handle < 0 || close(handle) == 0 || errno == EINTR;
}

void CPosixSocketImpl::Create() {
  int handle = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (handle < 0) VESK_THROW_SOCKET_ERROR("Failed to create the socket.");
  int old = m_handle.exchange(handle);
  if (old >= 0) Retire(old);
}

void CPosixSocketImpl::Bind(const CInetAddress& address, unsigned short port) {
  CUse use(*this);
  int handle = use.Handle();
  // A port whose last connections still wait out TIME_WAIT can be bound
  // again at once, as on Windows; a port someone listens on stays refused.
  int on = 1;
  setsockopt(handle, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  sockaddr_in local = SocketAddress(address, port);
  if (bind(handle, reinterpret_cast<const sockaddr*>(&local), sizeof local) != 0) {
    VESK_THROW_SOCKET_ERROR("Bind socket failed.");
  }
  socklen_t length = sizeof local;
  if (getsockname(handle, reinterpret_cast<sockaddr*>(&local), &length) != 0) {
    VESK_THROW_SOCKET_ERROR("Bind socket failed.");
  }
  m_localAddress = base::CRef<CInetAddress>(VESK_NEW CInetAddress(address));
  m_localPort = ntohs(local.sin_port);
}

namespace {
void SetBlocking(int handle, bool blocking, unsigned int line) {
  int nonBlocking = blocking ? 0 : 1;
  if (ioctl(handle, FIONBIO, &nonBlocking) != 0) ThrowSocketError(line, "ioctlsocket failed.", errno);
}
}  // namespace

void CPosixSocketImpl::Connect(const CInetAddress& address, unsigned short port) {
  m_address = base::CRef<CInetAddress>(VESK_NEW CInetAddress(address));
  m_port = port;
  m_remote = SocketAddress(address, port);
  CUse use(*this);
  int handle = use.Handle();
  const sockaddr* remote = reinterpret_cast<const sockaddr*>(&m_remote);
  if (m_timeout != 0) {
    SetBlocking(handle, false, __LINE__);
    if (connect(handle, remote, sizeof m_remote) != 0) {
      if (errno != EINPROGRESS && errno != EINTR) VESK_THROW_SOCKET_ERROR("connect failed.");
      int ready = WaitFor(handle, POLLOUT, m_timeout, true);
      if (ready == 0) {
        // Out of time: the socket ends closed, and no exception says so.
        SetBlocking(handle, true, __LINE__);
        Close();
        return;
      }
      if (ready < 0) VESK_THROW_SOCKET_ERROR("connect failed.");
      // Writable means finished, not connected: the outcome is in SO_ERROR
      // (a refused connection shows here).
      int error = PendingConnectError(handle);
      if (error != 0) ThrowSocketError(__LINE__, "connect failed.", error);
    }
    // Back to blocking, or the first full send buffer would fail a write.
    SetBlocking(handle, true, __LINE__);
  } else {
    SetBlocking(handle, true, __LINE__);
    if (connect(handle, remote, sizeof m_remote) != 0) {
      if (errno != EINTR) VESK_THROW_SOCKET_ERROR("Connect socket failed.");
      // A signal does not stop the connect: wait for its outcome.
      if (WaitFor(handle, POLLOUT, 0, false) < 0) VESK_THROW_SOCKET_ERROR("Connect socket failed.");
      int error = PendingConnectError(handle);
      if (error != 0) ThrowSocketError(__LINE__, "Connect socket failed.", error);
    }
  }
  if (m_localAddress.IsNull()) ReadLocalAddress(handle);
}

void CPosixSocketImpl::ReadLocalAddress(int handle) {
  sockaddr_in local;
  socklen_t length = sizeof local;
  if (getsockname(handle, reinterpret_cast<sockaddr*>(&local), &length) != 0) {
    VESK_THROW_SOCKET_ERROR("getsockname failed.");
  }
  m_localAddress = NewAddress(local);
  m_localPort = ntohs(local.sin_port);
}

void CPosixSocketImpl::Listen(unsigned int backlog) {
  int depth = backlog > static_cast<unsigned int>(INT_MAX) ? INT_MAX : static_cast<int>(backlog);
  CUse use(*this);
  if (listen(use.Handle(), depth) != 0) {
    VESK_THROW_SOCKET_ERROR(
        "Failed to place the socket in a state in which it is listening for an incoming connection.");
  }
}

void CPosixSocketImpl::Accept(CSocketImpl& accepted, unsigned int timeout) {
  CPosixSocketImpl* target = dynamic_cast<CPosixSocketImpl*>(&accepted);
  if (!target) VESK_THROW(kSource, base::CIllegalArgumentException, "Invalid socket implementation.");
  CUse use(*this);
  int handle = use.Handle();
  if (timeout != 0) {
    int ready = WaitFor(handle, POLLIN, timeout, true);
    if (ready == 0) VESK_THROW(kSource, io::CInterruptedIOException, "Accept timed-out.");
    if (ready < 0) VESK_THROW_SOCKET_ERROR("Failed to accept the incoming connection.");
  }
  sockaddr_in peer;
  int connection;
  do {
    socklen_t length = sizeof peer;
    connection = accept4(handle, reinterpret_cast<sockaddr*>(&peer), &length, SOCK_CLOEXEC);
  } while (connection < 0 && errno == EINTR);
  if (connection < 0) VESK_THROW_SOCKET_ERROR("accept failed.");
  // From here the target owns the descriptor, whatever fails next.
  int old = target->m_handle.exchange(connection);
  if (old >= 0) target->Retire(old);
  target->m_remote = peer;
  target->m_address = NewAddress(peer);
  target->m_port = ntohs(peer.sin_port);
  sockaddr_in local;
  socklen_t length = sizeof local;
  if (getsockname(connection, reinterpret_cast<sockaddr*>(&local), &length) == 0) {
    target->m_localAddress = NewAddress(local);
    target->m_localPort = ntohs(local.sin_port);
  } else {
    target->m_localAddress = m_localAddress;
    target->m_localPort = m_localPort;
  }
}

// Blocks until a request is pending; callers rely on it never timing out.
bool CPosixSocketImpl::IsPending() {
  CUse use(*this);
  int ready = WaitFor(use.Handle(), POLLIN, 0, false);
  if (ready < 0) VESK_THROW_SOCKET_ERROR("Failed to determine if there are pending connection requests.");
  return ready > 0;
}

unsigned int CPosixSocketImpl::GetAvailable() const {
  CUse use(*this);
  int count = 0;
  if (ioctl(use.Handle(), FIONREAD, &count) != 0) {
    VESK_THROW_SOCKET_ERROR("Failed to get the number of available on the socket.");
  }
  return static_cast<unsigned int>(count);
}

void CPosixSocketImpl::Close() {
  int handle = m_handle.exchange(-1);
  if (handle >= 0 && !Retire(handle)) VESK_THROW_SOCKET_ERROR("Failed to close the socket.");
}

bool CPosixSocketImpl::GetBoolOption(unsigned int id) const {
  CheckBoolOption(id);
  const OptionSlot& slot = Slot(id);
  CUse use(*this);
  int value = 0;
  socklen_t length = sizeof value;
  if (getsockopt(use.Handle(), slot.level, slot.name, &value, &length) != 0) {
    VESK_THROW_SOCKET_ERROR("Failed to get the specified option.");
  }
  return value != 0;
}

void CPosixSocketImpl::SetBoolOption(unsigned int id, bool value) {
  CheckBoolOption(id);
  const OptionSlot& slot = Slot(id);
  int flag = value ? 1 : 0;
  CUse use(*this);
  if (setsockopt(use.Handle(), slot.level, slot.name, &flag, sizeof flag) != 0) {
    VESK_THROW_SOCKET_ERROR("Failed to set the specified option.");
  }
}

int CPosixSocketImpl::GetIntOption(unsigned int id) const {
  CheckIntOption(id);
  const OptionSlot& slot = Slot(id);
  CUse use(*this);
  if (id == OptionLinger) {
    linger state;
    memset(&state, 0, sizeof state);
    socklen_t length = sizeof state;
    if (getsockopt(use.Handle(), slot.level, slot.name, &state, &length) != 0) {
      VESK_THROW_SOCKET_ERROR("Failed to get the specified option.");
    }
    return state.l_onoff ? state.l_linger : -1;
  }
  int value = 0;
  socklen_t length = sizeof value;
  if (getsockopt(use.Handle(), slot.level, slot.name, &value, &length) != 0) {
    VESK_THROW_SOCKET_ERROR("Failed to get the specified option.");
  }
  return value;
}

void CPosixSocketImpl::SetIntOption(unsigned int id, int value) {
  CheckIntOption(id);
  const OptionSlot& slot = Slot(id);
  CUse use(*this);
  int result;
  if (id == OptionLinger) {
    linger state;
    state.l_onoff = value > 0 ? 1 : 0;
    state.l_linger = value > 0 ? value : 0;
    result = setsockopt(use.Handle(), slot.level, slot.name, &state, sizeof state);
  } else {
    result = setsockopt(use.Handle(), slot.level, slot.name, &value, sizeof value);
  }
  if (result != 0) VESK_THROW_SOCKET_ERROR("Failed to set the specified option.");
}

int CPosixSocketImpl::CInput::Read(char* buffer, unsigned int offset, unsigned int length) {
  if (length == 0) return 0;
  CUse use(m_owner);
  int handle = use.Handle();
  unsigned int timeout = m_owner.GetTimeout();
  if (timeout != 0) {
    int ready = WaitFor(handle, POLLIN, timeout, true);
    if (ready == 0) VESK_THROW(kSource, io::CInterruptedIOException, "Read timed-out.");
    if (ready < 0) VESK_THROW_SOCKET_ERROR("select failed.");
  }
  if (length > static_cast<unsigned int>(INT_MAX)) length = INT_MAX;
  for (;;) {
    ssize_t count = recv(handle, buffer + offset, length, 0);
    // The count as it comes: 0 once the peer has closed its side.
    if (count >= 0) return static_cast<int>(count);
    if (errno != EINTR) {
      VESK_THROW_SOCKET_ERROR("Failed to read the specified number of bytes from the socket input stream.");
    }
  }
}

// A closed peer gives EOS here, where the contract's default would hand
// out a byte that was never read (and a loop waiting for EOS would spin).
int CPosixSocketImpl::CInput::Read() {
  char byte = 0;
  if (Read(&byte, 0, 1) <= 0) return EOS;
  return static_cast<signed char>(byte);
}

void CPosixSocketImpl::CInput::Reset() {
  VESK_THROW(kSource, io::CIOException, "Socket input stream doesn't support the reset operation.");
}

void CPosixSocketImpl::COutput::Write(const char* buffer, unsigned int offset, unsigned int length) {
  if (!buffer) return;
  CUse use(m_owner);
  int handle = use.Handle();
  // A blocking send may stop short (a signal): go on until all is out.
  // MSG_NOSIGNAL: a peer that has gone gives an error, never SIGPIPE.
  while (length > 0) {
    ssize_t sent = send(handle, buffer + offset, length, MSG_NOSIGNAL);
    if (sent < 0) {
      if (errno == EINTR) continue;
      VESK_THROW_SOCKET_ERROR("Failed to send the specified data.");
    }
    offset += static_cast<unsigned int>(sent);
    length -= static_cast<unsigned int>(sent);
  }
}

}  // namespace posix
}  // namespace net
}  // namespace vesk
