/// \file
/// CSocketImpl: the per-socket state and operations behind CSocket and
/// CServerSocket. Each host supplies one implementation, created by the
/// socket implementation factory.
#ifndef VESK_NET_SOCKETIMPL_H
#define VESK_NET_SOCKETIMPL_H

#include "vesk/base/Object.h"
#include "vesk/base/Ref.h"
#include "vesk/net/InetAddress.h"

namespace vesk {
namespace io {
class CInputStream;
class COutputStream;
}  // namespace io
namespace net {

/// One IPv4 stream socket. Failures throw CSocketException (or a subclass
/// carrying the Windows Sockets error code); time-outs of reads and accepts
/// throw vesk::io::CInterruptedIOException. Every time-out t (milliseconds,
/// 0 = none) waits t / 1000 seconds plus t % 1000 MICROseconds: 1500 waits
/// 1 s and 500 us. No locking: one thread may read while another writes.
class VESK_API CSocketImpl : public vesk::base::CObject {
  VESK_DECLARE_CLASS(CSocketImpl);

  /// Socket option ids and their value types.
  enum Option : unsigned int {
    OptionMulticastLoop = 0,  ///< IP_MULTICAST_LOOP, bool
    OptionTypeOfService = 1,  ///< IP_TOS, int
    OptionBroadcast = 2,      ///< SO_BROADCAST, bool
    OptionKeepAlive = 3,      ///< SO_KEEPALIVE, bool
    OptionLinger = 4,         ///< SO_LINGER, int: seconds, -1 when off
    OptionOOBInline = 5,      ///< SO_OOBINLINE, bool
    OptionReceiveBuffer = 6,  ///< SO_RCVBUF, int
    OptionReuseAddress = 7,   ///< SO_REUSEADDR, bool
    OptionSendBuffer = 8,     ///< SO_SNDBUF, int
    OptionTCPNoDelay = 9,     ///< TCP_NODELAY, bool
  };

  /// Implementations close a socket still open, reporting no failure.
  ~CSocketImpl() override;

  /// Creates the stream socket.
  virtual void Create() = 0;
  /// Binds to address:port (port 0: one the system picks, reported by
  /// GetLocalPort). Throws "Bind socket failed.".
  virtual void Bind(const CInetAddress& address, unsigned short port) = 0;
  /// Connects to address:port. With a time-out set, a connect that does not
  /// finish in time closes the socket silently.
  virtual void Connect(const CInetAddress& address, unsigned short port) = 0;
  /// Starts listening with room for backlog pending requests.
  virtual void Listen(unsigned int backlog) = 0;
  /// Accepts the next connection into accepted (a fresh implementation of
  /// the same host), waiting at most timeout milliseconds (0 = no limit).
  virtual void Accept(CSocketImpl& accepted, unsigned int timeout) = 0;
  /// Waits, without limit, until a connection request is pending; true then.
  virtual bool IsPending() = 0;
  /// Bytes that can be read without blocking.
  virtual unsigned int GetAvailable() const = 0;
  /// Closes the socket; closing a closed socket does nothing. A thread
  /// blocked in a read or an accept on it wakes up.
  virtual void Close() = 0;

  ///@{
  /// Options 0, 2, 3, 5, 7 and 9; another id throws CSocketException "The
  /// specified option is not a bool option.".
  virtual bool GetBoolOption(unsigned int id) const = 0;
  virtual void SetBoolOption(unsigned int id, bool value) = 0;
  ///@}
  ///@{
  /// Options 1, 4, 6 and 8; another id throws CSocketException "The
  /// specified option is not an int option.". OptionLinger reads -1 when
  /// lingering is off and switches it off for a value of 0 or less.
  virtual int GetIntOption(unsigned int id) const = 0;
  virtual void SetIntOption(unsigned int id, int value) = 0;
  ///@}

  ///@{
  /// The socket's streams, owned by the implementation (never delete them).
  virtual vesk::io::CInputStream* GetInputStream() = 0;
  virtual vesk::io::COutputStream* GetOutputStream() = 0;
  ///@}

  ///@{
  /// The remote address and port (empty and 0 before a connect).
  const vesk::base::CRef<CInetAddress>& GetInetAddress() const { return m_address; }
  unsigned short GetPort() const { return m_port; }
  ///@}
  ///@{
  /// The local address and port (empty and 0 before a bind or connect).
  const vesk::base::CRef<CInetAddress>& GetLocalInetAddress() const { return m_localAddress; }
  unsigned short GetLocalPort() const { return m_localPort; }
  ///@}
  ///@{
  /// The time-out of connects, reads and accepts in milliseconds; 0 = none.
  unsigned int GetTimeout() const { return m_timeout; }
  void SetTimeout(unsigned int timeout) { m_timeout = timeout; }
  ///@}

 protected:
  /// No address, ports 0, no time-out.
  CSocketImpl();
  /// Throws the type error for an id that is not a bool option.
  static void CheckBoolOption(unsigned int id);
  /// Throws the type error for an id that is not an int option.
  static void CheckIntOption(unsigned int id);

  /// The remote address; empty before a connect.
  vesk::base::CRef<CInetAddress> m_address;
  /// The remote port; 0 before a connect.
  unsigned short m_port;
  /// The local address; empty before a bind or connect.
  vesk::base::CRef<CInetAddress> m_localAddress;
  /// The local port; 0 before a bind or connect.
  unsigned short m_localPort;
  /// The time-out of connects, reads and accepts in milliseconds; 0 = none.
  unsigned int m_timeout;

 private:
  CSocketImpl(const CSocketImpl&);
  CSocketImpl& operator=(const CSocketImpl&);
};

}  // namespace net
}  // namespace vesk

#endif
