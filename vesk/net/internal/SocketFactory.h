/// \file
/// The process-wide socket implementation factory. Not installed.
#ifndef VESK_NET_INTERNAL_SOCKETFACTORY_H
#define VESK_NET_INTERNAL_SOCKETFACTORY_H

#include "vesk/net/SocketImplFactory.h"

namespace vesk {
namespace net {
namespace internal {

/// The factory every CSocket and CServerSocket takes its implementation from.
CSocketImplFactory& ProcessSocketFactory();

}  // namespace internal
}  // namespace net
}  // namespace vesk

#endif
