#include "vesk/net/TCPIPSocketImplFactory.h"

#include "vesk/net/internal/SocketFactory.h"

namespace vesk {
namespace net {

CTCPIPSocketImplFactory::CTCPIPSocketImplFactory() {}

CTCPIPSocketImplFactory::~CTCPIPSocketImplFactory() {}

namespace internal {

CSocketImplFactory& ProcessSocketFactory() {
  // Built on first use; it holds no state, so its order among the
  // library's statics does not matter.
  static CTCPIPSocketImplFactory factory;
  return factory;
}

}  // namespace internal
}  // namespace net
}  // namespace vesk
