/// \file
/// CTCPIPSocketImplFactory: the factory of the host's TCP/IP sockets.
#ifndef VESK_NET_TCPIPSOCKETIMPLFACTORY_H
#define VESK_NET_TCPIPSOCKETIMPLFACTORY_H

#include "vesk/net/SocketImplFactory.h"

namespace vesk {
namespace net {

/// Makes the host's socket implementation. CSocket and CServerSocket use one
/// process-wide instance of it.
class VESK_API CTCPIPSocketImplFactory : public CSocketImplFactory {
 public:
  /// A factory; it holds no state.
  CTCPIPSocketImplFactory();
  /// Nothing to release.
  ~CTCPIPSocketImplFactory() override;
  vesk::base::CRef<CSocketImpl> CreateSocketImpl() override;
};

}  // namespace net
}  // namespace vesk

#endif
