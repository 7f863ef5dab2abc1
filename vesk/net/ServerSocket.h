/// \file
/// CServerSocket: a listening IPv4 TCP socket that accepts CSockets.
#ifndef VESK_NET_SERVERSOCKET_H
#define VESK_NET_SERVERSOCKET_H

#include "vesk/base/Base.h"
#include "vesk/base/Ref.h"
#include "vesk/net/InetAddress.h"
#include "vesk/net/Socket.h"
#include "vesk/net/SocketImpl.h"

namespace vesk {
namespace net {

/// Listens on one address and port. Copies share one implementation; the
/// last copy to go closes it.
class VESK_API CServerSocket : public vesk::base::CBase {
 public:
  /// Binds to bindAddress:port (port 0: the system picks one, reported by
  /// GetLocalPort) and listens with room for backlog pending requests.
  /// Throws CSocketException "Bind socket failed." when the address is taken.
  CServerSocket(unsigned short port, unsigned int backlog, const CInetAddress& bindAddress);
  /// Shares other's listener.
  CServerSocket(const CServerSocket& other);
  /// Shares other's listener; the one held before is released (closed when
  /// this was its last copy).
  CServerSocket& operator=(const CServerSocket& other);
  /// Releases this copy; the last copy of a listener closes it.
  ~CServerSocket();

  /// The next connection, waiting at most GetTimeout() milliseconds (0: no
  /// limit); throws vesk::io::CInterruptedIOException "Accept timed-out."
  /// when none came in time.
  vesk::base::CRef<CSocket> Accept();
  /// The same with its own time-out (0: no limit).
  vesk::base::CRef<CSocket> Accept(unsigned int timeout);
  /// Waits WITHOUT LIMIT until a connection request is pending, then returns
  /// true: it blocks on a listener that nobody connects to.
  bool IsPending();

  /// The address the socket is bound to, shared (not a copy).
  vesk::base::CRef<CInetAddress> GetInetAddress() const;
  /// The port the socket listens on.
  unsigned short GetLocalPort() const;
  ///@{
  /// Milliseconds Accept() waits (0 = without limit).
  unsigned int GetTimeout() const;
  void SetTimeout(unsigned int timeout);
  ///@}
  /// Stops listening; a thread blocked in Accept wakes with an exception.
  void Close();

  ///@{
  /// Whether both share one implementation (or not).
  bool operator==(const CServerSocket& other) const { return m_impl == other.m_impl; }
  bool operator!=(const CServerSocket& other) const { return m_impl != other.m_impl; }
  ///@}

 private:
  vesk::base::CRef<CSocketImpl> m_impl;
};

}  // namespace net
}  // namespace vesk

#endif
