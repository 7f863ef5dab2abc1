/// \file
/// CSocket: a connected IPv4 TCP socket with a byte input and output stream.
#ifndef VESK_NET_SOCKET_H
#define VESK_NET_SOCKET_H

#include "vesk/base/Base.h"
#include "vesk/base/Ref.h"
#include "vesk/net/InetAddress.h"
#include "vesk/net/SocketImpl.h"

namespace vesk {
namespace net {

class CServerSocket;

/// A client socket, or one accepted by a CServerSocket. Copies share one
/// implementation (one connection); the last copy to go closes it. Failures
/// throw CSocketException; read time-outs throw
/// vesk::io::CInterruptedIOException "Read timed-out.". Sending to a peer
/// that has gone throws CSocketException and never raises a signal.
class VESK_API CSocket : public vesk::base::CBase {
 public:
  ///@{
  /// Connects to host (a name or a dotted address) at port. Throws
  /// CUnknownHostException when host does not resolve, CSocketException
  /// "Connect socket failed." when the connection is refused; the socket is
  /// closed whenever construction fails.
  CSocket(const char* host, unsigned short port);
  CSocket(const CInetAddress& address, unsigned short port);
  ///@}
  ///@{
  /// The same, bound to localAddress:localPort first (port 0: the system
  /// picks one). Throws CSocketException "Bind socket failed." when that
  /// address cannot be taken.
  CSocket(const char* host, unsigned short port, const CInetAddress& localAddress, unsigned short localPort);
  CSocket(const CInetAddress& address, unsigned short port, const CInetAddress& localAddress,
          unsigned short localPort);
  ///@}
  /// Shares other's connection.
  CSocket(const CSocket& other);
  /// Shares other's connection; the one held before is released (closed when
  /// this was its last copy).
  CSocket& operator=(const CSocket& other);
  /// Releases this copy; the last copy of a connection closes it.
  ~CSocket();

  ///@{
  /// The remote address, shared with the implementation (not a copy).
  vesk::base::CRef<CInetAddress> GetInetAddress() const;
  unsigned short GetPort() const;
  ///@}
  ///@{
  /// The local address, shared with the implementation (not a copy).
  vesk::base::CRef<CInetAddress> GetLocalInetAddress() const;
  unsigned short GetLocalPort() const;
  ///@}

  ///@{
  /// Milliseconds a read waits for data (0 = without limit).
  unsigned int GetTimeout() const;
  void SetTimeout(unsigned int timeout);
  ///@}

  ///@{
  /// SO_KEEPALIVE: whether idle connections are probed.
  bool GetKeepAlive() const;
  void SetKeepAlive(bool on);
  ///@}
  ///@{
  /// SO_OOBINLINE: whether urgent data arrives in the normal stream.
  bool GetOOBInline() const;
  void SetOOBInline(bool on);
  ///@}
  ///@{
  /// SO_REUSEADDR: whether a local address still in use may be bound again.
  bool GetReuseAddress() const;
  void SetReuseAddress(bool on);
  ///@}
  ///@{
  /// TCP_NODELAY: whether small writes are sent at once instead of being
  /// coalesced.
  bool GetTCPNoDelay() const;
  void SetTCPNoDelay(bool on);
  ///@}

  /// The socket's input stream, owned by the socket: never delete it. A
  /// read returns what the connection has (at most length bytes, waiting
  /// for at least one), and 0 once the peer has closed its side; Read()
  /// returns EOS then. Reset throws CIOException.
  vesk::io::CInputStream* GetInputStream();
  /// The socket's output stream, owned by the socket: never delete it.
  /// Every write sends all its bytes before it returns.
  vesk::io::COutputStream* GetOutputStream();

  /// Closes the connection (for every copy). Closing again does nothing.
  void Close();

  ///@{
  /// Whether both share one implementation.
  bool operator==(const CSocket& other) const { return m_impl == other.m_impl; }
  bool operator!=(const CSocket& other) const { return m_impl != other.m_impl; }
  ///@}

 protected:
  /// Wraps an implementation (an accepted connection). Every member of a
  /// socket with an empty implementation throws CNullReferenceException.
  explicit CSocket(const vesk::base::CRef<CSocketImpl>& impl);

 private:
  friend class CServerSocket;
  void Open(const char* host, const CInetAddress* address, unsigned short port, const CInetAddress* localAddress,
            unsigned short localPort);

  vesk::base::CRef<CSocketImpl> m_impl;
};

}  // namespace net
}  // namespace vesk

#endif
