/// \file
/// CInetAddress: an IPv4 address with a lazily looked-up host name.
#ifndef VESK_NET_INETADDRESS_H
#define VESK_NET_INETADDRESS_H

#include "vesk/base/Base.h"
#include "vesk/base/String.h"

namespace vesk {
namespace net {

/// Four address bytes in network order and the host name, looked up once on
/// first request. A value type: copies keep their own name.
class VESK_API CInetAddress : public vesk::base::CBase {
 public:
  /// The wildcard address 0.0.0.0.
  static const CInetAddress AnyInetAddress;

  /// Copies the 4 bytes at address. Throws CIllegalArgumentException
  /// "Invalid IPv4 address." for null.
  CInetAddress(const unsigned char* address);
  /// Copies the bytes and the host name, looked up or not.
  CInetAddress(const CInetAddress& other);
  /// Copies the bytes and the host name, looked up or not.
  CInetAddress& operator=(const CInetAddress& other);
  /// Nothing to release but the host name.
  ~CInetAddress();

  /// The 4 address bytes, network order.
  const unsigned char* GetAddress() const { return m_address; }
  /// Same four bytes (host names are not compared).
  bool operator==(const CInetAddress& other) const;
  /// Different bytes.
  bool operator!=(const CInetAddress& other) const { return !(*this == other); }
  /// True when the first byte lies from 224 to 240, both included.
  bool IsMulticastAddress() const;
  /// The dotted form "a.b.c.d".
  vesk::base::CString GetHostAddress() const;
  /// The host's official name, looked up (reverse) on the first call only;
  /// empty when that lookup found none. Not for two threads at once.
  vesk::base::CString GetHostName() const;

  /// The first IPv4 address of host (a name or a dotted address). Throws
  /// CIllegalArgumentException "Invalid host name." for a null or empty
  /// host, CUnknownHostException (naming host) when it does not resolve.
  static CInetAddress GetByName(const char* host);
  /// The address of this machine's host name. Throws CUnknownHostException
  /// for "localhost" when the system cannot say its name, and what GetByName
  /// throws when the name does not resolve.
  static CInetAddress GetLocalHost();

 private:
  unsigned char m_address[4];
  mutable vesk::base::CString m_hostName;
  mutable bool m_nameLookedUp;
};

}  // namespace net
}  // namespace vesk

#endif
