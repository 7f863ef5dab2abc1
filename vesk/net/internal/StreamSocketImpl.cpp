#include "vesk/net/internal/StreamSocketImpl.h"

#include <chrono>
#include <climits>

#include "vesk/base/IllegalArgumentException.h"
#include "vesk/io/InterruptedIOException.h"
#include "vesk/net/SocketException.h"
#include "vesk/net/internal/SocketError.h"
#include "vesk/net/internal/WinSocketException.h"
#include "vesk/platform/Throw.h"

namespace vesk {
namespace net {
namespace internal {

namespace {

// Clients know the socket's failures by the implementation's source path.
const char* const kSource = "vesk/net/WinSocketImpl";

[[noreturn]] __attribute__((noinline, cold)) void ThrowSocketError(unsigned int line, const char* description,
                                                                   unsigned int code) {
  throw CWinSocketException(kSource, line, description, code);
}

// Throws CWinSocketException with the code of the host call that just failed.
#define VESK_THROW_SOCKET_ERROR(description) ThrowSocketError(__LINE__, description, LastSocketError())

// Waits until handle is ready: > 0 ready, 0 timed out, -1 failed. A time-out
// of t milliseconds waits t / 1000 seconds and t % 1000 MICROseconds, the
// remainder passed on unscaled: callers rely on 1500 waiting 1 s and 500 us.
// A host wait that ends early (a signal, a coarser clock) is followed by one
// for the rest. Without limit it waits as long as it takes.
int WaitFor(SocketHandle handle, SocketReadiness what, unsigned int timeout, bool limited) {
  if (!limited) return WaitSocket(handle, what, -1);
  using Clock = std::chrono::steady_clock;
  const Clock::time_point deadline =
      Clock::now() + std::chrono::seconds(timeout / 1000) + std::chrono::microseconds(timeout % 1000);
  for (;;) {
    long long left = std::chrono::ceil<std::chrono::microseconds>(deadline - Clock::now()).count();
    if (left <= 0) return 0;
    int ready = WaitSocket(handle, what, left);
    if (ready != 0) return ready;
  }
}

base::CRef<CInetAddress> NewAddress(const unsigned char address[4]) {
  return base::CRef<CInetAddress>(VESK_NEW CInetAddress(address));
}

void SwitchBlocking(SocketHandle handle, bool blocking, unsigned int line) {
  if (!SetBlocking(handle, blocking)) ThrowSocketError(line, "ioctlsocket failed.", LastSocketError());
}

// Waits for a connect the host could not finish at once and throws its
// failure; false when the time ran out.
bool FinishConnect(SocketHandle handle, unsigned int timeout, bool limited, const char* description) {
  int ready = WaitFor(handle, SocketReadiness::Connect, timeout, limited);
  if (ready == 0) return false;
  if (ready < 0) VESK_THROW_SOCKET_ERROR(description);
  // Ready means finished, not connected: the outcome is the socket's
  // pending error (a refused connection shows here).
  unsigned int code = 0;
  if (!PendingConnectError(handle, code)) VESK_THROW_SOCKET_ERROR(description);
  if (code != 0) ThrowSocketError(__LINE__, description, code);
  return true;
}

// A connect that goes on after the call returned: non-blocking, or cut
// short by a signal.
bool ConnectGoesOn(unsigned int code) {
  return code == kWsaEWouldBlock || code == kWsaEInProgress || code == kWsaEIntr;
}

}  // namespace

CStreamSocketImpl::CStreamSocketImpl()
    : m_handle(kNoSocket), m_users(0), m_closing(kNoSocket), m_input(*this), m_output(*this) {}

CStreamSocketImpl::~CStreamSocketImpl() {
  SocketHandle handle = m_handle.exchange(kNoSocket);
  if (handle != kNoSocket) CloseSocket(handle);
  handle = m_closing.exchange(kNoSocket);
  if (handle != kNoSocket) CloseSocket(handle);
}

CStreamSocketImpl::CUse::CUse(const CStreamSocketImpl& impl) : m_impl(impl) {
  m_impl.m_users.fetch_add(1);
  m_handle = m_impl.m_handle.load();
}

CStreamSocketImpl::CUse::~CUse() {
  if (m_impl.m_users.fetch_sub(1) == 1 && m_impl.m_closing.load() != kNoSocket) {
    SocketHandle handle = m_impl.m_closing.exchange(kNoSocket);
    if (handle != kNoSocket) CloseSocket(handle);
  }
}

bool CStreamSocketImpl::Retire(SocketHandle handle) {
  WakeSocketUsers(handle);
  SocketHandle earlier = m_closing.exchange(handle);
  if (earlier != kNoSocket) CloseSocket(earlier);
  if (m_users.load() != 0) return true;  // the last call closes it
  handle = m_closing.exchange(kNoSocket);
  // The handle is gone even when closing reports an error: never twice.
  return handle == kNoSocket || CloseSocket(handle);
}

void CStreamSocketImpl::Create() {
  SocketHandle handle = OpenSocket();
  if (handle == kNoSocket) VESK_THROW_SOCKET_ERROR("Failed to create the socket.");
  SocketHandle old = m_handle.exchange(handle);
  if (old != kNoSocket) Retire(old);
}

void CStreamSocketImpl::Bind(const CInetAddress& address, unsigned short port) {
  CUse use(*this);
  SocketHandle handle = use.Handle();
  PrepareBind(handle);
  if (!BindSocket(handle, address.GetAddress(), port)) VESK_THROW_SOCKET_ERROR("Bind socket failed.");
  unsigned char bound[4];
  unsigned short boundPort = 0;
  if (!LocalAddress(handle, bound, boundPort)) VESK_THROW_SOCKET_ERROR("Bind socket failed.");
  m_localAddress = NewAddress(address.GetAddress());
  m_localPort = boundPort;
}

void CStreamSocketImpl::Connect(const CInetAddress& address, unsigned short port) {
  m_address = NewAddress(address.GetAddress());
  m_port = port;
  CUse use(*this);
  SocketHandle handle = use.Handle();
  if (m_timeout != 0) {
    SwitchBlocking(handle, false, __LINE__);
    if (!ConnectSocket(handle, address.GetAddress(), port)) {
      unsigned int code = LastSocketError();
      if (!ConnectGoesOn(code)) ThrowSocketError(__LINE__, "connect failed.", code);
      if (!FinishConnect(handle, m_timeout, true, "connect failed.")) {
        // Out of time: the socket ends closed, and no exception says so.
        SwitchBlocking(handle, true, __LINE__);
        Close();
        return;
      }
    }
    // Back to blocking, or the first full send buffer would fail a write.
    SwitchBlocking(handle, true, __LINE__);
  } else {
    SwitchBlocking(handle, true, __LINE__);
    if (!ConnectSocket(handle, address.GetAddress(), port)) {
      unsigned int code = LastSocketError();
      if (code != kWsaEIntr) ThrowSocketError(__LINE__, "Connect socket failed.", code);
      // A signal does not stop the connect: wait for its outcome.
      FinishConnect(handle, 0, false, "Connect socket failed.");
    }
  }
  if (m_localAddress.IsNull()) ReadLocalAddress(handle);
}

void CStreamSocketImpl::ReadLocalAddress(SocketHandle handle) {
  unsigned char local[4];
  unsigned short localPort = 0;
  if (!LocalAddress(handle, local, localPort)) VESK_THROW_SOCKET_ERROR("getsockname failed.");
  m_localAddress = NewAddress(local);
  m_localPort = localPort;
}

void CStreamSocketImpl::Listen(unsigned int backlog) {
  CUse use(*this);
  if (!ListenSocket(use.Handle(), backlog)) {
    VESK_THROW_SOCKET_ERROR(
        "Failed to place the socket in a state in which it is listening for an incoming connection.");
  }
}

void CStreamSocketImpl::Accept(CSocketImpl& accepted, unsigned int timeout) {
  CStreamSocketImpl* target = dynamic_cast<CStreamSocketImpl*>(&accepted);
  if (!target) VESK_THROW(kSource, base::CIllegalArgumentException, "Invalid socket implementation.");
  CUse use(*this);
  SocketHandle handle = use.Handle();
  if (timeout != 0) {
    int ready = WaitFor(handle, SocketReadiness::Read, timeout, true);
    if (ready == 0) VESK_THROW(kSource, io::CInterruptedIOException, "Accept timed-out.");
    if (ready < 0) VESK_THROW_SOCKET_ERROR("Failed to accept the incoming connection.");
  }
  unsigned char peer[4];
  unsigned short peerPort = 0;
  SocketHandle connection = AcceptSocket(handle, peer, peerPort);
  if (connection == kNoSocket) VESK_THROW_SOCKET_ERROR("accept failed.");
  // From here the target owns the connection, whatever fails next.
  SocketHandle old = target->m_handle.exchange(connection);
  if (old != kNoSocket) target->Retire(old);
  target->m_address = NewAddress(peer);
  target->m_port = peerPort;
  unsigned char local[4];
  unsigned short localPort = 0;
  if (LocalAddress(connection, local, localPort)) {
    target->m_localAddress = NewAddress(local);
    target->m_localPort = localPort;
  } else {
    target->m_localAddress = m_localAddress;
    target->m_localPort = m_localPort;
  }
}

// Blocks until a request is pending; callers rely on it never timing out.
bool CStreamSocketImpl::IsPending() {
  CUse use(*this);
  int ready = WaitFor(use.Handle(), SocketReadiness::Read, 0, false);
  if (ready < 0) VESK_THROW_SOCKET_ERROR("Failed to determine if there are pending connection requests.");
  return ready > 0;
}

unsigned int CStreamSocketImpl::GetAvailable() const {
  CUse use(*this);
  unsigned int count = 0;
  if (!AvailableBytes(use.Handle(), count)) {
    VESK_THROW_SOCKET_ERROR("Failed to get the number of available on the socket.");
  }
  return count;
}

void CStreamSocketImpl::Close() {
  SocketHandle handle = m_handle.exchange(kNoSocket);
  if (handle != kNoSocket && !Retire(handle)) VESK_THROW_SOCKET_ERROR("Failed to close the socket.");
}

bool CStreamSocketImpl::GetBoolOption(unsigned int id) const {
  CheckBoolOption(id);
  CUse use(*this);
  int value = 0;
  if (!GetSocketOption(use.Handle(), id, value)) VESK_THROW_SOCKET_ERROR("Failed to get the specified option.");
  return value != 0;
}

void CStreamSocketImpl::SetBoolOption(unsigned int id, bool value) {
  CheckBoolOption(id);
  CUse use(*this);
  if (!SetSocketOption(use.Handle(), id, value ? 1 : 0)) {
    VESK_THROW_SOCKET_ERROR("Failed to set the specified option.");
  }
}

int CStreamSocketImpl::GetIntOption(unsigned int id) const {
  CheckIntOption(id);
  CUse use(*this);
  int value = 0;
  bool done;
  if (id == OptionLinger) {
    bool on = false;
    done = GetLinger(use.Handle(), on, value);
    if (!on) value = -1;
  } else {
    done = GetSocketOption(use.Handle(), id, value);
  }
  if (!done) VESK_THROW_SOCKET_ERROR("Failed to get the specified option.");
  return value;
}

void CStreamSocketImpl::SetIntOption(unsigned int id, int value) {
  CheckIntOption(id);
  CUse use(*this);
  bool done = id == OptionLinger ? SetLinger(use.Handle(), value > 0, value > 0 ? value : 0)
                                 : SetSocketOption(use.Handle(), id, value);
  if (!done) VESK_THROW_SOCKET_ERROR("Failed to set the specified option.");
}

int CStreamSocketImpl::CInput::Read(char* buffer, unsigned int offset, unsigned int length) {
  if (length == 0) return 0;
  CUse use(m_owner);
  SocketHandle handle = use.Handle();
  unsigned int timeout = m_owner.GetTimeout();
  if (timeout != 0) {
    int ready = WaitFor(handle, SocketReadiness::Read, timeout, true);
    if (ready == 0) VESK_THROW(kSource, io::CInterruptedIOException, "Read timed-out.");
    if (ready < 0) {
      // A Close on another thread ends the read as the peer's close would.
      if (use.ClosedMeanwhile()) return 0;
      VESK_THROW_SOCKET_ERROR("select failed.");
    }
  }
  if (length > static_cast<unsigned int>(INT_MAX)) length = INT_MAX;
  // The count as it comes: 0 once the peer has closed its side.
  int count = ReceiveBytes(handle, buffer + offset, static_cast<int>(length));
  if (count >= 0) return count;
  if (use.ClosedMeanwhile()) return 0;
  VESK_THROW_SOCKET_ERROR("Failed to read the specified number of bytes from the socket input stream.");
}

// A closed peer gives EOS here, where the contract's default would hand
// out a byte that was never read (and a loop waiting for EOS would spin).
int CStreamSocketImpl::CInput::Read() {
  char byte = 0;
  if (Read(&byte, 0, 1) <= 0) return EOS;
  return static_cast<signed char>(byte);
}

void CStreamSocketImpl::CInput::Reset() {
  VESK_THROW(kSource, io::CIOException, "Socket input stream doesn't support the reset operation.");
}

void CStreamSocketImpl::COutput::Write(const char* buffer, unsigned int offset, unsigned int length) {
  if (!buffer) return;
  CUse use(m_owner);
  SocketHandle handle = use.Handle();
  // A send may stop short (a signal, a full buffer): go on until all is out.
  while (length > 0) {
    int piece = length > static_cast<unsigned int>(INT_MAX) ? INT_MAX : static_cast<int>(length);
    int sent = SendBytes(handle, buffer + offset, piece);
    if (sent < 0) VESK_THROW_SOCKET_ERROR("Failed to send the specified data.");
    offset += static_cast<unsigned int>(sent);
    length -= static_cast<unsigned int>(sent);
  }
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
